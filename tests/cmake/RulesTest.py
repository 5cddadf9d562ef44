"""What cmake/ refuses, on a small project made up for it."""
import subprocess
import tempfile
import unittest
from pathlib import Path

CMAKE = Path(__file__).resolve().parents[2] / "cmake"
FILES = {
    "CMakeLists.txt": f"""
        cmake_minimum_required(VERSION 3.25)
        project(Small LANGUAGES CXX)
        include({CMAKE}/Slantwise.cmake)
        include({CMAKE}/House.cmake)
        add_subdirectory(cellar)
        add_subdirectory(hall)
        slantwise_write_house(${{PROJECT_BINARY_DIR}}/house.txt cellar hall)
        slantwise_require_every_source(cellar hall)
    """,
    "cellar/CMakeLists.txt": "slantwise_library(cellar SOURCES Bottle.cpp)\n",
    "cellar/Bottle.h": "",
    "cellar/Bottle.cpp": "",
    "hall/CMakeLists.txt": "slantwise_library(hall LINKS cellar)\nslantwise_program(keeper SOURCES Keeper.cpp LINKS hall)\n",
    "hall/Door.h": "",
    "hall/Keeper.cpp": "int main() {}\n",
}


class RulesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(place.cleanup)
        cls.top = Path(place.name)

    def setUp(self):
        for name, text in FILES.items():
            self.write(name, text)

    def write(self, name, text):
        (self.top / name).parent.mkdir(parents=True, exist_ok=True)
        (self.top / name).write_text(text)

    def configure(self):
        """The exit status, and what was said on one line."""
        result = subprocess.run(["cmake", "-G", "Ninja", "-S", self.top, "-B", self.top / "build"], text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return result.returncode, " ".join(result.stdout.split())

    def refusal(self):
        status, said = self.configure()
        self.assertNotEqual(status, 0, said)
        return said

    def test_writes_down_the_house(self):
        status, said = self.configure()
        self.assertEqual(status, 0, said)
        self.assertEqual((self.top / "build/house.txt").read_text().splitlines(), [
            "folder cellar", "folder hall", "room cellar cellar", "source Bottle.cpp", "room hall hall", "link cellar",
            "program keeper hall", "source Keeper.cpp", "link hall"])

    def test_a_misspelt_folder(self):
        self.write("CMakeLists.txt", FILES["CMakeLists.txt"].replace("y(hall)", "y(hal)"))
        self.assertIn('which is not an existing directory', self.refusal())

    def test_a_misspelt_link_of_a_library(self):
        self.write("hall/CMakeLists.txt", FILES["hall/CMakeLists.txt"].replace("LINKS cellar", "LINKS celar"))
        self.assertIn('hall links "celar", which is no target', self.refusal())

    def test_a_misspelt_link_of_a_program(self):
        self.write("hall/CMakeLists.txt", FILES["hall/CMakeLists.txt"].replace("LINKS hall", "LINKS hal"))
        self.assertIn('keeper links "hal", which is no target', self.refusal())

    def test_a_link_to_what_stands_above(self):
        self.write("cellar/CMakeLists.txt", "slantwise_library(cellar SOURCES Bottle.cpp LINKS hall)\n")
        self.assertIn('cellar links "hall", which is no target, or one that stands above it', self.refusal())

    def test_a_misspelt_source(self):
        self.write("cellar/CMakeLists.txt", "slantwise_library(cellar SOURCES Botle.cpp)\n")
        self.assertRegex(self.refusal(), "No target compiles: [^ ]*/cellar/Bottle.cpp ")

    def test_a_source_that_no_target_has(self):
        self.write("hall/stairs/Step.cpp", "")
        self.addCleanup((self.top / "hall/stairs/Step.cpp").unlink)
        said = self.refusal()
        self.assertIn("No target compiles:", said)
        self.assertIn("hall/stairs/Step.cpp", said)
        self.assertNotIn("Keeper.cpp", said)


if __name__ == "__main__":
    unittest.main()
