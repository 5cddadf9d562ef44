"""scripts/house on small houses made up for it: what it complains of, and what it draws."""
import subprocess
import tempfile
import unittest
from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2] / "scripts" / "house"
FACTS = """folder cellar
folder hall
room cellar_wine cellar/wine
source Bottle.cpp
room hall hall
source Door.cpp
link cellar_wine
program keeper hall
source Keeper.cpp
link hall
"""
FILES = {
    "cellar/wine/Bottle.h": "#pragma once\n",
    "cellar/wine/Bottle.cpp": '#include "cellar/wine/Bottle.h"\n#include <string>\n',
    "hall/Door.h": '#include "cellar/wine/Bottle.h"\n',
    "hall/Door.cpp": '#include "hall/Door.h"\n',
    "hall/Keeper.cpp": '#include "hall/Door.h"\n#include "Generated.h"\n',
}


class HouseTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.top = Path(place.name)
        (self.top / "docs/images").mkdir(parents=True)
        for name, text in FILES.items():
            self.write(name, text)

    def write(self, name, text):
        (self.top / name).parent.mkdir(parents=True, exist_ok=True)
        (self.top / name).write_text(text)

    def house(self, *arguments, facts=FACTS):
        self.write("house.txt", facts)
        return subprocess.run([HOUSE, "--top", self.top, "--from", self.top / "house.txt", *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def complaints(self, facts=FACTS):
        """What --check says of the house as it has just been drawn."""
        self.house(facts=facts)
        result = self.house("--check", facts=facts)
        self.assertEqual(result.returncode, 1, result.stdout)
        return result.stdout.splitlines()

    def test_a_house_as_drawn_is_well(self):
        self.assertEqual(self.house().returncode, 0)
        result = self.house("--check")
        self.assertEqual((result.returncode, result.stdout), (0, "house: 2 rooms, no circle, no arrow up\n"))

    def test_draws_rooms_and_arrows_without_the_programs(self):
        self.house()
        picture = (self.top / "docs/images/house.svg").read_text()
        self.assertIn("cellar/wine", picture)
        self.assertIn("hall -> cellar_wine\n", picture)
        self.assertNotIn("keeper", picture)

    def test_leaves_out_an_arrow_that_others_make_up_for(self):
        self.house(facts=FACTS.replace("folder hall", "folder hall\nfolder roof") +
                   "room roof roof\nlink hall\nlink cellar_wine\nlink tiles\n")
        picture = (self.top / "docs/images/house.svg").read_text()
        self.assertIn("roof -> hall\n", picture)
        self.assertIn("roof -> tiles\n", picture)
        self.assertNotIn("roof -> cellar_wine", picture)

    def test_a_picture_of_another_house_is_refused(self):
        self.house()
        result = self.house("--check", facts=FACTS.replace("room hall hall\n", "room hall hall\nlink stones\n"))
        self.assertEqual(result.returncode, 1)
        self.assertIn("docs/images/house.svg shows another house", result.stdout)

    def test_a_missing_picture_is_refused(self):
        self.assertIn("shows another house", self.house("--check").stdout)

    def test_circles_of_rooms_and_of_folders_are_found(self):
        facts = FACTS.replace("source Bottle.cpp\n", "source Bottle.cpp\nlink hall\n")
        found = self.complaints(facts)
        self.assertIn("house: a circle of rooms: cellar_wine -> hall -> cellar_wine", found)
        self.assertIn("house: a circle of folders: cellar -> hall -> cellar", found)

    def test_a_circle_of_folders_needs_no_circle_of_rooms(self):
        facts = "folder a\nfolder b\nroom a_low a/low\nroom b_one b/one\nlink a_low\nroom a_high a/high\nlink b_one\n"
        self.assertEqual(self.complaints(facts), ["house: a circle of folders: a -> b -> a",
                                                  "house: an arrow up: a_high -> b_one"])

    def test_an_arrow_up_is_found_also_within_a_folder(self):
        facts = "folder a\nfolder b\nroom a_low a/low\nlink a_high\nroom a_high a/high\nlink b\nroom b b\n"
        found = self.complaints(facts)
        self.assertEqual(found, ["house: an arrow up: a_low -> a_high", "house: an arrow up: a_high -> b"])

    def test_an_include_of_what_is_not_linked_is_found_in_headers_too(self):
        self.write("cellar/wine/Bottle.h", '#include "hall/Door.h"\n')
        found = self.complaints()
        self.assertEqual(found, ["house: cellar/wine/Bottle.h includes hall/Door.h, which its room does not link"])

    def test_an_include_of_what_a_linked_room_links_is_well(self):
        self.write("hall/Keeper.cpp", '#include "cellar/wine/Bottle.h"\n')
        self.house()
        self.assertEqual(self.house("--check").returncode, 0)

    def test_an_include_of_nothing_is_found(self):
        self.write("hall/Keeper.cpp", '#include "hall/Window.h"\n')
        self.assertEqual(self.complaints(), ["house: hall/Keeper.cpp includes hall/Window.h, which is not there"])

    def test_a_header_belongs_to_the_library_with_the_source_beside_it(self):
        facts = FACTS + "room lobby hall\nsource Lobby.cpp\nroom roof roof\nsource Tile.cpp\nlink lobby\n"
        facts = facts.replace("folder hall", "folder hall\nfolder roof")
        self.write("hall/Lobby.h", "")
        self.write("roof/Tile.cpp", '#include "hall/Lobby.h"\n#include "hall/Door.h"\n')
        self.assertEqual(self.complaints(facts), ["house: roof/Tile.cpp includes hall/Door.h, which its room does not link"])


if __name__ == "__main__":
    unittest.main()
