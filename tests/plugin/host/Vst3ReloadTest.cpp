// The VST3's library unloaded after its editor was on screen, and loaded again: what a host does that lets go of its
// last instance, and a scanner. In a process of its own, which nothing else of ours lives in.
#include "plugin/host/Vst3View.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include <dlfcn.h>

namespace slantwise_tests {
namespace {

enum class ClosedWith : unsigned char { nothing, openMenu, heldSlider };

bool isInMemory() {
    void* const library = dlopen(SLANTWISE_VST3_LIBRARY, RTLD_LAZY | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

// An editor from its opening to its end. Says what is not as it should be; empty when all is.
class EditorRound {
public:
    EditorRound(XScreen& screen, Vst3Instance& instance) : screen_(screen), view_(instance) {}

    std::string play(ClosedWith end) {
        screen_.movePointer(5, 5);
        view_.attach();
        if (!view_.runUntil([this] { return picture().distinctColours() > 50; })) return "nothing is drawn";
        view_.run(0.7); // the live pictures come late
        const bool hasHappened =
            end == ClosedWith::nothing || hold(end == ClosedWith::openMenu ? rightButton : leftButton);
        view_.remove();
        screen_.button(leftButton, false);
        if (!hasHappened) return "the pointer does nothing";
        return view_.isCalledByHost() ? "the host's loop still has its handlers" : "";
    }

private:
    static constexpr int leftButton = 1, rightButton = 3;
    static constexpr int x = 260, y = 79; // on the track of the tilt gain

    Picture picture() { return screen_.capture(view_.corner().first, view_.corner().second, 480, 320); }
    void point(int editorX, int editorY) {
        screen_.movePointer(view_.corner().first + editorX, view_.corner().second + editorY);
        view_.run(0.15);
    }
    // True when something is drawn for it: a menu, or the handle of the slider elsewhere.
    bool hold(int button) {
        point(x, y);
        const Picture before = picture();
        screen_.button(button, true);
        view_.run(0.1);
        if (button == rightButton) screen_.button(button, false);
        point(x - 20, y);
        return view_.runUntil([&] { return picture().differingPixels(before) > 300; });
    }

    XScreen& screen_;
    Vst3View view_;
};

// The status that the process ends with.
int reload() {
    XScreen screen;
    if (!screen.isOpen()) return 1;
    for (const ClosedWith end :
         {ClosedWith::nothing, ClosedWith::openMenu, ClosedWith::heldSlider, ClosedWith::nothing}) {
        {
            Vst3Module module;
            Vst3Instance instance(module);
            const std::string fault = EditorRound(screen, instance).play(end);
            if (!fault.empty()) return std::cerr << static_cast<int>(end) << ": " << fault << '\n', 2;
        }
        if (isInMemory()) return std::cerr << static_cast<int>(end) << ": it stays loaded\n", 3;
    }
    return 0;
}

TEST(Vst3Reload, TheLibraryIsUnloadedAfterItsEditorWasClosedWithAMenuOrInMidDragAndWorksWhenLoadedAgain) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(reload()), testing::ExitedWithCode(0), ""); // NOLINT(concurrency-mt-unsafe): its own process
}

} // namespace
} // namespace slantwise_tests
