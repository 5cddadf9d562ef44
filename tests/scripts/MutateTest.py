"""scripts/mutate on a folder made up for it: what it catches, what it lets live, and what it does not count."""
import subprocess
import tempfile
import unittest
from pathlib import Path

MUTATE = Path(__file__).resolve().parents[2] / "scripts" / "mutate"
FILES = {
    "CMakeLists.txt": """
        cmake_minimum_required(VERSION 3.25)
        project(Small LANGUAGES CXX)
        find_package(GTest REQUIRED)
        add_subdirectory(small)
        add_subdirectory(tests/small)
    """,
    "small/CMakeLists.txt": "add_library(small Fare.cpp)",
    "small/Fare.cpp": "bool isChild(int years) {\n    // a < b\n    return years < 12;\n}\n"
                      "int fare(bool child) { return child ? 3 : 5; }\n",
    "tests/small/CMakeLists.txt": """
        add_executable(test_small FareTest.cpp)
        target_link_libraries(test_small small GTest::gtest_main)
    """,
    # The boundary is not looked at, and a child's fare is.
    "tests/small/FareTest.cpp": """
        #include <gtest/gtest.h>
        bool isChild(int years);
        int fare(bool child);
        TEST(Fare, ChildrenAreYoung) { EXPECT_TRUE(isChild(5)); EXPECT_FALSE(isChild(30)); }
        TEST(Fare, ChildrenPayLess) { EXPECT_EQ(fare(true), 3); EXPECT_EQ(fare(false), 5); }
    """,
}

# The count of steps can be made endless, and the count of stops makes its test wait the first time only.
STEPS = {
    "small/CMakeLists.txt": "add_library(small Steps.cpp)",
    "small/Steps.cpp": "double steps(double to) {\n    double at = 0;\n    while (at < to)\n        at = at + 1;\n"
                       "    return at;\n}\nint stops() { return 3; }\n",
    "tests/small/CMakeLists.txt": FILES["tests/small/CMakeLists.txt"].replace("Fare", "Steps"),
    "tests/small/StepsTest.cpp": """
        #include <gtest/gtest.h>
        #include <cstdio>
        #include <unistd.h>
        double steps(double to);
        int stops();
        TEST(Steps, AreCounted) { EXPECT_EQ(steps(7), 7); }
        TEST(Steps, StopsAreCounted) {
            if (stops() == 3) return;
            if (FILE* waited = std::fopen("waited", "wx")) { std::fclose(waited); sleep(60); }
            FAIL();
        }
    """,
}


class MutateTest(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.addCleanup(self.place.cleanup)
        self.top = Path(self.place.name)
        self.write(FILES)
        subprocess.run(["git", "init", "-q"], cwd=self.top, check=True)

    def write(self, files):
        for name, text in files.items():
            (self.top / name).parent.mkdir(parents=True, exist_ok=True)
            (self.top / name).write_text(text)

    def mutate(self, *arguments):
        return subprocess.run([MUTATE, "small", *arguments], cwd=self.top, check=True, stdout=subprocess.PIPE,
                              text=True).stdout

    def test_lists_the_changes_that_no_test_noticed(self):
        lines = self.mutate("--sample", "0").splitlines()
        boundary = "small/Fare.cpp:3: return years < 12;  ->  return years <= 12;"
        turned = "small/Fare.cpp:3: return years < 12;  ->  return years >= 12;"
        fare = "int fare(bool child) { return child ? 3 : 5; }"
        cheaper = f"small/Fare.cpp:5: {fare}  ->  {fare.replace('5', '6')}"
        self.assertIn(f"{'survived':13}{boundary}", lines)
        self.assertIn(f"{'caught':13}{turned}", lines)
        self.assertIn(f"{'caught':13}{cheaper}", lines)
        survivors = lines[[line.startswith("small:") for line in lines].index(True) + 1:]
        self.assertEqual(sorted(survivors), sorted(line[13:] for line in lines if line.startswith("survived")))
        self.assertEqual((self.top / "small/Fare.cpp").read_text(), FILES["small/Fare.cpp"], "the tree is left alone")

        again = self.mutate("--again").splitlines()
        self.assertEqual(again[0], f"{'survived':13}{boundary}")

    def test_tells_an_endless_loop_from_a_test_that_was_slow_once(self):
        (self.top / "small/Fare.cpp").unlink()
        self.write(STEPS)
        lines = self.mutate("--sample", "0", "--patience", "2").splitlines()
        stops = "int stops() { return 3; }"
        self.assertIn(f"{'timed out':13}small/Steps.cpp:4: at = at + 1;  ->  {{}}", lines)
        self.assertIn(f"{'timed out':13}small/Steps.cpp:4: at = at + 1;  ->  at = at - 1;", lines)
        self.assertIn(f"{'caught':13}small/Steps.cpp:7: {stops}  ->  {stops.replace('3', '4')}", lines)
        self.assertTrue(any(" 3 more timed out twice;" in line for line in lines), lines[-1])

    def test_the_order_is_fixed_and_comments_are_no_code(self):
        first = self.mutate("--list", "--sample", "0")
        self.assertEqual(first, self.mutate("--list", "--sample", "0"))
        self.assertNotIn("a < b", first)
        self.assertNotEqual(first, self.mutate("--list", "--sample", "0", "--seed", "2"))


if __name__ == "__main__":
    unittest.main()
