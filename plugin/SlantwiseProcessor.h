// The plug-in as the toolkit's wrappers see it: an audio processor that owns one audio unit and adds nothing to it.
//
// Values and gestures from the editor reach the host as the ledger of host/ has them; values from the host go straight
// into the unit on whatever thread the host uses. Neither comes back to where it started. What follows from something
// that the host did itself, such as a program, it is told of by the next block (DueAnnouncements); in LV2 so is all
// else.
#pragma once

#include "host/GestureLedger.h"
#include "plugin/BypassParameter.h"
#include "plugin/DueAnnouncements.h"
#include "plugin/UnitParameter.h"
#include "toolkit/ToolkitRuntime.h"
#include "unit/QVM0015_AudioUnit.h"

#include <atomic>
#include <vector>

namespace QVM_NAMESPACE {

class SlantwiseProcessor final : public juce::AudioProcessor, private GestureListener {
public:
    SlantwiseProcessor();

    QVM0015_AudioUnit& unit() { return unit_; }
    UnitParameter& parameter(std::uint32_t pid) { return *parameters_[pid]; }

    // What an LV2 host is still to be told of: a bit for each value, by pid, and the one below when what a session
    // saves of the plug-in has changed. Its messages are written outside of the toolkit. Render thread: no lock.
    std::uint32_t takeDue() { return due_.take(); }
    static constexpr std::uint32_t stateChangeBit = 1U << 31;

    // What the host hears of gestures. An editor has it follow its window. Main thread.
    GestureLedger& gestures() { return gestures_; }

    // Whether the host says at what scale its editor is shown, if only that it is 1; until it does the desktop's
    // counts. Once said it holds for editors to come. From the thread that the editor is on.
    void setScaledByHost();
    bool isScaledByHost() const { return isScaledByHost_; }

    // Audio: mono to mono, mono to stereo, stereo to stereo. Render thread; no allocation, lock or log, save that
    // outside of LV2 the toolkit takes its locks of listeners in a block that has something to announce, as for each
    // automated value.
    void prepareToPlay(double sampleRateHz, int maxFrames) override;
    void releaseResources() override {}
    void processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer&) override;
    void processBlock(juce::AudioBuffer<double>& buffer, juce::MidiBuffer&) override;
    bool supportsDoublePrecisionProcessing() const override { return true; }
    // The master switch as the host's bypass, the last of the list. None in LV2: there the toolkit would write it in
    // every block.
    juce::AudioProcessorParameter* getBypassParameter() const override { return bypass_; }
    bool isBusesLayoutSupported(const BusesLayout& layout) const override;
    double getTailLengthSeconds() const override { return 0; }

    // Any thread. Bytes that are not a state of this product change nothing; what was wrong with them is logged.
    void getStateInformation(juce::MemoryBlock& bytes) override;
    void setStateInformation(const void* bytes, int size) override;

    bool hasEditor() const override { return true; }
    juce::AudioProcessorEditor* createEditor() override;

    const juce::String getName() const override { return "Slantwise"; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    // The factory presets, as programs of the host. In LV2 they are presets of the bundle, and a program is only what
    // such a preset names. Any thread; the host is told of the values by the next block. A program that
    // is current already, or was current until a state was restored, changes nothing: hosts send a program with a
    // state, and the state's values count.
    int getNumPrograms() override;
    int getCurrentProgram() override;
    void setCurrentProgram(int index) override;
    const juce::String getProgramName(int index) override;
    void changeProgramName(int, const juce::String&) override {}

private:
    // Hosts make instances on any thread, several at once; the records that describe the product are built by one.
    static bool buildDescription();
    // GestureListener: to the host as it comes.
    void gestureBegan(std::uint32_t pid) override { touchedParameter(pid).beginChangeGesture(); }
    void valueChanged(std::uint32_t pid) override;
    void gestureEnded(std::uint32_t pid) override { touchedParameter(pid).endChangeGesture(); }
    // Other hosts know by the gestures that their session is modified; LV2 has none.
    void editEnded() override {
        if (isLv2()) due_.add(stateChangeBit);
    }
    juce::AudioProcessorParameter& touchedParameter(std::uint32_t pid) const;
    bool isLv2() const { return wrapperType == wrapperType_LV2; }
    void offerBypass();
    // Render thread.
    void announceWhatIsDue();
    template <class Sample>
    void process(juce::AudioBuffer<Sample>& buffer);

    [[maybe_unused]] const bool described_ = buildDescription();
    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    QVM0015_AudioUnit unit_;
    std::vector<UnitParameter*> parameters_; // owned by the base class, by pid
    BypassParameter* bypass_ = nullptr;      // owned by the base class; null where it is not offered
    bool isScaledByHost_ = false;
    DueAnnouncements due_;
    GestureLedger gestures_{unit_, *this};
    // The program that a restored state has overruled, until audio has run since; -1 for none. Written by the thread
    // that restores and by the render thread, in no order with anything else.
    std::atomic<int> overruledProgram_ = -1;
};

} // namespace QVM_NAMESPACE
