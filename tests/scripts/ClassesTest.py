"""scripts/classes on small classes made up for it: what it counts, and what it complains of."""
import subprocess
import tempfile
import unittest
from pathlib import Path

CLASSES = Path(__file__).resolve().parents[2] / "scripts" / "classes"
HEADER = """// class Comment { public: void no(); };
#pragma once
#define TEXT "class Macro {"

template <class T>
class Box final : public Base<T>, private Other {
    void inner();

public:
    using Handler = std::function<void(int)>;
    enum class Side : unsigned char { left, right };
    explicit Box(int size) : size_(size) {}
    ~Box() override;
    Box(const Box&) = delete;
    Box& operator=(const Box&) = delete;
    bool operator==(const Box&) const = default;
    int size() const { return size_ > 0 ? count() : 0; } // one
    void setSize(int size);                              // two
    void setSize(int size, Handler told = [] {});
    virtual std::map<int, std::function<void()>> all() = 0; // three
    [[nodiscard]] static bool isAny(const char* text = "a;{("); // four
    void paint() override;
    Handler whenTold = nullptr;
    std::function<void(bool)> plain;
    int values[3] = {1, 2, 3};
    struct Inner {
        int one() const;
        void two();
    };

protected:
    void hidden();

private:
    friend class Keeper;
    void secret() const;
    int size_{0};
};
class Ahead;
"""
SOURCE = """#include "Box.h"
namespace {
int helper(int x) {
    return Box::make(x);
}
}
template <class T>
void Box<T>::ignored() {}
void Box::setSize(int size) {
    size_ = size;
}
"""


class ClassesTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.top = Path(place.name)
        self.write("hall/Box.h", HEADER)
        self.write("hall/Box.cpp", SOURCE)

    def write(self, name, text):
        (self.top / name).parent.mkdir(parents=True, exist_ok=True)
        (self.top / name).write_text(text)

    def classes(self, *arguments):
        result = subprocess.run([CLASSES, "--top", self.top, *arguments], stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True)
        return result.returncode, result.stdout.splitlines()

    def counted(self):
        """Functions and lines of each class, by name."""
        code, lines = self.classes("--all")
        self.assertEqual(code, 0)
        return {words[4]: (int(words[0]), int(words[2])) for words in map(str.split, lines)}

    def test_counts_the_names_that_a_class_adds_to_its_public_part(self):
        self.assertEqual(self.counted(), {"Box": (4, SOURCE.count("\n")), "Inner": (2, 0)})

    def test_counts_every_source_that_defines_a_function_of_the_class_and_no_other(self):
        self.write("hall/BoxMore.cpp", "\n\nBox::Box(int size) {}\n")
        self.write("hall/User.cpp", "void use() {\n    Box::isAny(1);\n}\n")
        self.assertEqual(self.counted()["Box"], (4, SOURCE.count("\n") + 3))

    def test_leaves_tests_and_what_was_built_out(self):
        self.write("tests/hall/BoxTest.h", "struct BoxTest { void one(); };\n")
        self.write("build/made/Made.h", "struct Made { void one(); };\n")
        self.assertEqual(set(self.counted()), {"Box", "Inner"})

    def test_a_house_within_the_bounds_is_well(self):
        self.assertEqual(self.classes()[0], 0)

    def test_complains_of_the_thirty_first_function(self):
        self.write("hall/Wide.h", "struct Wide {\n" + "".join(f"    void f{i}();\n" for i in range(30)) + "};\n")
        self.assertEqual(self.classes()[0], 0)
        self.write("hall/Wide.h", "struct Wide {\n" + "".join(f"    void f{i}();\n" for i in range(31)) + "};\n")
        self.assertEqual(self.classes(), (1, ["classes: Wide has 31 public functions, and 30 are the most"]))

    def test_complains_of_the_three_hundred_and_first_line(self):
        self.write("hall/Long.h", "class Long {\n    void f();\n};\n")
        self.write("hall/Long.cpp", "void Long::f() {\n" + "\n" * 298 + "}\n")
        self.assertEqual(self.classes()[0], 0)
        self.write("hall/Long.cpp", "void Long::f() {\n" + "\n" * 299 + "}\n")
        self.assertEqual(self.classes(), (1, ["classes: Long has 301 lines, and 300 are the most"]))

    def test_an_exception_has_bounds_of_its_own_and_goes_when_it_is_not_needed(self):
        wide = "class QVMKeyboardHandler {\npublic:\n" + "".join(f"    void f{i}();\n" for i in range(33))
        self.write("hall/Keys.h", wide + "};\n")
        self.assertEqual(self.classes()[0], 0)
        self.write("hall/Keys.h", wide + "    void more();\n};\n")
        self.assertEqual(self.classes(),
                         (1, ["classes: QVMKeyboardHandler has 34 public functions, and 33 are the most"]))
        self.write("hall/Keys.h", "class QVMKeyboardHandler {\n};\n")
        self.assertEqual(self.classes(), (1, ["classes: QVMKeyboardHandler needs no exception any more"]))


if __name__ == "__main__":
    unittest.main()
