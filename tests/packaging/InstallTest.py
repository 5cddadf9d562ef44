"""What `cmake --install` puts where, and that programs, desktop and shell can use it."""
import os
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["SLANTWISE_BUILD"])
PREFIX = "usr"
SIDES = (16, 22, 24, 32, 48, 64, 128, 256)
ARTEFACTS = BUILD / "plugin/Slantwise_artefacts"


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


def bundle(name):
    found = list(ARTEFACTS.rglob(name))
    assert len(found) == 1, found
    return found[0]


def codenames():
    rows = (TOP / "description/tables/ParameterTable.cpp").read_text()
    found = re.findall(r'\.codesafeName = "(\w+)"', rows)
    assert len(found) == 24, found
    return found


def expected_files():
    pictures = set(re.findall(r"\(images/([^)]+)\)", (TOP / "docs/MANUAL.md").read_text()))
    assert len(pictures) >= 5, pictures
    share = {"applications/com.ferrowind.slantwise.desktop", "metainfo/com.ferrowind.slantwise.metainfo.xml",
             "doc/slantwise/MANUAL.md"}
    share |= {f"doc/slantwise/images/{picture}" for picture in pictures}
    share |= {f"icons/hicolor/{side}x{side}/apps/slantwise.png" for side in SIDES}
    programs = ("slantwise", "slantwise-inspect", "slantwise-render")
    share |= {f"man/man1/{program}.1" for program in programs}
    share |= {f"bash-completion/completions/{program}" for program in programs}
    pages = {f"manual/{page}" for page in {"index.html"} | {f"{name}.html" for name in codenames()}}
    share |= {f"doc/slantwise/{page}" for page in pages}
    lv2, vst3 = files_below(bundle("Slantwise.lv2")), files_below(bundle("Slantwise.vst3"))
    assert "manifest.ttl" in lv2 and any(file.endswith("/Slantwise.so") for file in vst3), (lv2, vst3)
    lv2, vst3 = lv2 | pages, vst3 | {f"Contents/Resources/{page}" for page in pages}
    return ({f"share/{file}" for file in share} | {f"bin/{program}" for program in programs}
            | {f"lib/lv2/Slantwise.lv2/{file}" for file in lv2} | {f"lib/vst3/Slantwise.vst3/{file}" for file in vst3})


def version():
    return re.search(r"project\(Slantwise VERSION (\S+)", (TOP / "CMakeLists.txt").read_text())[1]


def install(destination, *arguments):
    subprocess.run([os.environ["SLANTWISE_CMAKE"], "--install", BUILD, "--prefix", f"/{PREFIX}", *arguments],
                   env=os.environ | {"DESTDIR": str(destination)}, check=True, stdout=subprocess.DEVNULL)


class InstallTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(place.cleanup)
        cls.destination = Path(place.name)
        install(cls.destination)
        cls.root = cls.destination / PREFIX

    def test_installs_these_files_and_no_others(self):
        self.assertEqual(files_below(self.root), expected_files())

    def test_writes_nowhere_else(self):
        self.assertEqual([path.name for path in self.destination.iterdir()], [PREFIX])
        manifest = (BUILD / "install_manifest.txt").read_text().split("\n")
        self.assertEqual({path.removeprefix(f"/{PREFIX}/") for path in manifest if path}, files_below(self.root))

    def test_the_components_are_the_whole_and_do_not_overlap(self):
        parts = []
        for component in ("program", "lv2", "vst3"):
            with tempfile.TemporaryDirectory() as place:
                install(Path(place), "--component", component)
                parts += files_below(Path(place) / PREFIX)
        self.assertEqual(sorted(parts), sorted(files_below(self.root)))

    def test_the_installed_programs_run(self):
        said = subprocess.run([self.root / "bin/slantwise", "--version"], check=True, stdout=subprocess.PIPE, text=True)
        self.assertIn(f"Slantwise {version()} ", said.stdout)
        for program in ("slantwise-inspect", "slantwise-render"):
            subprocess.run([self.root / "bin" / program, "--help"], check=True, stdout=subprocess.DEVNULL)

    def test_no_file_has_a_path_of_the_build_in_its_text(self):
        for path in (self.root / "share").rglob("*"):
            if path.is_file():
                self.assertNotIn(os.fsencode(TOP), path.read_bytes(), path)

    def test_the_manual_has_a_heading_for_every_parameter_and_a_page_that_leads_there(self):
        for folder in ("share/doc/slantwise", "lib/lv2/Slantwise.lv2", "lib/vst3/Slantwise.vst3/Contents/Resources"):
            whole = (self.root / folder / "manual/index.html").read_text()
            self.assertIn(f'<meta name="version" content="{version()}">', whole[:512])
            for name in codenames():
                self.assertEqual(whole.count(f' id="{name}"'), 1, name)
                self.assertIn(f'url=index.html#{name}"', (self.root / folder / f"manual/{name}.html").read_text())

    def test_every_icon_has_its_size(self):
        for side in SIDES:
            data = (self.root / f"share/icons/hicolor/{side}x{side}/apps/slantwise.png").read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", data[16:24]), (side, side))

    @unittest.skipUnless(shutil.which("convert"), "needs imagemagick")
    def test_every_icon_shows_the_picture(self):
        """Clear at the corner, the product's colour beside it, the light line in the middle."""
        for side in SIDES:
            icon = self.root / f"share/icons/hicolor/{side}x{side}/apps/slantwise.png"
            points = (0, 0), (side // 4, side // 4), (side // 2, side // 2)
            raw = b"".join(subprocess.run(["convert", icon, "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgba:-"],
                                          check=True, stdout=subprocess.PIPE).stdout for x, y in points)
            corner, field, line = raw[:4], raw[4:8], raw[8:]
            self.assertEqual(corner[3], 0, icon)
            for seen, drawn in zip(field, (0xA5, 0x66, 0x6C, 0xFF)):
                self.assertAlmostEqual(seen, drawn, delta=2, msg=icon)
            self.assertGreater(min(line), 0xB0, icon)

    def test_the_desktop_file_names_what_is_installed(self):
        text = (self.root / "share/applications/com.ferrowind.slantwise.desktop").read_text()
        facts = dict(line.split("=", 1) for line in text.splitlines() if "=" in line)
        self.assertTrue((self.root / "bin" / facts["Exec"].split()[0]).exists())
        self.assertTrue((self.root / f"share/icons/hicolor/256x256/apps/{facts['Icon']}.png").exists())

    @unittest.skipUnless(shutil.which("desktop-file-validate"), "needs desktop-file-utils")
    def test_the_desktop_file_is_valid(self):
        self.assert_silent("desktop-file-validate", self.root / "share/applications/com.ferrowind.slantwise.desktop")

    @unittest.skipUnless(shutil.which("appstreamcli"), "needs appstream")
    def test_the_metainfo_is_valid(self):
        file = self.root / "share/metainfo/com.ferrowind.slantwise.metainfo.xml"
        said = subprocess.run(["appstreamcli", "validate", "--no-net", "--no-color", file], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(said.returncode, 0, said.stdout)

    @unittest.skipUnless(shutil.which("groff"), "needs groff")
    def test_the_man_pages_are_without_fault_and_have_every_option(self):
        for program in ("slantwise", "slantwise-inspect", "slantwise-render"):
            page = self.root / f"share/man/man1/{program}.1"
            said = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-rHY=0", "-P-cbou", page], text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self.assertIn(version(), said.stdout)
            self.assertNotIn("warning:", said.stdout)
            help_text = subprocess.run([self.root / "bin" / program, "--help"], stdout=subprocess.PIPE, text=True).stdout
            options = set(re.findall(r"--[a-z-]+", help_text))
            self.assertGreaterEqual(len(options), 3)
            self.assertLessEqual(options, set(re.findall(r"--[a-z-]+", said.stdout.replace("\u2010", "-"))))

    def assert_silent(self, *command):
        said = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual((said.returncode, said.stdout), (0, ""))


class CompletionTest(unittest.TestCase):
    """The completions as bash calls them."""

    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(place.cleanup)
        install(Path(place.name), "--component", "program")
        cls.root = Path(place.name) / PREFIX

    def completed(self, program, *words, folder=None):
        """What is offered for the last of the words."""
        function = "_" + program.replace("-", "_")
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
                  f'{function}; printf "%s\\n" "${{COMPREPLY[@]}}"')
        file = self.root / "share/bash-completion/completions" / program
        said = subprocess.run(["bash", "-uc", script, "bash", file, program, *words], check=True, text=True,
                              cwd=folder or self.root, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return said.stdout.split("\n")[:-1]

    def test_options_by_their_beginning(self):
        self.assertEqual(self.completed("slantwise", "--s"), ["--settings", "--spectrum", "--scale", "--screenshot"])

    def test_every_option_of_the_help(self):
        help_text = subprocess.run([self.root / "bin/slantwise", "--help"], stdout=subprocess.PIPE, text=True).stdout
        self.assertEqual(set(self.completed("slantwise", "--")),
                         set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", help_text, re.MULTILINE)))

    def test_the_words_an_option_takes(self):
        self.assertEqual(self.completed("slantwise", "--theme", ""), ["light", "dark"])
        self.assertEqual(self.completed("slantwise", "--theme", "=", "d"), ["dark"])
        self.assertEqual(self.completed("slantwise", "--theme", "="), ["light", "dark"])
        self.assertEqual(self.completed("slantwise", "--layout", "w"), ["wide"])

    def test_the_program_takes_every_word_that_is_offered(self):
        for option in ("--theme", "--layout"):
            for word in self.completed("slantwise", option, ""):
                subprocess.run([self.root / "bin/slantwise", option, word, "--help"], check=True,
                               stdout=subprocess.DEVNULL)

    def test_presets_as_one_argument_each(self):
        self.assertEqual(self.completed("slantwise", "--preset", "Su"), ["Sub\\ Love"])
        self.assertIn("Air", self.completed("slantwise", "--preset", ""))

    def test_nothing_for_a_number(self):
        self.assertEqual(self.completed("slantwise", "--scale", ""), [""])

    def test_files_where_a_file_is_wanted(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "two words.wav").touch()
            self.assertEqual(self.completed("slantwise", "--play", "tw", folder=folder), ["two words.wav"])
            self.assertEqual(self.completed("slantwise", "", folder=folder), ["two words.wav"])

    def test_options_and_files_of_render(self):
        self.assertEqual(self.completed("slantwise-render", "--pr"), ["--preset"])
        self.assertEqual(self.completed("slantwise-render", "--preset", "Su"), ["Sub\\ Love"])
        self.assertEqual(self.completed("slantwise-render", "--bits", "fl"), ["float"])
        self.assertEqual(self.completed("slantwise-render", "--format", "=", "fl"), ["flac"])
        self.assertEqual(self.completed("slantwise-render", "--jobs", ""), [""])
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "two words.wav").touch()
            for before in ([], ["--normalise"], ["--output"], ["--force", "other.wav"]):
                self.assertEqual(self.completed("slantwise-render", *before, "tw", folder=folder), ["two words.wav"])

    def test_commands_of_inspect_in_the_first_place_only(self):
        self.assertEqual(self.completed("slantwise-inspect", "de"), ["description"])
        self.assertEqual(self.completed("slantwise-inspect", "description", "d"), [""])


if __name__ == "__main__":
    unittest.main()
