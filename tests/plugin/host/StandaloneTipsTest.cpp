// Tool tips in the stand-alone program, of a real pointer that rests.
#include "plugin/host/EditorProgram.h"

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

class StandaloneTips : public EditorProgram {
protected:
    void SetUp() override { ASSERT_TRUE(screen_.isOpen()) << "needs a display"; }
    void TearDown() override {
        program_.reset();
        std::filesystem::remove(log_);
    }

    static constexpr int frame = 20;               // pixels, of a title bar
    static constexpr std::size_t tipPixels = 8000; // more than a curve and a meter
    const std::vector<std::string> command_ = {SLANTWISE_STANDALONE, "--scale", "1"};
    const std::string log_ =
        (std::filesystem::temp_directory_path() / ("slantwise-tips-" + std::to_string(getpid()) + ".log")).string();
};

// A window may open wherever the pointer has been left.
TEST_F(StandaloneTips, AreNotForAPointerThatRestedBeforeTheWindowOpened) {
    ASSERT_NO_FATAL_FAILURE(start(command_, {}, log_));
    const auto place = *window_;
    ASSERT_EQ(close(), 0);
    const Point handle = map_.handleOf(pidTiltGain, 0);
    const int x = place.x + static_cast<int>(handle.x), y = place.y + static_cast<int>(handle.y) + 100;
    screen_.movePointer(x, y);
    ASSERT_NO_FATAL_FAILURE(startUnderPointer(command_, {}, log_));
    // With the window manager's frame counted or not, as that is known in time or not: the slider is higher than that.
    ASSERT_TRUE(std::abs(window_->x - place.x) <= frame && std::abs(window_->y - place.y) <= frame);
    const Picture opened = wholePicture();
    rest(2); // a tip would take less than half of that
    EXPECT_LT(wholePicture().differingPixels(opened), tipPixels);
    screen_.movePointer(x + 4, y);
    EXPECT_TRUE(comesTrue([&] { return wholePicture().differingPixels(opened) > tipPixels; })) << "moved, it has one";
}

// The toolkit shows no new one there, and would leave the one that there is.
TEST_F(StandaloneTips, NoneOfAnotherControlStaysWhereThePointerComesBackToItsLastPress) {
    ASSERT_NO_FATAL_FAILURE(start(command_, {}, log_));
    const Point pressed = map_.handleOf(pidFilterRangeHigh, 20000), other = map_.handleOf(pidOutputGain, 0);
    pointAt(pressed);
    click();
    rest(1);
    const Picture plain = wholePicture();
    const auto hasTip = [&] { return wholePicture().differingPixels(plain) > tipPixels; };
    for (int i = 0; i < 3; ++i) {
        pointAt(other);
        ASSERT_TRUE(comesTrue(hasTip)) << i;
        pointAt(pressed);
        ASSERT_TRUE(comesTrue([&] { return !hasTip(); })) << i;
    }
    pointAt({pressed.x + 3, pressed.y});
    EXPECT_TRUE(comesTrue(hasTip)) << "beside it there is the one of what is there";
}

} // namespace
} // namespace QVM_NAMESPACE
