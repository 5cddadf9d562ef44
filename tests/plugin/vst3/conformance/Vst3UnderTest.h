// An instance of the built plug-in with what its rules have in common.
#pragma once

#include "plugin/host/Vst3Instance.h"

namespace Steinberg {
class MemoryStream;
}

namespace slantwise_tests {

class Vst3UnderTest {
public:
    static constexpr Steinberg::int32 maxFrames = 512;

    explicit Vst3UnderTest(Vst3Module& module) : module_(module), instance_(module) {}

    // Set up, active and processing for as long as it lives.
    class Running {
    public:
        Running(Vst3UnderTest& plugin, Steinberg::int32 sampleSize, double rateHz = 48000);
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        Vst3UnderTest& plugin_;
    };

    Vst3Module& module() const { return module_; }
    Vst3Instance& instance() { return instance_; }
    Steinberg::Vst::IComponent& component() const { return instance_.component(); }
    Steinberg::Vst::IEditController& controller() const { return instance_.controller(); }
    Steinberg::FUnknownPtr<Steinberg::Vst::IAudioProcessor> processor() const {
        return Steinberg::FUnknownPtr<Steinberg::Vst::IAudioProcessor>(&component());
    }

    // Stereo, not active yet. The mode is one of Vst::ProcessModes.
    void setUp(Steinberg::int32 sampleSize, double rateHz = 48000, Steinberg::int32 mode = Steinberg::Vst::kRealtime);
    // Component first, then controller, as hosts do.
    void restore(Steinberg::MemoryStream& state);
    // What the component holds, read by another instance.
    double valueOfState(Steinberg::Vst::ParamID id);

private:
    Vst3Module& module_;
    Vst3Instance instance_;
};

} // namespace slantwise_tests
