// Hosts give back what they are told: at once or later, on the thread that told them or on another, and not always the
// number they were told. Whichever it is, nothing of it goes out again, and what is the same value changes nothing.
#include "description/Description.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "plugin/SlantwiseEditorFixture.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::HostRecorder;
using Lines = std::vector<std::string>;

// When a host gives a value back: before the call that told it returns, or once it is asked to, here or elsewhere.
enum class Echo : unsigned char { none, atOnce, late, onAnotherThread };

class EchoingHost final : private juce::AudioProcessorListener {
public:
    // `quantum` is what the host rounds to, normalised; 0: it keeps values in the parameter's own range, as single
    // precision has them there.
    EchoingHost(SlantwiseProcessor& processor, Echo echo, float quantum)
        : processor_(processor), echo_(echo), quantum_(quantum) {
        processor_.addListener(this);
    }
    ~EchoingHost() override { processor_.removeListener(this); }

    // What a late host does, as far as it has not.
    void catchUp() {
        const auto giveAllBack = [this] {
            for (const auto& [index, value] : std::exchange(told_, {}))
                giveBack(index, value);
        };
        if (echo_ == Echo::onAnotherThread) return std::thread(giveAllBack).join();
        giveAllBack();
    }
    float rounded(std::uint32_t pid, float value) const {
        if (quantum_ > 0) return std::round(value / quantum_) * quantum_;
        const UnitParameter& parameter = processor_.parameter(pid);
        return parameter.convertTo0to1(parameter.convertFrom0to1(value));
    }

private:
    void audioProcessorParameterChanged(juce::AudioProcessor*, int index, float value) override {
        if (echo_ == Echo::atOnce) return giveBack(index, value);
        if (echo_ != Echo::none) told_.emplace_back(index, value);
    }
    void audioProcessorChanged(juce::AudioProcessor*, const ChangeDetails&) override {}
    void giveBack(int index, float value) {
        auto* parameter = processor_.getParameters()[index];
        const bool isBypass = parameter == processor_.getBypassParameter(); // 0 or 1, however it is rounded
        parameter->setValue(isBypass ? value : rounded(static_cast<std::uint32_t>(index), value));
    }

    SlantwiseProcessor& processor_;
    const Echo echo_;
    const float quantum_;
    std::vector<std::pair<int, float>> told_;
};

struct Case {
    Echo echo;
    float quantum;
    const char* name;
};

// What was heard, and where it left everything.
struct Outcome {
    Lines heard;
    std::vector<float> unit, shown; // by pid; host domain, and as the editor has it
    std::size_t snapshots = 0;      // in the history
};

class HostEcho : public SlantwiseEditorFixture {
protected:
    // A drag, a drag that pushes its partner, a reset and a preset, with frames between, in front of such a host.
    Outcome play(Echo echo, float quantum) {
        editor_.reset();
        restoreInitialState();
        open();
        EchoingHost host(processor_, echo, quantum);
        const auto catchUp = [&] {
            host.catchUp();
            frame();
        };
        const Point gain = handle(1);
        send(EventType::mouseDown, gain);
        for (int x = 1; x <= 6; ++x) {
            send(EventType::mouseDragged, {gain.x + 7.0 * x, gain.y});
            catchUp(); // with what was sent before the next
        }
        send(EventType::mouseUp, {gain.x + 42, gain.y});
        catchUp();
        drag(handle(2), 300, 0);
        catchUp();
        send(EventType::mouseDown, handle(7), EventModifier::option);
        send(EventType::mouseUp, handle(7), EventModifier::option);
        catchUp();
        editor_->view().requestPresetNamed("Air");
        frame();
        catchUp();
        settle();
        catchUp();

        Outcome outcome;
        outcome.heard = host_.lines;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            outcome.unit.push_back(editor_->view().valueForParameterID(pid));
            outcome.shown.push_back(editor_->view().ui().getMemoizedPValueDirectly(pid));
        }
        outcome.snapshots = editor_->view().ui().keyboard().undoRedoStack().stack().size();
        return outcome;
    }
    static bool contains(const Lines& lines, std::uint32_t pid) {
        const std::string start = "value " + std::to_string(pid) + " ";
        return std::any_of(lines.begin(), lines.end(),
                           [&](const std::string& line) { return line.starts_with(start); });
    }
    void restoreInitialState() {
        juce::MemoryBlock bytes;
        SlantwiseProcessor().getStateInformation(bytes);
        processor_.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    }
};
class HostEchoOfEach : public HostEcho, public testing::WithParamInterface<Case> {};
std::string nameOf(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}
INSTANTIATE_TEST_SUITE_P(Hosts, HostEchoOfEach,
                         testing::Values(Case{Echo::atOnce, 0, "AtOnce"}, Case{Echo::late, 0, "Late"},
                                         Case{Echo::onAnotherThread, 0, "OnAnotherThread"},
                                         Case{Echo::atOnce, 0.001F, "AtOnceAndQuantised"},
                                         Case{Echo::late, 0.001F, "LateAndQuantised"},
                                         Case{Echo::onAnotherThread, 0.001F, "OnAnotherThreadAndQuantised"}),
                         nameOf);

TEST_P(HostEchoOfEach, NothingOfItIsSentBack) {
    const Lines alone = play(Echo::none, 0).heard, echoed = play(GetParam().echo, GetParam().quantum).heard;
    ASSERT_GT(alone.size(), 30U);
    // The value that closes a gesture is the unit's: of a host that quantises it is that host's own.
    const bool isQuantised = GetParam().quantum > 0;
    EXPECT_EQ(isQuantised ? HostRecorder::kindsOf(echoed) : echoed, isQuantised ? HostRecorder::kindsOf(alone) : alone);
}

// Bit for bit, although the host gives back the number as it keeps it.
TEST_F(HostEcho, AnEchoAtOnceLeavesEverythingAsItWouldBeWithoutIt) {
    const Outcome alone = play(Echo::none, 0), echoed = play(Echo::atOnce, 0);
    EXPECT_EQ(echoed.unit, alone.unit);
    EXPECT_EQ(echoed.shown, alone.shown);
    EXPECT_EQ(echoed.snapshots, alone.snapshots);
}

// Whoever was last has the say: host, unit and editor end with one value, and rest.
TEST_P(HostEchoOfEach, EditorUnitAndHostAgreeInTheEnd) {
    const Outcome echoed = play(GetParam().echo, GetParam().quantum);
    const EchoingHost host(processor_, Echo::none, GetParam().quantum);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const float value = processor_.parameter(pid).getValue();
        const QVMParameter& parameter = *GetParameter(pid);
        EXPECT_NEAR(parameter.heldValueFromHostValue(echoed.unit[pid]),
                    parameter.heldValueFromHostValue(parameter.reverseCastValue(echoed.shown[pid])), 1e-6)
            << pid;
        if (!contains(echoed.heard, pid)) continue;
        EXPECT_NEAR(host.rounded(pid, value), value, 2 * HostRange::echoTolerance) << pid;
    }
    host_.lines.clear();
    settle();
    EXPECT_EQ(host_.lines, Lines());
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        EXPECT_EQ(editor_->view().valueForParameterID(pid), echoed.unit[pid]) << pid;
}

} // namespace
} // namespace QVM_NAMESPACE
