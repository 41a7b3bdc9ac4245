#!/usr/bin/env python3
"""The whole program on a Windows desktop, used as a person uses it. scripts/test-windows starts it."""
import time
import unittest

import desktop
from desktop import await_, click, key, move, picture, runs

ICON = (1013, 758)  # the only one in the taskbar
NOWHERE = (500, 60)
QUILLBOX = desktop.PROGRAM / "quillbox.exe"
ACCOUNTS = ("Garden pages", "garden@example.test", "rosemary", "Recipe pages", "recipes@example.test", "saffron")


def setUpModule():
    desktop.clean()
    unittest.addModuleCleanup(desktop.start_service().kill)
    Used.loudspeaker = desktop.Loudspeaker()
    unittest.addModuleCleanup(Used.loudspeaker.close)
    assert Used.desktop.open(), "no desktop"
    unittest.addModuleCleanup(Used.desktop.close)
    unittest.addModuleCleanup(desktop.run, "pkill", "--signal", "KILL", "--exact", "quillbox.exe")


class Used(unittest.TestCase):
    """Each test begins with a program that has refreshed, at rest, and leaves it so or ends it."""

    desktop = desktop.Desktop()

    def setUp(self):
        move(*NOWHERE)
        self.addCleanup(self.end_if_it_failed)
        if runs() > 0:
            return
        self.desktop.forget_settings()
        self.desktop.store_accounts(*ACCOUNTS)
        self.desktop.store("TrayIcon", "ShowBalloonWhen", "Never")  # Wine's takes the keyboard
        self.desktop.store("AutoUpdate", "Enable", "False")
        self.begin()
        self.assertTrue(await_(lambda: "Recipe pages=" in self.desktop.tell("Accounts")), "nothing was fetched")

    def begin(self):
        self.desktop.start(QUILLBOX)
        self.assertTrue(await_(self.icon_is_there), "no icon")

    def end(self):
        """By force, at any moment."""
        desktop.run("pkill", "--signal", "KILL", "--exact", "quillbox.exe")
        self.assertTrue(await_(lambda: runs() == 0 and not self.icon_is_there()), "the icon stayed")

    def end_if_it_failed(self):
        if self.failed or any(self.desktop.find(name=name) for name in ("Opts", "Account", "AboutWin", "ReportsWin")):
            self.end()

    failed = False

    @staticmethod
    def icon_is_there():
        return desktop.icon_is_drawn(ICON)

    def rest_on_icon(self):
        desktop.rest_on(ICON)

    def click_icon(self, *words):
        self.rest_on_icon()
        desktop.run("xdotool", "click", *words)

    def await_window(self, **wanted):
        found = self.desktop.await_window(**wanted)
        if found is None:
            self.failed = True
            picture(f"failed-{self.id().split('.')[-1]}")
        self.assertIsNotNone(found, f"no window {wanted}")
        return found

    def open_options(self):
        self.click_icon("--repeat", "2", "--delay", "100", "1")
        return self.await_window(name="Opts")

    def shown(self, name):
        return self.await_window(name=name)


class Icon(Used):
    def test_resting_shows_the_figures_beside_it_and_leaving_closes_them(self):
        self.rest_on_icon()
        left, top, right, bottom = self.await_window(text="TooltipWin")["place"]
        picture("figures")
        self.assertTrue(right <= desktop.SIZE[0] and abs(bottom - 748) <= 2 and top > 500 and left > 600)
        self.assertIsNone(self.desktop.find(text="TooltipWin", topmost=False))
        move(*NOWHERE)
        self.assertTrue(self.desktop.await_no_window(text="TooltipWin"))

    def test_the_menu_goes_by_keyboard(self):
        self.click_icon("3")
        self.await_window(**{"class": "#32768"})
        picture("menu")
        key("Escape")
        self.assertTrue(self.desktop.await_no_window(**{"class": "#32768"}))
        self.click_icon("3")
        self.await_window(**{"class": "#32768"})
        time.sleep(0.5)
        key(*["Up"] * 6, "Return")  # "About..." is the sixth from below
        self.await_window(name="AboutWin")
        picture("about")
        key("Return")
        self.assertTrue(self.desktop.await_no_window(name="AboutWin"))

    def test_a_click_does_what_was_chosen_for_it(self):
        self.end()
        self.desktop.store("TrayIcon", "SingleAction", "Refresh tooltip information")
        self.desktop.store("TrayIcon", "ShowBalloonWhen", "Your Earnings Changes")
        self.desktop.store("General", "RefreshTooltip", "False")
        before = self.desktop.tell("Accounts")
        self.begin()
        time.sleep(3)
        self.assertEqual(self.desktop.tell("Accounts"), before)
        self.click_icon("1")
        self.assertTrue(await_(lambda: self.desktop.tell("Accounts") != before), "nothing was refreshed")
        self.await_window(**{"class": "tooltips_class32"})
        picture("balloon")
        self.end()

    def test_a_download_is_heard(self):
        self.end()
        self.assertFalse(self.loudspeaker.sounded())
        self.desktop.store("Sounds", "Downloaded", "Downloaded.wav")
        self.begin()
        self.assertTrue(await_(self.loudspeaker.sounded), "silence")
        self.end()

    def test_another_start_wakes_this_one_and_goes(self):
        second = self.desktop.start(QUILLBOX)
        second.wait(desktop.LIMIT)
        self.assertTrue(await_(lambda: runs() == 1))
        self.assertTrue(self.icon_is_there())

    def test_a_new_taskbar_gets_the_icon(self):
        self.desktop.tell("taskbar-created")
        time.sleep(1)
        self.assertTrue(await_(self.icon_is_there))
        self.open_options()  # and it hears the mouse
        key("Escape")

    def test_the_end_of_the_session_takes_the_icon_away_and_ends_it(self):
        self.assertEqual(runs(), 1)
        self.assertEqual(self.desktop.tell("end-of-session"), "it agrees\n")
        self.assertTrue(await_(lambda: runs() == 0))
        self.assertFalse(self.icon_is_there())


