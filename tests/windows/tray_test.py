#!/usr/bin/env python3
"""The icon in a tray that isn't Windows': Wine docks it there on a desktop of this system. scripts/test-windows
starts it."""
import subprocess
import time
import unittest

import desktop
from desktop import await_, move, picture, run

# Of a fixed size: Wine 8 clips an icon to the size that the tray had when it took it in, so that in one which grows
# for it nothing is drawn or clicked most of the time.
TRAY = ["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel", "--width", "22", "--heighttype",
        "pixel", "--height", "26", "--SetDockType", "true"]
ICON = (1013, 755)
NOWHERE = (500, 60)


class Here(desktop.Desktop):
    """Wine's windows among the others, without a desktop of its own."""

    def start(self, program, *arguments):
        return subprocess.Popen(["wine", program, *arguments], cwd=desktop.SCRATCH, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)


def windows():
    """The program's that can be seen, as (left, top, right, bottom)."""
    places = []
    for number in run("xdotool", "search", "--onlyvisible", "--class", "quillbox").split():
        told = dict(line.split("=") for line in run("xdotool", "getwindowgeometry", "--shell", number).split())
        left, top = int(told.get("X", 0)), int(told.get("Y", 0))
        places.append((left, top, left + int(told.get("WIDTH", 0)), top + int(told.get("HEIGHT", 0))))
    return [place for place in places if place[2] - place[0] > 1]


def icon_is_there():
    return desktop.icon_is_drawn(ICON)


def end():
    run("pkill", "--signal", "KILL", "--exact", "quillbox.exe")
    await_(lambda: desktop.runs() == 0)


def rests_until_figures_show():
    """They aren't there before the first refresh is through."""
    move(*NOWHERE)
    time.sleep(0.5)
    desktop.rest_on(ICON)
    return await_(lambda: any(bottom - top > 100 for _, top, _, bottom in windows()), 1)


class TrayOfAnother(unittest.TestCase):
    def test_takes_the_icon_in_which_hears_the_mouse_there(self):
        run("wineserver", "--kill")
        desktop.clean()
        self.addCleanup(desktop.start_service().kill)
        for words in (["openbox"], TRAY):
            self.addCleanup(subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).kill)
            time.sleep(1)
        move(*NOWHERE)
        here = Here()
        here.forget_settings()
        here.start(desktop.PROGRAMS / "demo-settings.exe", "write", "Garden pages", "garden@example.test",
                   "rosemary").wait(desktop.LIMIT)
        here.store("TrayIcon", "ShowBalloonWhen", "Never")
        self.addCleanup(end)
        here.start(desktop.PROGRAM / "quillbox.exe")
        self.assertTrue(await_(icon_is_there), "no icon")

        self.assertTrue(await_(rests_until_figures_show), "no figures")
        picture("another-tray")
        left, top, right, bottom = windows()[0]
        self.assertTrue(left > 600 and top > 400 and right <= desktop.SIZE[0] and bottom <= desktop.SIZE[1], windows())

        run("xdotool", "click", "3")
        menu = await_(lambda: next((place for place in windows() if place[3] - place[1] > 200), None))
        self.assertTrue(menu, "no menu")
        left, _, right, bottom = menu
        desktop.click({"place": (left, bottom - 20, right, bottom - 4)})  # "Exit", its last
        self.assertTrue(await_(lambda: desktop.runs() == 0 and not icon_is_there()), "it goes on")


if __name__ == "__main__":
    unittest.main(verbosity=2)
