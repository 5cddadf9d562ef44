// The gallery under a real pointer and keyboard. Needs a display with a window manager; run it under
// scripts/with-display.
#include "plugin/host/ChildProcess.h"
#include "plugin/host/XScreen.h"
#include "plugin/standalone/AudioFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <thread>

namespace {

using slantwise_tests::ChildProcess;
using slantwise_tests::XScreen;

constexpr int kWidth = 1120, kHeight = 700;
constexpr int kSteps = 12; // of a drag

class Gallery : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(screen_.isOpen()) << "needs a display"; }

    void open(const std::string& page) {
        log_ = directory_.file("events");
        screen_.movePointer(2, 2);
        gallery_ = std::make_unique<ChildProcess>(
            std::vector<std::string>{SLANTWISE_GALLERY, "--events", "--scale", "1", "--page", page},
            std::map<std::string, std::string>{}, log_);
        ASSERT_TRUE(comesTrue([this, &page] { return log().find("at " + page + "/") != std::string::npos; }));
        // The window manager puts it where it wants it once it is there already.
        ASSERT_TRUE(comesTrue([this] {
            const auto before = screen_.findWindow(kWidth, kHeight);
            pause(0.5);
            const auto window = screen_.findWindow(kWidth, kHeight);
            if (!before || !window || before->x != window->x || before->y != window->y) return false;
            origin_ = {window->x, window->y};
            return true;
        }));
    }
    static void pause(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }
    template <class F>
    static bool comesTrue(F&& condition) {
        for (int i = 0; i < 100; ++i) {
            if (condition()) return true;
            pause(0.1);
        }
        return false;
    }

    std::string log() const {
        std::ifstream in(log_);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    bool says(const std::string& line) {
        return comesTrue([&] { return ("\n" + log()).find("\n" + line + "\n") != std::string::npos; });
    }
    std::size_t countOf(const std::string& line) const {
        std::istringstream in(log());
        std::size_t count = 0;
        for (std::string each; std::getline(in, each);)
            count += each == line;
        return count;
    }

    struct Place {
        double x = 0, y = 0, width = 0, height = 0;
    };
    // Where the gallery says that an exhibit stands, points; all zero for none of that name.
    Place placeOf(const std::string& identifier) const {
        std::istringstream in(log());
        for (std::string line; std::getline(in, line);) {
            std::istringstream words(line);
            std::string at, name;
            Place place;
            if (words >> at >> name >> place.x >> place.y >> place.width >> place.height && at == "at" &&
                name == identifier)
                return place;
        }
        ADD_FAILURE() << "no " << identifier;
        return {};
    }

    // To a point of an exhibit, as shares of its width and height.
    void pointAt(const std::string& identifier, double across = 0.5, double down = 0.5) {
        const Place place = placeOf(identifier);
        to_ = {origin_.first + static_cast<int>(place.x + place.width * across),
               origin_.second + static_cast<int>(place.y + place.height * down)};
        screen_.movePointer(to_.first, to_.second);
        pause(0.1);
    }
    void dragBy(int dx, int dy) {
        screen_.button(1, true);
        for (int i = 1; i <= kSteps; ++i) {
            screen_.movePointer(to_.first + dx * i / kSteps, to_.second + dy * i / kSteps);
            pause(0.02);
        }
        screen_.button(1, false);
        pause(0.1);
    }
    void click(double holdSeconds = 0.03) {
        screen_.button(1, true);
        pause(holdSeconds);
        screen_.button(1, false);
        pause(0.15);
    }
    void type(const std::string& key) {
        screen_.typeKey(key);
        pause(0.08);
    }

    XScreen screen_;
    audiofiles::Directory directory_;
    std::string log_;
    std::unique_ptr<ChildProcess> gallery_;
    std::pair<int, int> origin_, to_;
};

TEST_F(Gallery, AQuickClickFlipsASwitchOnceAndAHeldOneChoosesByPosition) {
    open("Choices");
    const std::string phase = "Choices/Phase/normal"; // shows the right segment
    pointAt(phase, 0.8);
    click();
    EXPECT_TRUE(says(phase + " action 0")) << "flipped, though the pointer is on the other segment";
    EXPECT_TRUE(says(phase + " ended"));
    EXPECT_EQ(countOf(phase + " began"), 1u);
    EXPECT_EQ(countOf(phase + " ended"), 1u);
    click(0.4);
    EXPECT_TRUE(says(phase + " action 1"));
    EXPECT_EQ(countOf(phase + " action 0"), 1u) << "held, it stays where the pointer is";
}