class Reports(Used):
    def test_a_report_is_made_and_opened_in_the_browser(self):
        self.click_icon("3")
        left, top, right, bottom = self.await_window(**{"class": "#32768"})["place"]
        item = top + (bottom - top) * 97 // 238  # "Reports...", the fifth of eleven
        click({"place": (left, item, right, item)})
        self.await_window(name="ReportsWin")
        click(self.await_window(name="Command1"))
        line = await_(lambda: self.desktop.find(name="IE") and "was opened" in self.desktop.find(name="IE")["text"])
        picture("reports")
        self.assertTrue(line, self.desktop.find(name="IE"))
        _, top, right, _ = self.shown("ReportsWin")["place"]
        click({"place": (right - 20, top + 6, right - 4, top + 20)})
        self.assertTrue(self.desktop.await_no_window(name="ReportsWin"))


class Options(Used):
    def test_a_change_is_kept_over_a_restart(self):
        self.open_options()
        apply = self.shown("ApplyButton")
        self.assertFalse(apply["enabled"])
        box = self.shown("Check1")
        self.assertFalse(box["checked"])
        click(box)
        self.assertTrue(await_(lambda: self.desktop.find(name="Check1", checked=True)))
        click(self.await_window(name="ApplyButton", enabled=True))
        self.assertIsNotNone(self.await_window(name="ApplyButton", enabled=False))
        self.end()
        self.begin()
        self.open_options()
        self.assertTrue(self.shown("Check1")["checked"])
        picture("options-general")
        key("Escape")

    def test_every_page_comes_by_keyboard(self):
        self.open_options()
        for name in ("AdSenseFrame", "AutoUpdateFrame", "TrayIconFrame", "TrayTooltipFrame", "SoundsFrame", "ProxyFrame"):
            key("ctrl+Tab")
            self.await_window(name=name)
            picture(f"options-{name}")
        key("Escape")
        self.assertTrue(self.desktop.await_no_window(name="Opts"))

    def test_an_account_is_added_by_keyboard_alone(self):
        self.open_options()
        key("ctrl+Tab", "alt+a")
        self.await_window(name="Account")
        picture("account")
        desktop.write("old pages\told@example.test\tthyme\n")
        self.assertTrue(self.desktop.await_no_window(name="Account"))
        click(self.shown("Command1"))
        self.assertTrue(self.desktop.await_no_window(name="Opts"))
        self.assertTrue(await_(lambda: "|||old pages" in self.desktop.tell("AdSense")))
        self.end()

    def test_an_account_signs_in_with_what_its_person_allows_in_the_browser(self):
        self.desktop.open_addresses_with(f"Z:{desktop.PROGRAMS}/allowing_browser.exe".replace("/", "\\"))
        self.addCleanup(self.desktop.open_addresses_with, r"C:\windows\system32\winebrowser.exe")
        self.open_options()
        key("ctrl+Tab", "alt+a")
        self.await_window(name="Account")
        desktop.write("granted\tgarden@example.test\t")
        key("alt+n")  # "Connect..."
        self.await_window(name="Connect", enabled=False)
        self.await_window(name="Connect", enabled=True)
        picture("connected")
        click(self.shown("Text3"))
        key("Return")
        self.assertTrue(self.desktop.await_no_window(name="Account"))
        click(self.shown("Command1"))
        self.assertTrue(self.desktop.await_no_window(name="Opts"))
        self.end()
        self.desktop.store("General", "PrimaryAccount", "granted")
        self.begin()
        self.assertTrue(await_(lambda: "granted=" in self.desktop.tell("Accounts")), "the grant brings no figures")
        self.end()


if __name__ == "__main__":
    unittest.main(verbosity=2)
