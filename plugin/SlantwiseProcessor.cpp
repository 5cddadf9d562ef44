#include "plugin/SlantwiseProcessor.h"

#include "description/Description.h"
#include "description/NumberText.h"
#include "description/Presets.h"
#include "platform/system/Log.h"
#include "plugin/SlantwiseEditor.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint32_t bypassBit = 1U << QVMParameterCount, allValues = (bypassBit << 1) - 1;
static_assert(allValues < SlantwiseProcessor::stateChangeBit);

constexpr std::uint32_t bitOf(std::uint32_t pid) {
    return 1U << pid;
}

} // namespace

SlantwiseProcessor::SlantwiseProcessor()
    : juce::AudioProcessor(BusesProperties()
                               .withInput("Input", juce::AudioChannelSet::stereo())
                               .withOutput("Output", juce::AudioChannelSet::stereo())) {
    // The host's list of programs follows what is chosen in the editor. LV2 has none, but the name is in the session,
    // and with values that are the same it is all that changes.
    unit_.setPresetNameHandler([this] {
        if (isLv2()) return due_.add(stateChangeBit);
        updateHostDisplay(ChangeDetails().withProgramChanged(true));
    });
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        parameters_.push_back(new UnitParameter(*GetParameter(pid), unit_));
        addParameter(parameters_.back());
    }
    if (!isLv2()) offerBypass();
}

// One value under two names: a change of the one by the host has to reach the host as a change of the other.
void SlantwiseProcessor::offerBypass() {
    bypass_ = new BypassParameter(*parameters_[pidMasterOnOff], [this] { due_.add(bitOf(pidMasterOnOff)); });
    addParameter(bypass_);
    parameters_[pidMasterOnOff]->setHostChangeHandler([this] { due_.add(bypassBit); });
}

int SlantwiseProcessor::getNumPrograms() {
    return isLv2() ? 1 : static_cast<int>(QVMPresetCount);
}

int SlantwiseProcessor::getCurrentProgram() {
    return isLv2() ? 0 : std::max(unit_.presetIndex(), 0);
}

void SlantwiseProcessor::setCurrentProgram(int index) {
    // A preset of an LV2 bundle may well be the present one once more; it is asked for by hand. Other hosts echo the
    // program that they were told of, also while the preset is one of the user's.
    const bool isAskedFor = isLv2() || (index != getCurrentProgram() && index != overruledProgram_);
    if (isAskedFor && unit_.choosePreset(index)) due_.add(allValues);
}

void SlantwiseProcessor::announceWhatIsDue() {
    const std::uint32_t due = due_.take();
    if (due == 0) return;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (due & bitOf(pid)) parameters_[pid]->announceValue();
    if (bypass_ && (due & bypassBit)) bypass_->announceValue();
}

const juce::String SlantwiseProcessor::getProgramName(int index) {
    const auto& names = GetPresets()->stringValues;
    const auto at = static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(names.size()) - 1));
    return juce::String(names[at]);
}

bool SlantwiseProcessor::buildDescription() {
    static std::once_flag once;
    std::call_once(once, [] {
        GetMetadata();
        GetPresets();
        for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid)
            GetClump(cid);
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            GetParameter(pid);
    });
    return true;
}

// A host that shows the bypass in place of the master switch records what is done to the bypass.
juce::AudioProcessorParameter& SlantwiseProcessor::touchedParameter(std::uint32_t pid) const {
    if (bypass_ && pid == pidMasterOnOff) return *bypass_;
    return *parameters_[pid];
}

void SlantwiseProcessor::valueChanged(std::uint32_t pid) {
    if (isLv2()) return due_.add(bitOf(pid));
    if (!bypass_ || pid != pidMasterOnOff) return parameters_[pid]->announceValue();
    due_.add(bitOf(pid));
    bypass_->announceValue();
}

bool SlantwiseProcessor::isBusesLayoutSupported(const BusesLayout& layout) const {
    const auto in = layout.getMainInputChannelSet(), out = layout.getMainOutputChannelSet();
    const auto mono = juce::AudioChannelSet::mono(), stereo = juce::AudioChannelSet::stereo();
    return (in == mono && (out == mono || out == stereo)) || (in == stereo && out == stereo);
}

void SlantwiseProcessor::prepareToPlay(double sampleRateHz, int maxFrames) {
    const int channelsIn = getMainBusNumInputChannels(), channelsOut = getMainBusNumOutputChannels();
    const OSStatus status =
        unit_.prepare(sampleRateHz, static_cast<std::uint32_t>(std::max(maxFrames, 0)),
                      static_cast<std::uint32_t>(channelsIn), static_cast<std::uint32_t>(channelsOut));
    if (status == noErr) return;
    logLine("not prepared for " + ShortestText(sampleRateHz) + " Hz and " + std::to_string(channelsIn) + " to " +
            std::to_string(channelsOut) + " channels: it goes on as before");
}

void SlantwiseProcessor::setScaledByHost() {
    isScaledByHost_ = true;
    if (auto* const editor = dynamic_cast<SlantwiseEditor*>(getActiveEditor())) editor->followScale();
}

template <class Sample>
void SlantwiseProcessor::process(juce::AudioBuffer<Sample>& buffer) {
    const juce::ScopedNoDenormals noDenormals;
    // A host may give fewer channels than were prepared. What is missing of them is silence.
    std::array<Sample*, RenderPath::maxChannels> channels{};
    const auto given = static_cast<std::size_t>(std::max(buffer.getNumChannels(), 0));
    std::copy_n(buffer.getArrayOfWritePointers(), std::min(given, channels.size()), channels.begin());
    unit_.process(channels.data(), channels.data(), static_cast<std::uint32_t>(buffer.getNumSamples()));
    overruledProgram_.store(-1, std::memory_order_relaxed);
    if (!isLv2()) announceWhatIsDue();
}

void SlantwiseProcessor::processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer&) {
    process(buffer);
}

void SlantwiseProcessor::processBlock(juce::AudioBuffer<double>& buffer, juce::MidiBuffer&) {
    process(buffer);
}

void SlantwiseProcessor::getStateInformation(juce::MemoryBlock& bytes) {
    const auto state = unit_.saveState();
    bytes.replaceAll(state.data(), state.size());
}

void SlantwiseProcessor::setStateInformation(const void* bytes, int size) {
    const auto* begin = static_cast<const std::uint8_t*>(bytes);
    const int before = getCurrentProgram();
    const std::uint32_t overruled = due_.take(); // before the values change: no block may still tell of the old ones
    const UnitStateResult result = unit_.restoreState({begin, begin + std::max(size, 0)});
    if (result != UnitStateResult::ok) {
        due_.add(overruled);
        return logLine(std::string("state not restored: ") + toText(result));
    }
    if (before != getCurrentProgram()) overruledProgram_ = before;
    // LV2 hosts know values by message alone; the others ask for them after a restore.
    if (isLv2()) due_.add(allValues);
}

juce::AudioProcessorEditor* SlantwiseProcessor::createEditor() {
    return new SlantwiseEditor(*this);
}

} // namespace QVM_NAMESPACE
