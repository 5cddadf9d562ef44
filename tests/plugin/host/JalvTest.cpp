// The editor in jalv: seen, dragged, closed and opened again.
#include "plugin/host/Jalv.h"

namespace QVM_NAMESPACE {
namespace {

TEST_F(Jalv, ShowsTheEditorAndPointerAndKeysWorkInIt) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    pointAt(map_.handleOf(pidTiltGain, 0));
    screen_.button(1, true);
    rest(0.1);
    for (int i = 1; i <= 8; ++i)
        pointAt(map_.handleOf(pidTiltGain, 9 * static_cast<float>(i) / 8));
    screen_.button(1, false);
    pointBeside();
    EXPECT_TRUE(comesTrue([this] { return handleAt(9) > 200; }));
    EXPECT_LT(handleAt(-3), 20U) << "the negative control: no handle where none belongs";

    const Picture before = pictureOf(map_.frameOf(pidTiltGain));
    screen_.typeKey("Right");
    EXPECT_TRUE(comesTrue([&] { return pictureOf(map_.frameOf(pidTiltGain)).differingPixels(before) > 20; }));
    EXPECT_EQ(close(), 0) << textOf(log_);
}

TEST_F(Jalv, ItsWindowFollowsTheEditorWhenItGetsWiderAndNarrower) {
    constexpr Point gear{449, 95};
    ASSERT_NO_FATAL_FAILURE(openEditor());
    for (const int width : {680, 480}) {
        pointAt(gear);
        click();
        EXPECT_TRUE(comesTrue([&] { return screen_.widthOf(window_->topLevel) == width; }))
            << width << ", but " << screen_.widthOf(window_->topLevel);
        rest(0.5); // the drawer slides
    }
    EXPECT_EQ(close(), 0) << textOf(log_);
}

TEST_F(Jalv, ClosesAndOpensAgain) {
    for (int i = 0; i < 2; ++i) {
        ASSERT_NO_FATAL_FAILURE(openEditor());
        EXPECT_EQ(close(), 0) << textOf(log_);
    }
}

} // namespace
} // namespace QVM_NAMESPACE
