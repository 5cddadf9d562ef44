"""scripts/install --user in a home folder made up for it."""
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "install"
BUILD = os.environ["SLANTWISE_BUILD"]


class InstallForUserTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.home = Path(place.name) / "a home"
        self.home.mkdir()

    def run_script(self, *arguments):
        return subprocess.run([SCRIPT, *arguments], env=os.environ | {"HOME": str(self.home)}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def install(self):
        result = self.run_script("--user", "--from", BUILD)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout

    def remove(self):
        result = self.run_script("--user", "--remove")
        self.assertEqual(result.returncode, 0, result.stdout)

    def everything(self):
        return {str(path.relative_to(self.home)) for path in self.home.rglob("*")}

    def test_plug_ins_where_hosts_look_and_the_program_in_the_path(self):
        said = self.install()
        found = self.everything()
        self.assertLessEqual({".lv2/Slantwise.lv2/manifest.ttl", ".vst3/Slantwise.vst3/Contents",
                              ".local/share/man/man1/slantwise.1"}, found)
        self.assertEqual({path.split("/")[0] for path in found}, {".local", ".lv2", ".vst3"})
        for line in (".lv2/Slantwise.lv2", ".vst3/Slantwise.vst3", ".local/bin/slantwise"):
            self.assertIn(f"{self.home}/{line}\n", said)
        subprocess.run([self.home / ".local/bin/slantwise", "--version"], check=True, stdout=subprocess.DEVNULL)

    @unittest.skipUnless(shutil.which("lv2ls"), "needs lilv-utils")
    def test_a_host_finds_the_plug_in(self):
        self.install()
        said = subprocess.run(["lv2ls"], env=os.environ | {"HOME": str(self.home), "LV2_PATH": f"{self.home}/.lv2"},
                              text=True, stdout=subprocess.PIPE)
        self.assertEqual(said.stdout.split(), ["https://ferrowind.example/plugins/slantwise"])

    def test_the_desktop_starts_the_program_by_its_place(self):
        self.install()
        file = self.home / ".local/share/applications/com.ferrowind.slantwise.desktop"
        self.assertIn(f'Exec="{self.home}/.local/bin/slantwise" %f\n', file.read_text())
        if shutil.which("desktop-file-validate"):
            subprocess.run(["desktop-file-validate", file], check=True)

    def test_nothing_is_left_when_it_is_removed(self):
        self.install()
        self.remove()
        self.assertEqual(self.everything(), set())

    def test_what_others_have_there_stays(self):
        others = self.home / ".lv2/Another.lv2/manifest.ttl"
        others.parent.mkdir(parents=True)
        others.write_text("another")
        (self.home / ".local").mkdir()
        before = self.everything()
        self.install()
        later = self.home / ".vst3/Later.vst3"
        later.mkdir()
        self.remove()
        self.assertEqual(self.everything(), before | {".vst3", ".vst3/Later.vst3"})
        self.assertEqual(others.read_text(), "another")

    def test_installed_again_takes_away_what_the_last_one_had_more(self):
        self.install()
        first = self.everything()
        stale = ".lv2/Slantwise.lv2/old.ttl"
        (self.home / stale).write_text("old")
        with open(self.home / ".local/share/slantwise/installed", "a", encoding="utf-8") as file:
            file.write(f"file {stale}\n")
        self.install()
        self.assertEqual(self.everything(), first)
        self.remove()
        self.assertEqual(self.everything(), set())

    def test_a_library_in_use_keeps_its_bytes(self):
        library = self.home / ".lv2/Slantwise.lv2/libSlantwise.so"
        library.parent.mkdir(parents=True)
        library.write_text("copied by hand, and loaded by a host")
        with open(library, encoding="utf-8") as held:
            self.install()
            self.assertEqual(library.read_bytes()[:4], b"\x7fELF")
            self.assertEqual(held.read(), "copied by hand, and loaded by a host")

    def test_does_not_write_through_a_link(self):
        target = self.home / "elsewhere"
        target.mkdir()
        (self.home / ".lv2").mkdir()
        (self.home / ".lv2/Slantwise.lv2").symlink_to(target)
        before = self.everything()
        self.assertEqual(self.run_script("--user", "--from", BUILD).returncode, 1)
        self.assertEqual(self.everything(), before)

    def test_says_that_there_is_nothing_to_remove(self):
        result = self.run_script("--user", "--remove")
        self.assertEqual((result.returncode, result.stdout), (1, "install: nothing is installed for this user\n"))

    def test_asks_for_the_one_way_that_there_is(self):
        for arguments in ([], ["--remove"], ["--user", "--from"], ["--all"]):
            self.assertEqual(self.run_script(*arguments).returncode, 2, arguments)


if __name__ == "__main__":
    unittest.main()
