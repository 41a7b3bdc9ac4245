#!/usr/bin/env python3
"""Installs, updates and removes Quillbox on a Windows desktop. scripts/test-windows starts it."""
import os
import pathlib
import pwd
import shutil
import subprocess
import time
import unittest

import desktop
from desktop import ROOT, await_, key, picture, run, runs

PORTABLE = ROOT / "build/windows/Quillbox"
PERSON = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c/users" / pwd.getpwuid(os.getuid()).pw_name
INSTALLED = PERSON / "AppData/Local/Programs/Quillbox"
DATA = PERSON / "AppData/Local/Quillbox"
LINK = PERSON / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Quillbox.lnk"
OLD, NEW = desktop.SCRATCH / "old-setup-1.exe", desktop.SCRATCH / "new-setup-2.exe"


def setUpModule():
    desktop.clean()
    for setup, version in ((OLD, "1.2.9"), (NEW, "1.3.0")):
        folder = desktop.SCRATCH / version
        shutil.copytree(PORTABLE, folder)
        (folder / f"only in {version}.txt").write_text("")
        subprocess.run([ROOT / "packaging/windows/make-installer", folder, version, "https://maker.example.test",
                        setup], check=True)
    unittest.addModuleCleanup(desktop.start_service().kill)
    assert Installer.desktop.open(), "no desktop"
    unittest.addModuleCleanup(Installer.desktop.close)


def files(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())


class Installer(unittest.TestCase):
    desktop = desktop.Desktop()

    def setUp(self):
        self.assertTrue(await_(lambda: runs() == 0))
        self.desktop.forget_settings()
        self.desktop.store_accounts("Garden pages", "garden@example.test", "rosemary")
        self.addCleanup(run, "pkill", "--signal", "KILL", "--exact", "quillbox.exe")
        self.addCleanup(self.remove)

    def start(self, program, *arguments):
        return self.desktop.start(program, *arguments).wait(desktop.LIMIT)

    def install(self, setup):
        self.start(setup, "/S")
        self.assertTrue(await_(lambda: not run("pgrep", "--full", setup.name)), "it does not end")
        self.assertTrue((INSTALLED / "uninstall.exe").exists(), "nothing was installed")

    def remove(self, *words):
        if (INSTALLED / "uninstall.exe").exists():
            self.start(INSTALLED / "uninstall.exe", "/S", *words)
            await_(lambda: not (INSTALLED / "uninstall.exe").exists())

    def test_a_version_is_installed_updated_while_it_runs_and_removed(self):
        self.install(OLD)
        self.assertEqual(files(INSTALLED), sorted([*files(PORTABLE), "only in 1.2.9.txt", "uninstall.exe"]))
        self.assertTrue(LINK.exists())
        self.assertIn("1.2.9", self.desktop.tell("installed"))
        self.desktop.start(INSTALLED / "quillbox.exe")
        self.assertTrue(await_(lambda: "Garden pages=" in self.desktop.tell("Accounts")), "nothing was fetched")
        (INSTALLED / "skin.ini").write_text("changed")

        process = run("pgrep", "--exact", "quillbox.exe")
        self.install(NEW)
        self.assertTrue(await_(lambda: runs() == 1 and run("pgrep", "--exact", "quillbox.exe") != process),
                        "it was not started again")
        self.assertEqual((INSTALLED / "skin.ini").read_text(), "changed")
        found = files(INSTALLED)
        self.assertIn("only in 1.3.0.txt", found)
        self.assertNotIn("only in 1.2.9.txt", found)
        self.assertIn("1.3.0", self.desktop.tell("installed"))
        self.assertIn("Accounts=Garden pages", self.desktop.tell("AdSense"))

        self.remove()
        self.assertTrue(await_(lambda: runs() == 0), "it goes on")
        self.assertEqual(files(INSTALLED), ["skin.ini"])
        self.assertFalse(LINK.exists())
        self.assertNotIn("1.3.0", self.desktop.tell("installed"))
        self.assertIn("Accounts=Garden pages", self.desktop.tell("AdSense"))
        (INSTALLED / "skin.ini").unlink()

    def test_settings_go_when_it_is_wished(self):
        self.install(NEW)
        (DATA / "grants").mkdir(parents=True, exist_ok=True)
        self.remove("/SETTINGS")
        self.assertTrue(await_(lambda: not INSTALLED.exists() and not DATA.exists()))
        self.assertTrue(await_(lambda: "Garden pages" not in self.desktop.tell("AdSense")))

    def test_a_person_is_led_through_it(self):
        self.desktop.start(NEW)
        self.desktop.await_window(text="Quillbox Setup")
        time.sleep(1)
        picture("setup-folder")
        key("Return")
        self.assertTrue(await_(lambda: LINK.exists()), "nothing was installed")
        time.sleep(2)
        picture("setup-done")
        key("Return", "Return")
        self.assertTrue(await_(lambda: runs() == 1), "it was not started")
        self.desktop.start(INSTALLED / "uninstall.exe")
        self.desktop.await_window(text="Quillbox Uninstall")
        time.sleep(1)
        picture("setup-removal")
        key("Return")
        self.assertTrue(await_(lambda: not (INSTALLED / "uninstall.exe").exists()), "nothing was removed")
        self.assertTrue(await_(lambda: runs() == 0), "it goes on")
        time.sleep(1)
        picture("setup-removed")
        key("Return")
        self.assertIn("Accounts=Garden pages", self.desktop.tell("AdSense"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
