// A display tick on its way to a view that has nothing to draw.
#include "platform/runloop/DisplayLink.h"
#include "platform/runloop/RunLoop.h"

#include <benchmark/benchmark.h>

#include <utility>

namespace QVM_NAMESPACE {
namespace {

class BenchTickSource final : public DisplayTickSource {
public:
    void start(Tick tick) override { tick_ = std::move(tick); }
    void stop() override { tick_ = nullptr; }
    void tick() { tick_({1, 60, 1}); }

private:
    Tick tick_;
    ScopedDisplayTickSource scope_{*this};
};

void BM_IdleTick(benchmark::State& state) {
    BenchTickSource source;
    int frames = 0;
    const auto link = DisplayLink::create();
    link->setOutputCallback(
        [](const std::shared_ptr<DisplayLink>& running, const DisplayTimeStamp&, void* count) {
            running->postFrame([count] { ++*static_cast<int*>(count); });
            return 0;
        },
        &frames);
    link->start();
    for (auto _ : state) {
        source.tick();
        RunLoop::main().runDue();
    }
    link->stop();
    if (frames != static_cast<int>(state.iterations())) state.SkipWithError("frames were lost");
}
BENCHMARK(BM_IdleTick);

} // namespace
} // namespace QVM_NAMESPACE
