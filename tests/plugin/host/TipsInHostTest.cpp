// The tooltips, in the windows of hosts.
#include "plugin/host/InHost.h"
#include "plugin/host/Jalv.h"

#include <cstdlib>

namespace QVM_NAMESPACE {
namespace {

// Whether a box with round corners and a text in it has come near the pointer. The pixels are the editor's points.
bool hasTip(const Picture& now, const Picture& before, Point pointer) {
    constexpr int lineWidth = 1, farthest = 40, leastText = 60; // points; dark pixels
    const auto box = now.boxOfNew(EditorMap::menuColour, before);
    if (!box || box->width < 60 || box->height < 15) return false;
    const int left = box->x - lineWidth, top = box->y - lineWidth, right = box->x + box->width,
              bottom = box->y + box->height;
    const auto pixel = [](const Picture& picture, int x, int y) {
        return picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
    };
    for (const int x : {left, right})
        for (const int y : {top, bottom})
            if (pixel(now, x, y) != pixel(before, x, y)) return false;
    int text = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            text += (pixel(now, x, y) & 0xFF) < 0x60;
    return text >= leastText && pointer.x > left - farthest && pointer.x < right + farthest &&
           pointer.y > top - farthest && pointer.y < bottom + farthest;
}

class TipsInHost : public InHost {};

TEST_P(TipsInHost, ARestOnAControlShowsOneUntilThePointerMovesAway) {
    open();
    const Picture before = wholePicture();
    pointAt(gainHandle(0));
    EXPECT_FALSE(hasTip(wholePicture(), before, gainHandle(0))) << "at once";
    EXPECT_TRUE(comesTrue([&] { return hasTip(wholePicture(), before, gainHandle(0)); }));
    pointAt(beside);
    EXPECT_TRUE(comesTrue([&] { return !wholePicture().boxOfNew(EditorMap::menuColour, before); })) << "it goes";
}

INSTANTIATE_TEST_SUITE_P(Vst3, TipsInHost, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, TipsInHost, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

class JalvTips : public Jalv {};

TEST_F(JalvTips, ARestOnAControlShowsOneUntilThePointerMovesAway) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    const Picture before = wholePicture();
    const Point handle = map_.handleOf(pidTiltGain, 0);
    pointAt(handle);
    EXPECT_TRUE(comesTrue([&] { return hasTip(wholePicture(), before, handle); }));
    pointBeside();
    EXPECT_TRUE(comesTrue([&] { return !wholePicture().boxOfNew(EditorMap::menuColour, before); })) << "it goes";
}

} // namespace
} // namespace QVM_NAMESPACE
