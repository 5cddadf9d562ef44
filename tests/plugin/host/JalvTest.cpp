// The LV2 bundle in a host that is not ours: jalv with a dummy audio server. Needs a display.
#include "plugin/host/ChildProcess.h"
#include "plugin/host/EditorMap.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <thread>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::ChildProcess;
using slantwise_tests::Picture;
using slantwise_tests::XScreen;

constexpr std::uint32_t tiltGain = 1, gainColour = 0xA54D55;
constexpr int width = 480, height = 320;

void rest(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

class Jalv : public testing::Test {
protected:
    void SetUp() override {
        for (const char* program : {"jackd", "jalv.gtk3"}) {
            if (!slantwise_tests::isInstalled(program)) GTEST_SKIP() << program << " is not installed";
        }
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        jack_ = std::make_unique<ChildProcess>(
            std::vector<std::string>{"jackd", "-n", server_, "-r", "-m", "-d", "dummy", "-r", "48000", "-p", "256"},
            environment_, log_);
        rest(1);
        ASSERT_TRUE(jack_->isRunning()) << logText();
    }

    void TearDown() override {
        jalv_.reset();
        jack_.reset();
        std::filesystem::remove(log_);
    }

    std::string logText() const {
        std::ifstream log(log_);
        return {std::istreambuf_iterator<char>(log), {}};
    }

    // Starts jalv and waits for the editor.
    void openEditor() {
        screen_.movePointer(5, 5);
        jalv_ = std::make_unique<ChildProcess>(std::vector<std::string>{"jalv.gtk3", SLANTWISE_LV2_URI}, environment_,
                                               log_);
        for (int i = 0; i < 100 && !window_; ++i) {
            rest(0.1);
            window_ = screen_.findWindow(width, height);
        }
        ASSERT_TRUE(window_) << logText();
        ASSERT_TRUE(waitFor([this] { return colourAt(0) > 200; })) << "the handle at 0 dB; " << logText();
    }

    // Closes it as a user does; its exit status.
    std::optional<int> closeEditor() {
        screen_.closeWindow(window_->topLevel);
        const auto status = jalv_->exitStatus(5);
        jalv_.reset();
        window_.reset();
        return status;
    }

    template <class Condition>
    static bool waitFor(Condition condition) {
        for (int i = 0; i < 60; ++i) {
            if (condition()) return true;
            rest(0.05);
        }
        return false;
    }

    // How much of the handle's colour is where the handle belongs at a gain.
    std::size_t colourAt(float db) {
        const Point at = map_.handleOf(tiltGain, db);
        return screen_
            .capture(window_->x + static_cast<int>(at.x) - 10, window_->y + static_cast<int>(at.y) - 12, 20, 24)
            .countOf(gainColour, 4);
    }
    void pointAtGain(float db) {
        const Point at = map_.handleOf(tiltGain, db);
        screen_.movePointer(window_->x + static_cast<int>(at.x), window_->y + static_cast<int>(at.y));
        rest(0.05);
    }
    void dragGain(float fromDb, float toDb) {
        pointAtGain(fromDb);
        screen_.button(1, true);
        rest(0.1);
        for (int i = 1; i <= 8; ++i)
            pointAtGain(fromDb + (toDb - fromDb) * static_cast<float>(i) / 8);
        screen_.button(1, false);
        rest(0.2);
    }
    Picture picture() {
        const Rect frame = map_.frameOf(tiltGain);
        return screen_.capture(window_->x + static_cast<int>(frame.x), window_->y + static_cast<int>(frame.y),
                               static_cast<int>(frame.width), static_cast<int>(frame.height));
    }

    const std::string server_ = "slantwise-test-" + std::to_string(getpid());
    const std::string log_ = (std::filesystem::temp_directory_path() / (server_ + ".log")).string();
    const std::map<std::string, std::string> environment_ = {
        {"JACK_DEFAULT_SERVER", server_},
        {"JACK_NO_AUDIO_RESERVATION", "1"},
        {"GTK_THEME", "Adwaita"},
        {"LV2_PATH", std::string(SLANTWISE_LV2_FOLDER) + ":/usr/lib/lv2:/usr/lib/x86_64-linux-gnu/lv2"}};
    XScreen screen_;
    EditorMap map_;
    std::unique_ptr<ChildProcess> jack_, jalv_;
    std::optional<XScreen::Found> window_;
};

TEST_F(Jalv, ShowsTheEditorAndPointerAndKeysWorkInIt) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    dragGain(0, 9);
    screen_.movePointer(5, 5);
    EXPECT_TRUE(waitFor([this] { return colourAt(9) > 200; }));
    EXPECT_LT(colourAt(-3), 20U) << "the negative control: no handle where none belongs";

    const Picture before = picture();
    rest(0.3);
    screen_.typeKey("Right");
    EXPECT_TRUE(waitFor([&] { return picture().differingPixels(before) > 20; }));
    EXPECT_EQ(closeEditor(), 0) << logText();
}

// While the editor has the keyboard; Control and Q end jalv.
TEST_F(Jalv, AShortcutReachesTheHostAfterAClickOnASlider) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    const auto focusBefore = screen_.focus();
    dragGain(0, 3);
    EXPECT_TRUE(waitFor([&] { return screen_.focus() != focusBefore; })) << "the editor has the keyboard";
    screen_.typeKey("q");
    rest(0.3);
    EXPECT_TRUE(jalv_->isRunning()) << "the negative control: Q alone ends nothing";
    screen_.key("Control_L", true);
    screen_.typeKey("q");
    screen_.key("Control_L", false);
    EXPECT_EQ(jalv_->exitStatus(5), 0) << logText();
}

TEST_F(Jalv, ClosesAndOpensAgain) {
    for (int i = 0; i < 2; ++i) {
        ASSERT_NO_FATAL_FAILURE(openEditor());
        EXPECT_EQ(closeEditor(), 0) << logText();
    }
}

} // namespace
} // namespace QVM_NAMESPACE
