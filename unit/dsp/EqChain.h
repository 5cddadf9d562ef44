// The paths that a signal takes through the equaliser as it is switched now.
//
// Normally one with all filters that are on; while one listens, one for each filter that is listened to, added up.
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
    // Takes a shape. What of it there was before goes on playing.
    void reshape(const ChainShape& shape, const Corrector& corrector);
    // Designs the stages that there are for the settings, and starts a step towards them (EqPath::begin). With nothing
    // changed the step is one in which nothing moves.
    void begin(const EqSettings& settings, double sampleRateHz, const Corrector& corrector, std::size_t frames);
    void hold();
    // Filters `samples` in place. `scratch` holds as many.
    void process(double* samples, double* scratch, std::size_t frames);
    void reset();
    bool settle();
    bool isFlat() const;
    const ChainShape& shape() const { return shape_; }

private:
    static constexpr std::size_t maxPaths = 2;

    ChainShape shape_{EqSettings()};
    StageSet stages_;
    std::array<EqPath, maxPaths> paths_;
    std::size_t pathCount_ = 0; // none: listening to nothing, silence
    std::array<bool, stageKinds> isUsed_{};
    bool isNew_ = true;
};

} // namespace QVM_NAMESPACE::dsp
