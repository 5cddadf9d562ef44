#include "tools/gallery/OffscreenTime.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

struct Frames {
    std::vector<double> times;
    static int tick(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* context) {
        const double time = static_cast<double>(output.videoTime) / output.videoTimeScale;
        link->postFrame([context, time] { static_cast<Frames*>(context)->times.push_back(time); });
        return 0;
    }
};

TEST(OffscreenTime, SixtyFramesASecondAtTheTimeOfTheRunLoop) {
    OffscreenTime time;
    const double start = RunLoop::main().now();
    Frames frames;
    const auto link = DisplayLink::create();
    link->setOutputCallback(&Frames::tick, &frames);
    link->start();
    time.advance(0.5);
    EXPECT_NEAR(RunLoop::main().now() - start, 0.5, 1e-9);
    ASSERT_EQ(frames.times.size(), 30u);
    EXPECT_NEAR(frames.times.back(), RunLoop::main().now(), 1e-4);
    link->stop();
    time.advance(0.5);
    EXPECT_EQ(frames.times.size(), 30u);
}

TEST(OffscreenTime, PassesByPartsOfAFrameAndRunsWhatFallsDue) {
    OffscreenTime time;
    double ranAt = -1;
    const double start = RunLoop::main().now();
    RunLoop::main().schedule(0.012, [&] { ranAt = RunLoop::main().now(); });
    time.advance(0.011);
    EXPECT_EQ(ranAt, -1);
    time.advance(0.002);
    EXPECT_NEAR(ranAt - start, 0.012, 1e-9);
}

} // namespace
} // namespace QVM_NAMESPACE
