#include "unit/QVM0015_AudioUnit.h"

#include "description/Description.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <span>

namespace QVM_NAMESPACE {

namespace {

struct PropertyRow {
    AudioUnitPropertyID id;
    AudioUnitScope scope;
    AudioUnitPropertyInfo info;
};

constexpr AudioUnitPropertyInfo readOnly(std::uint32_t size) {
    return {size, true, false};
}
constexpr AudioUnitPropertyInfo writeOnly(std::uint32_t size) {
    return {size, false, true};
}
constexpr AudioUnitPropertyInfo readWrite(std::uint32_t size) {
    return {size, true, true};
}

constexpr PropertyRow properties[] = {
    {kAudioUnitProperty_SampleRate, kAudioUnitScope_Input, readOnly(8)},
    {kAudioUnitProperty_MaximumFramesPerSlice, kAudioUnitScope_Global, readOnly(4)},
    {kQVMProperty_InterfacePreference, kAudioUnitScope_Global, writeOnly(1)},
    {kQVMProperty_PresetName, kAudioUnitScope_Global, readWrite(8)},
    {kQVMProperty_InputChannels, kAudioUnitScope_Global, readOnly(4)},
    {kQVMProperty_OutputChannels, kAudioUnitScope_Global, readOnly(4)},
    {kQVMProperty_ResetMeters, kAudioUnitScope_Global, writeOnly(4)},
    {kQVMProperty_ABState, kAudioUnitScope_Global, readWrite(16)},
    {kQVMProperty_BufferPath, kAudioUnitScope_Global, writeOnly(8)},
    {kQVMProperty_InterfaceState, kAudioUnitScope_Global, readWrite(4)},
    {kQVMProperty_VizRef, kAudioUnitScope_Global, readWrite(8)},
    {kQVMProperty_CloseViz, kAudioUnitScope_Global, writeOnly(4)},
};
static_assert(sizeof(void*) == 8, "references in properties are 8 bytes");

template <class T>
OSStatus give(const T& value, void* data) {
    std::ranges::copy(std::as_bytes(std::span(&value, 1)), static_cast<std::byte*>(data));
    return noErr;
}

template <class T>
T taken(const void* data) {
    T value;
    const auto bytes = std::as_writable_bytes(std::span(&value, 1));
    std::copy_n(static_cast<const std::byte*>(data), bytes.size(), bytes.begin());
    return value;
}

// Every parameter stands in the global scope, element 0.
OSStatus checkParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element) {
    if (id >= UnitParameters::count) return kAudioUnitErr_InvalidParameter;
    if (scope != kAudioUnitScope_Global) return kAudioUnitErr_InvalidScope;
    return element == 0 ? noErr : kAudioUnitErr_InvalidElement;
}

SavedSettings initialSettings() {
    SavedSettings settings;
    settings.presetName = GetPresetStructure().sections.front().presets.front().name;
    return settings;
}

} // namespace

QVM0015_AudioUnit::QVM0015_AudioUnit() : settings_(initialSettings()) {
    path_.prepare(sampleRateHz_, chanIn_, chanOut_, renderSettings());
}

OSStatus QVM0015_AudioUnit::prepare(double sampleRateHz, std::uint32_t maxFrames, std::uint32_t chanIn,
                                    std::uint32_t chanOut) {
    constexpr double highestRateHz = 1e6;
    const bool rateIsGood = sampleRateHz > 0 && sampleRateHz <= highestRateHz;
    const bool channelsAreGood = chanIn >= 1 && chanIn <= chanOut && chanOut <= RenderPath::maxChannels;
    if (!rateIsGood || !channelsAreGood) return kAudioUnitErr_FormatNotSupported;
    sampleRateHz_ = sampleRateHz;
    maxFrames_ = maxFrames;
    chanIn_ = chanIn;
    chanOut_ = chanOut;
    path_.prepare(sampleRateHz, chanIn, chanOut, renderSettings());
    viz_.postLevels(path_.blockPeaks(), 0);
    return noErr;
}

void QVM0015_AudioUnit::process(const float* const* in, float* const* out, std::uint32_t frames) {
    render(in, out, frames);
}

void QVM0015_AudioUnit::process(const double* const* in, double* const* out, std::uint32_t frames) {
    render(in, out, frames);
}

template <class Sample>
void QVM0015_AudioUnit::render(const Sample* const* in, Sample* const* out, std::uint32_t frames) {
    if (frames == 0) return;
    const double rate = sampleRateHz_.load(std::memory_order_relaxed);
    path_.process(in, out, frames, renderSettings(), viz_.listener(rate));
    viz_.postLevels(path_.blockPeaks(), frames / rate);
}

RenderSettings QVM0015_AudioUnit::renderSettings() const {
    const bool on = parameters_.value(pidMasterOnOff) != 0;
    return {amplitudeFromDecibels(parameters_.value(pidOutputGain)),
            on ? BypassFade::Switch::on : BypassFade::Switch::off, reader_.read(parameters_), meterMode()};
}

