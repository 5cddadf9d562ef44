// What a signal goes through as the equaliser is switched now: the tilt and all filters that are on or, while one
// listens, what those filters remove that are on and listened to.
//
// Render thread; nothing allocates.
#pragma once

#include "unit/dsp/EqPath.h"

namespace QVM_NAMESPACE::dsp {

// Everything about the settings that does not move but switch.
struct ChainShape {
    Switch low = Switch::off, high = Switch::off;
    Switch listenLow = Switch::off, listenHigh = Switch::off;
    Quality quality = Quality::normal;

    explicit ChainShape(const EqSettings& settings)
        : low(settings.low.state), high(settings.high.state), listenLow(settings.low.listen),
          listenHigh(settings.high.listen), quality(settings.quality) {}
    bool operator==(const ChainShape&) const = default;
    bool listens() const { return listenLow == Switch::on || listenHigh == Switch::on; }
};

class EqChain {
public:
    // Takes a shape, at rest.
    void reshape(const ChainShape& shape, const Corrector& corrector);
    // Designs the stages that there are for the settings, and starts a step towards them (EqPath::begin). With nothing
    // changed the step is one in which nothing moves.
    void begin(const EqSettings& settings, double sampleRateHz, const Corrector& corrector, std::size_t frames);
    void hold() { path_.hold(); }
    // Filters in place.
    void process(double* samples, std::size_t frames);
    void reset();
    bool settle() { return path_.settle(); }
    bool isFlat() const { return !isSilent_ && path_.isFlat(); }
    const ChainShape& shape() const { return shape_; }

private:
    ChainShape shape_{EqSettings()};
    StageSet stages_;
    EqPath path_;
    bool isSilent_ = false; // listening to nothing
    std::array<bool, stageKinds> isUsed_{};
    bool isNew_ = true;
};

} // namespace QVM_NAMESPACE::dsp
