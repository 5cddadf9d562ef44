"""What debian/ must repeat of the rest of the project, held against it."""
import re
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
# Of the packages' build only: what drives it, and what a library's headers bring with them elsewhere.
ONLY_TO_PACKAGE = {"debhelper-compat"}


def read(name):
    return (TOP / name).read_text()


def paragraphs(name):
    """The paragraphs of a control file, each a dictionary of its fields."""
    found = []
    for text in re.split(r"\n\s*\n", re.sub(r"^#.*\n", "", read(name), flags=re.MULTILINE)):
        found.append(dict(re.findall(r"^([\w-]+):((?:.*\n?)(?:[ \t].*\n?)*)", text, re.MULTILINE)))
    return found


def packages(field):
    return {re.match(r"[\w.+-]+", entry.strip())[0] for entry in field.split(",") if entry.strip()}


class DebianTest(unittest.TestCase):
    def test_the_changelog_has_the_version_of_the_product(self):
        packaged = re.match(r"slantwise \(([^)]+)\) ", read("debian/changelog"))[1]
        self.assertEqual(packaged, re.search(r"project\(Slantwise VERSION (\S+)", read("CMakeLists.txt"))[1])

    def test_the_version_stands_nowhere_else_in_what_packages(self):
        version = re.search(r"project\(Slantwise VERSION (\S+)", read("CMakeLists.txt"))[1]
        files = [path for folder in ("packaging", "debian") for path in (TOP / folder).rglob("*")
                 if path.is_file() and path.name != "changelog"]
        files = [path for path in files if not re.match(r"debian/(slantwise|\.debhelper)", str(path.relative_to(TOP)))]
        self.assertGreater(len(files), 5)
        for path in [*files, TOP / "scripts/release", TOP / "scripts/package", TOP / "scripts/install"]:
            self.assertNotIn(version, path.read_text(errors="replace"), path)

    def test_the_set_up_has_what_the_packages_build_with(self):
        needed = packages(paragraphs("debian/control")[0]["Build-Depends"])
        installed = set(re.search(r"packages=\((.*?)\n\)", re.sub(r"#.*", "", read("scripts/setup")), re.DOTALL)[1].split())
        self.assertGreater(len(needed), 15)
        self.assertLessEqual(needed - ONLY_TO_PACKAGE, installed)

    def test_one_package_for_each_component(self):
        named = {fields["Package"].strip() for fields in paragraphs("debian/control") if "Package" in fields}
        filled = re.findall(r"DESTDIR=\$\(CURDIR\)/debian/(\S+) cmake --install \$\(build\) --component (\S+)",
                            read("debian/rules"))
        self.assertEqual(dict(filled), {"slantwise": "program", "slantwise-lv2": "lv2", "slantwise-vst3": "vst3"})
        self.assertEqual(named, {package for package, _ in filled})
        components = set(re.findall(r"COMPONENT (\w+)", read("packaging/CMakeLists.txt")))
        self.assertEqual(components, {component for _, component in filled})

    def test_nobody_is_named(self):
        for name in ("debian/control", "debian/changelog"):
            addresses = re.findall(r"<([^>]*@[^>]*)>", read(name))
            self.assertTrue(addresses)
            for address in addresses:
                self.assertTrue(address.endswith(".invalid"), address)

    def test_the_copyright_names_files_that_are_there(self):
        for fields in paragraphs("debian/copyright"):
            for pattern in fields.get("Files", "").split():
                self.assertTrue(list(TOP.glob(pattern)), pattern)


if __name__ == "__main__":
    unittest.main()