MeterMode QVM0015_AudioUnit::meterMode() const {
    constexpr MeterMode modes[] = {MeterMode::pre, MeterMode::post, MeterMode::difference};
    const float value = std::clamp(parameters_.value(pidMeterMode), 0.0F, 2.0F);
    return modes[static_cast<std::size_t>(value)];
}

bool QVM0015_AudioUnit::choosePreset(std::int32_t index) {
    const UnitPresets::Values* values = presets_.values(index);
    if (!values) return false;
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid)
        if (const auto& value = (*values)[pid]) setParameter(pid, kAudioUnitScope_Global, 0, *value, 0);
    settings_.choosePreset(index);
    return true;
}

OSStatus QVM0015_AudioUnit::setPresetName(const std::string* name) {
    const std::string was = settings_.saved().presetName;
    const OSStatus status = settings_.setPresetName(name);
    if (status == noErr && *name != was && presetNameHandler_) presetNameHandler_();
    return status;
}

std::vector<std::uint8_t> QVM0015_AudioUnit::saveState() const {
    return encodeUnitState({parameters_.values(), settings_.saved()});
}

UnitStateResult QVM0015_AudioUnit::restoreState(std::span<const std::uint8_t> bytes) {
    UnitState state;
    if (const UnitStateResult result = decodeUnitState(bytes, state); result != UnitStateResult::ok) return result;
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid) {
        if (!parameters_.holds(pid, state.parameters[pid])) return UnitStateResult::badValue;
    }
    for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid)
        parameters_.set(pid, state.parameters[pid]);
    viz_.allParametersChanged();
    settings_.restore(state.settings);
    return UnitStateResult::ok;
}

OSStatus QVM0015_AudioUnit::getParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                                         float* value) const {
    const OSStatus status = checkParameter(id, scope, element);
    if (status == noErr) *value = parameters_.value(id);
    return status;
}

OSStatus QVM0015_AudioUnit::setParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                                         float value, std::uint32_t) {
    if (const OSStatus status = checkParameter(id, scope, element); status != noErr) return status;
    const OSStatus status = parameters_.set(id, value);
    if (status == noErr) viz_.parameterChanged(id);
    return status;
}

OSStatus QVM0015_AudioUnit::propertyInfo(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                                         AudioUnitPropertyInfo* info) const {
    const auto row =
        std::find_if(std::begin(properties), std::end(properties), [id](const PropertyRow& r) { return r.id == id; });
    if (row == std::end(properties)) return kAudioUnitErr_InvalidProperty;
    if (scope != row->scope) return kAudioUnitErr_InvalidScope;
    if (element != 0) return kAudioUnitErr_InvalidElement;
    *info = row->info;
    return noErr;
}

OSStatus QVM0015_AudioUnit::getProperty(AudioUnitPropertyID id, AudioUnitScope, AudioUnitElement, void* data) {
    switch (id) {
    case kAudioUnitProperty_SampleRate:
        return give(sampleRateHz_.load(), data);
    case kAudioUnitProperty_MaximumFramesPerSlice:
        return give(maxFrames_.load(), data);
    case kQVMProperty_PresetName:
        return give(settings_.presetName(), data);
    case kQVMProperty_InputChannels:
        return give(chanIn_.load(), data);
    case kQVMProperty_OutputChannels:
        return give(chanOut_.load(), data);
    case kQVMProperty_ABState:
        return give(settings_.abRecord(), data);
    case kQVMProperty_InterfaceState:
        return give(settings_.uiState(), data);
    case kQVMProperty_VizRef:
        return give(viz_.state(), data);
    default:
        return kAudioUnitErr_InvalidProperty;
    }
}

OSStatus QVM0015_AudioUnit::setProperty(AudioUnitPropertyID id, AudioUnitScope, AudioUnitElement, const void* data) {
    switch (id) {
    case kQVMProperty_InterfacePreference:
        settings_.setInterfacePreference(taken<std::uint8_t>(data) != 0);
        break;
    case kQVMProperty_PresetName:
        return setPresetName(taken<const std::string*>(data));
    case kQVMProperty_ABState:
        return settings_.setABRecord(taken<QVMABRecord>(data));
    case kQVMProperty_BufferPath:
        return settings_.setBufferPath(taken<const std::string*>(data));
    case kQVMProperty_InterfaceState:
        settings_.setUIState(taken<std::uint32_t>(data));
        break;
    case kQVMProperty_VizRef:
        viz_.exchange(taken<SharedState*>(data));
        break;
    case kQVMProperty_ResetMeters:
        if (taken<std::uint32_t>(data) != 1) return kAudioUnitErr_InvalidPropertyValue;
        viz_.resetLevels();
        break;
    case kQVMProperty_CloseViz:
        if (taken<std::uint32_t>(data) != 1) return kAudioUnitErr_InvalidPropertyValue;
        viz_.exchange(nullptr);
        break;
    default:
        return kAudioUnitErr_InvalidProperty;
    }
    return noErr;
}

} // namespace QVM_NAMESPACE
