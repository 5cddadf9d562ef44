// The effect itself: 24 parameters, the private properties, state, and the audio path.
//
// One object a plug-in instance. The shell that owns it calls `prepare` and `process`; the editor reaches it through
// the plug-in interface of platform/audiounit/AudioUnit.h, and sees what happens here in the shared state that it
// lends. Parameters are words that any thread writes; the render thread reads them once a block.
#pragma once

#include "platform/audiounit/AudioUnit.h"
#include "unit/EqReader.h"
#include "unit/RenderPath.h"
#include "unit/UnitParameters.h"
#include "unit/UnitPresets.h"
#include "unit/UnitSettings.h"
#include "unit/UnitState.h"
#include "unit/VizLink.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class QVM0015_AudioUnit final : public AudioUnitInstance {
public:
    // Initial values, 44.1 kHz, stereo, blocks of 512 frames announced. Main thread: it reads the description.
    QVM0015_AudioUnit();

    // Takes a format and lets everything stand at its target at once. One or two channels, no more inputs than outputs;
    // a format that is not supported gives an error and changes nothing. Any thread, but not while `process` runs.
    OSStatus prepare(double sampleRateHz, std::uint32_t maxFrames, std::uint32_t chanIn, std::uint32_t chanOut);

    // Renders a block of any length, also a longer one than announced; `in` and `out` may be the same memory. See
    // RenderPath for missing channels. Render thread: never allocates, locks or calls the system.
    void process(const float* const* in, float* const* out, std::uint32_t frames);
    void process(const double* const* in, double* const* out, std::uint32_t frames);

    // Everything that is saved, as bytes; equal settings give equal bytes. Any thread but the render thread.
    std::vector<std::uint8_t> saveState() const;
    // All of the state, or nothing of it when the result is not ok. Listeners are not told. Any thread but the render
    // thread, also while `process` runs.
    [[nodiscard]] UnitStateResult restoreState(std::span<const std::uint8_t> bytes);

    // Sets every parameter that a factory preset has a value for, and names the preset; false for a number that no
    // preset has. Listeners are not told. Any thread, the render thread included: no lock, no memory.
    bool choosePreset(std::int32_t index);
    // How often a state was restored. Whoever shows what is no parameter looks at this. Any thread, no lock.
    std::uint32_t restoreCount() const { return settings_.restoreCount(); }
    // The number of the present preset, -1 when it is none of the factory's. Any thread.
    std::int32_t presetIndex() const { return settings_.presetIndex(); }
    // Called when another preset's name was set through the property, on the thread that set it; null for none. Main
    // thread, while no editor is open.
    void setPresetNameHandler(std::function<void()> handler) { presetNameHandler_ = std::move(handler); }

    // Whatever the editor sent last.
    bool interfacePreference() const { return settings_.interfacePreference(); }
    std::string bufferPath() const { return settings_.bufferPath(); }

    OSStatus getParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                          float* value) const override;
    // The buffer offset is not used: changes are ramped over milliseconds.
    OSStatus setParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element, float value,
                          std::uint32_t bufferOffsetInFrames) override;
    OSStatus propertyInfo(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                          AudioUnitPropertyInfo* info) const override;
    OSStatus getProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element, void* data) override;
    OSStatus setProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                         const void* data) override;

private:
    template <class Sample>
    void render(const Sample* const* in, Sample* const* out, std::uint32_t frames);
    RenderSettings renderSettings() const;
    MeterMode meterMode() const;
    OSStatus setPresetName(const std::string* name);

    UnitParameters parameters_;
    UnitSettings settings_;
    const UnitPresets presets_;
    std::function<void()> presetNameHandler_;
    dsp::EqReader reader_;
    RenderPath path_;
    VizLink viz_{parameters_};

    // The format: written by `prepare`, read by the editor at any time.
    std::atomic<double> sampleRateHz_ = 44100;
    std::atomic<std::uint32_t> maxFrames_ = 512;
    std::atomic<std::uint32_t> chanIn_ = 2;
    std::atomic<std::uint32_t> chanOut_ = 2;
};

} // namespace QVM_NAMESPACE
