// The value of each parameter as the editor has it, and the way that every value takes: out to the unit and back.
//
// Controls bring their values here and show what they are told from here; the delegate takes on to the unit what is
// sent, and the frames of the live pictures bring what the unit holds. This is the one place that knows an echo, which
// is what of the unit's values the editor has sent before. Values are in the shown domain; what is sent is in the host
// domain. Main thread only.
#pragma once

#include "description/ParameterDisplay.h"
#include "description/QVMConfig.h"
#include "description/ValuesFromUnit.h"
#include "description/ValuesFromUser.h"
#include "editor/session/EditorValuesDelegate.h"
#include "editor/session/SessionSurface.h"

#include <functional>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

// Who keeps values, or draws conclusions from them, beside the surface.
class EditorValuesObserver {
public:
    virtual ~EditorValuesObserver() = default;
    // The memoized value is another one.
    virtual void memoizedValueDidChange(std::uint32_t pid) = 0;
    // What was read as `read` at the opening is `held` in the unit: so it was from the start, and nobody changed it.
    virtual void valueWasReread(std::uint32_t pid, float read, float held) = 0;
    // A value that came from the unit is shown and memoized.
    virtual void receivedValueWasAdopted(std::uint32_t pid) = 0;
};

class EditorValues final : public ValuesFromUser, public ValuesFromUnit {
public:
    // Every memoized value is the parameter's initial one. All three are borrowed and outlive the values; nothing is
    // asked of the last two before a value is set.
    EditorValues(const QVMConfig& config, SessionSurface& surface, EditorValuesObserver& observer);

    // Borrowed; null is allowed and hears nothing. The delegate clears it before it goes.
    void setDelegate(EditorValuesDelegate* delegate) { delegate_ = delegate; }
    // What shows the parameter's values from now on: borrowed, and there whenever a value is set. Unknown pids are
    // ignored.
    void setDisplay(std::uint32_t pid, ParameterDisplay& display);

    std::size_t count() const { return memoizedPValues_.size(); }
    // The value as the editor has it; 0 for an unknown pid.
    float memoized(std::uint32_t pid) const { return pid < count() ? memoizedPValues_[pid] : 0; }
    const std::vector<float>& memoized() const { return memoizedPValues_; }
    // The same within the range that the unit will hold it to: a value that was sent may be any number until it
    // answers.
    float memoizedInRange(std::uint32_t pid) const;
    // Which memoized values have changed, by pid; all of them at first.
    std::span<const std::uint8_t> changed() const { return memoizedPValuesChanged_; }
    // Stores a value with no consequence at all.
    void setDirectly(std::uint32_t pid, float value);
    // Stores a value without sending it. An equal one changes nothing.
    void memoize(std::uint32_t pid, float value);

    // A value from anywhere in the editor: restricted, sent, memoized. It shows when it comes back from the unit; until
    // that can be expected, at once.
    void send(std::uint32_t pid, float value);
    // The user set a control: as above, then the partner of a low/high pair is pushed an octave away.
    void sendFromControl(std::uint32_t pid, float value) override;
    // Several by codename; unknown names are skipped.
    void sendPairs(const std::vector<std::pair<std::string, float>>& pairs);
    // The scratch values that differ from the memoized ones, but for the parameters that are left out.
    void sendScratch(const std::function<bool(std::uint32_t pid)>& isLeftOut);
    std::span<float> scratch() { return scratchPValues_; }
    // From now on what is sent comes back.
    void setComesBack() { comesBack_ = true; }

    // A value as the unit has it (QVMParameter::heldValueFromHostValue). Nothing is sent. What the unit makes of the
    // memoized value counts as the memoized value, if the unit can hold that.
    void receive(std::uint32_t pid, float value);
    // The same, for a value that comes with every frame: only when it says anything new, which the value of the frame
    // before does where another was sent, and then this one stored again by somebody else.
    void receiveIfNew(std::uint32_t pid, float value, bool wasStored) override;
    // All of one frame was received.
    void frameWasReceived() override { ++receivedParamUpdateCount_; }
    std::uint32_t receivedFrames() const { return receivedParamUpdateCount_; }

private:
    static constexpr float nothingReceived = std::numeric_limits<float>::max();

    void show(std::uint32_t pid, float value) const;
    bool isMemoizedValueHeld(std::uint32_t pid) const;
    bool isEcho(const QVMParameter& parameter, float value) const;
    void rereadMemoizedValue(const QVMParameter& parameter, float held);

    const QVMConfig& config_;
    SessionSurface& surface_;
    EditorValuesObserver& observer_;
    EditorValuesDelegate* delegate_ = nullptr;
    bool comesBack_ = false;
    // One entry for each parameter, by pid.
    std::vector<float> memoizedPValues_;
    std::vector<std::uint8_t> memoizedPValuesChanged_;
    std::vector<float> receivedPValues_;      // `nothingReceived` at first
    std::vector<QVMFloat32Range> heldRanges_; // QVMParameter::heldRange()
    std::vector<float> scratchPValues_;
    std::vector<ParameterDisplay*> displays_;    // null for a parameter that has none
    std::uint32_t receivedParamUpdateCount_ = 0; // frames
};

} // namespace QVM_NAMESPACE
