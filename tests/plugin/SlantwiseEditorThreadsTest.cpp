// An open editor while a host is at work on its other threads: a matter for the thread sanitizer above all.
#include "plugin/SlantwiseEditor.h"

#include "SlantwiseProcessorBench.h"
#include "controls/QVMVerticalSlider.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr float oneThird = 1.0f / 3;

TEST(SlantwiseEditorThreadsTest, ShowsWhatTheUnitHoldsAfterAHostRenderedAutomatedAndSavedAtOnce) {
    ManualTickSource ticks;
    VirtualTime time;
    SlantwiseProcessor processor;
    prepare(processor, 2, 2);
    const auto editor = std::make_unique<SlantwiseEditor>(processor);
    const auto frame = [&] {
        time.advance(1.0 / 60);
        ticks.tick(time.now());
        time.settle();
    };

    std::atomic<bool> isDone = false;
    std::atomic<int> blocks = 0, states = 0, frames = 0;
    auto render = std::async(std::launch::async, [&] {
        for (int i = 0; !isDone; ++i) {
            processor.parameter(pidTiltGain).setValue(static_cast<float>(i % 3) * oneThird);
            processor.parameter(pidHQMode).setValue(static_cast<float>(i % 2));
            processOnce(processor);
            ++blocks;
            std::this_thread::yield();
        }
    });
    auto save = std::async(std::launch::async, [&] {
        for (; !isDone; ++states) {
            EXPECT_FALSE(stateOf(processor).isEmpty());
            std::this_thread::yield();
        }
    });
    while (blocks < 100 || states < 20 || frames < 100) {
        frame();
        ++frames;
    }
    isDone = true;
    render.get();
    save.get();

    processor.parameter(pidTiltGain).setValue(0.75f); // nine decibels
    processor.parameter(pidHQMode).setValue(1);
    time.advance(1);
    for (int i = 0; i < 3; ++i)
        frame();
    EXPECT_EQ(editor->view().ui().parameterControlWithPid(pidTiltGain)->floatValue(), 9);
    EXPECT_EQ(editor->view().ui().parameterControlWithPid(pidHQMode)->floatValue(), 1);
}

} // namespace
} // namespace QVM_NAMESPACE
