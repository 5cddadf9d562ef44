// The built VST3 and LV2 with their editor opened and closed many times: nothing stays behind.
#include "plugin/host/InHost.h"

#include <functional>
#include <memory>
#include <vector>

#include <malloc.h>

namespace QVM_NAMESPACE {
namespace {

// Bytes that this process has allocated and not given back, of the host and of the bundle, which share one heap. What
// the allocator keeps for later is none of them: that grows and shrinks with the order of things.
long liveHeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

class InHostReopening : public InHost {
protected:
    static constexpr long leastLeak = 1000; // bytes; some hundred are seen, and an editor holds millions

    // How many bytes of each reopening are still there after many.
    long bytesKept(int reopenings) {
        constexpr int warmUps = 10;
        long first = 0;
        for (int i = 0; i < warmUps + reopenings; ++i) {
            if (i == warmUps) first = bytesAtRest();
            plugin_.openEditor();
            afterOpening_();
            plugin_.closeEditor();
            plugin_.run(0.02);
        }
        return (bytesAtRest() - first) / reopenings;
    }

    std::function<void()> afterOpening_ = [] {};

private:
    long bytesAtRest() {
        plugin_.run(0.3); // what goes later is gone then
        return liveHeapBytes();
    }
};

TEST_P(InHostReopening, ReopensFiftyTimesWithoutGrowing) {
    const long kept = bytesKept(50);
    RecordProperty("bytesKept", static_cast<int>(kept));
    EXPECT_LT(kept, leastLeak);
    open();
    EXPECT_GT(pictureOf(map_.frameOf(pidTiltGain)).countOf(gainColour, 4), 200U);
}

// The negative control: an editor that leaves two kilobytes behind is found out.
TEST_P(InHostReopening, SeesWhatIsLeftBehind) {
    if (liveHeapBytes() == 0) GTEST_SKIP() << "this heap does not tell"; // a sanitizer's
    std::vector<std::unique_ptr<char[]>> left;
    left.reserve(100);
    afterOpening_ = [&] { left.push_back(std::make_unique<char[]>(2000)); };
    EXPECT_GT(bytesKept(10), leastLeak);
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHostReopening, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostReopening, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