TEST_F(Gallery, SweepingOverChoicesAndTheGridFollowsThePointer) {
    open("Choices");
    pointAt("Choices/Loudness/normal", 0.1);
    dragBy(170, 0);
    for (const char* action : {" action 0", " action 1", " action 2", " action 3"})
        EXPECT_TRUE(says(std::string("Choices/Loudness/normal") + action)) << action;
    pointAt("Choices/Steps/normal", 0.17, 0.12);
    click();
    EXPECT_TRUE(says("Choices/Steps/normal action 0"));
    type("Down");
    EXPECT_TRUE(says("Choices/Steps/normal action 4")) << "a row further";
    type("Right");
    EXPECT_TRUE(says("Choices/Steps/normal action 5"));
    type("Up");
    EXPECT_TRUE(says("Choices/Steps/normal action 1"));
}

TEST_F(Gallery, NotesNumbersAndTyping) {
    open("Numbers");
    pointAt("Numbers/Note/normal", 0.9);
    click();
    EXPECT_TRUE(says("Numbers/Note/normal action 4"));
    pointAt("Numbers/Resonance/normal");
    dragBy(0, -180);
    EXPECT_TRUE(says("Numbers/Resonance/normal action 18")) << "180 points are the whole range";
    EXPECT_TRUE(says("Numbers/Resonance/normal ended"));
    EXPECT_EQ(countOf("Numbers/Resonance/normal began"), 1u);
    EXPECT_EQ(countOf("Numbers/Resonance/normal ended"), 1u);
    pointAt("Numbers/Center/normal");
    click();
    for (const char* key : {"2", "period", "5", "k", "Return"})
        type(key);
    EXPECT_TRUE(says("Numbers/Center/normal action 2500"));
}

TEST_F(Gallery, CycleControlsStepOnThePressAndItemMenusOpen) {
    open("Cycles");
    pointAt("Cycles/Mode/normal");
    screen_.button(1, true);
    EXPECT_TRUE(says("Cycles/Mode/normal action 2")) << "before the release";
    screen_.button(1, false);
    EXPECT_TRUE(says("Cycles/Mode/normal ended"));
    pointAt("Cycles/Filter/normal", 0.96);
    click();
    EXPECT_TRUE(says("Cycles/Filter/normal action 1"));
    pointAt("Cycles/Filter/normal", 0.04);
    click();
    EXPECT_TRUE(says("Cycles/Filter/normal action 0"));
    pointAt("Cycles/Filter/normal", 0.5);
    click();
    ASSERT_TRUE(comesTrue([this] { return countOf("Cycles/Filter/normal ended") == 3; }));
    pause(1);                                          // the menu opens
    for (const char* key : {"Down", "Down", "Return"}) // over the first group to the third value
        type(key);
    EXPECT_TRUE(says("Cycles/Filter/normal action 2"));
}

TEST_F(Gallery, SlidersAndRangesDrag) {
    open("Ranges");
    pointAt("Ranges/Level/normal", 0.5, 0.29);
    dragBy(0, -300);
    EXPECT_TRUE(says("Ranges/Level/normal action 12")) << "up to the top";
    pointAt("Ranges/RangeLow/normal", 0.45, 0.5);
    const std::size_t before = log().size();
    dragBy(12, 0);
    EXPECT_TRUE(comesTrue([&] { return log().find("Ranges/RangeLow/normal action ", before) != std::string::npos; }));
}

TEST_F(Gallery, TabsAndThemeAreControlsToo) {
    open("Sliders");
    screen_.movePointer(origin_.first + 24 + 48 + 95 * 6, origin_.second + 23);
    pause(0.1);
    click();
    EXPECT_TRUE(comesTrue([this] { return log().find("at Buttons/Gear/normal ") != std::string::npos; }));
    const auto light = screen_.capture(origin_.first, origin_.second, kWidth, kHeight);
    screen_.movePointer(origin_.first + kWidth - 60, origin_.second + 23);
    pause(0.1);
    click();
    EXPECT_TRUE(comesTrue([&] {
        const auto now = screen_.capture(origin_.first, origin_.second, kWidth, kHeight);
        return now.differingPixels(light) > now.pixels.size() / 2;
    }));
    pointAt("Buttons/Gear/normal");
    click();
    EXPECT_TRUE(says("Buttons/Gear/normal pressed"));
}

} // namespace
