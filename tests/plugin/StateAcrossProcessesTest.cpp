// A session is saved in one process and loaded in another, as by a host that is closed and opened again.
#include "controls/QVMSymbolButton.h"
#include "description/Presets.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetControl.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "plugin/SlantwiseEditor.h"
#include "plugin/host/ChildProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* fileVariable = "SLANTWISE_STATE_FILE";
constexpr float nudgedGain = 6.5f;

juce::File stateFile() {
    const char* path = std::getenv(fileVariable);
    return path ? juce::File(path) : juce::File();
}

class StateAcrossProcesses : public testing::Test {
protected:
    // Lets some display frames pass, so that the editor has taken on the unit's values.
    void settle() {
        time_.advance(1);
        for (int i = 0; i < 3; ++i) {
            time_.advance(1.0 / 60);
            ticks_.tick(time_.now());
            time_.settle();
        }
    }
    // Sees what is on the other side of the A/B switch.
    void flip(SlantwiseEditor& editor) {
        QVMGenericUI& ui = editor.view().ui();
        ui.presetBar()->ab().handleTap(ui.presetBar()->ab().b());
        settle();
    }

private:
    ManualTickSource ticks_;
    VirtualTime time_;
};

// Run as a process of its own by the test at the end.
TEST_F(StateAcrossProcesses, DISABLED_Saves) {
    SlantwiseProcessor processor;
    SlantwiseEditor editor(processor);
    QVMGenericUI& ui = editor.view().ui();
    settle();
    ui.requestPresetNamed("Cellphone"); // in A
    settle();
    flip(editor);
    ui.requestPresetNamed("Air"); // in B
    ui.notifyParameterUpdatedTo(1, nudgedGain);
    ui.notifyParameterUpdatedTo(23, 1);
    ui.gearTapped();
    settle();

    juce::MemoryBlock bytes;
    processor.getStateInformation(bytes);
    ASSERT_TRUE(stateFile().replaceWithData(bytes.getData(), bytes.getSize()));
}

TEST_F(StateAcrossProcesses, DISABLED_Loads) {
    juce::MemoryBlock bytes;
    ASSERT_TRUE(stateFile().loadFileAsData(bytes));
    SlantwiseProcessor processor;
    processor.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    EXPECT_EQ(processor.getCurrentProgram(), 8);
    juce::MemoryBlock again;
    processor.getStateInformation(again);
    EXPECT_EQ(again, bytes);

    SlantwiseEditor editor(processor);
    QVMGenericUI& ui = editor.view().ui();
    settle();
    // What is seen: layout, name, side, and values.
    EXPECT_EQ(editor.getWidth(), 680);
    EXPECT_EQ(ui.altFrame(), 1);
    const auto& name = dynamic_cast<QVMPresetControl&>(*ui.presetBar()->presetControl()->primaryControl());
    EXPECT_EQ(name.value()->string().string(), "Air");
    EXPECT_EQ(ui.presetBar()->ab().position(), 1U);
    auto expected = *PresetIndexToPresetValues(8);
    expected[pidTiltGain] = nudgedGain;
    for (const ParameterID pid : {pidMasterOnOff, pidTiltGain, pidTiltRangeLow, pidTiltRangeHigh, pidTiltLoudnessMode,
                                  pidOutputGain, pidFilterRangeLow, pidFilterRangeHigh, pidFilterSlopeLow,
                                  pidFilterResonanceLow, pidFilterSlopeHigh, pidFilterResonanceHigh})
        EXPECT_EQ(ui.parameterControlWithPid(pid)->floatValue(), expected[pid]) << pid;
    EXPECT_EQ(ui.parameterControlWithPid(pidHQMode)->floatValue(), 1);
    // And on the other side.
    flip(editor);
    EXPECT_EQ(name.value()->string().string(), "Cellphone");
    EXPECT_EQ(ui.parameterControlWithPid(pidTiltGain)->floatValue(), 7);
    EXPECT_EQ(ui.parameterControlWithPid(pidFilterRangeLow)->floatValue(), 850);
    EXPECT_EQ(ui.parameterControlWithPid(pidHQMode)->floatValue(), 0);
    flip(editor);
    EXPECT_EQ(ui.parameterControlWithPid(pidTiltGain)->floatValue(), nudgedGain);
}

// All of that test, whatever share of the tests this process has.
int exitStatusOf(const std::string& test, const std::string& file) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    slantwise_tests::ChildProcess child(
        {program, "--gtest_also_run_disabled_tests", "--gtest_filter=StateAcrossProcesses.DISABLED_" + test},
        {{fileVariable, file}, {"GTEST_TOTAL_SHARDS", "1"}, {"GTEST_SHARD_INDEX", "0"}}, file + "." + test + ".log");
    constexpr double patienceSeconds = 60;
    return child.exitStatus(patienceSeconds).value_or(-2);
}

TEST_F(StateAcrossProcesses, EverythingComesBackAndTheEditorShowsIt) {
    const std::filesystem::path folder =
        std::filesystem::path(testing::TempDir()) / ("slantwise-state-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const std::string file = folder / "state";
    const auto log = [&](const char* test) {
        return juce::File(file + "." + test + ".log").loadFileAsString().toStdString();
    };
    EXPECT_NE(exitStatusOf("Loads", file), 0) << "a state that nobody saved was loaded";
    EXPECT_EQ(exitStatusOf("Saves", file), 0) << log("Saves");
    EXPECT_EQ(exitStatusOf("Loads", file), 0) << log("Loads");
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace QVM_NAMESPACE
