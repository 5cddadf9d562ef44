// The master switch as a cross-fade between the unprocessed and the processed signal.
//
// Render thread; `prepare` while nothing renders. At either end nothing is mixed, so that the switched-off unit passes
// samples bit for bit.
#pragma once

#include "unit/GainRamp.h"

namespace QVM_NAMESPACE {

class BypassFade {
public:
    // Which end the switch stands at.
    enum class Switch : unsigned char { off, on };

    // Stands at one end at once.
    void prepare(double sampleRateHz, Switch state) {
        share_.prepare(sampleRateHz, shareOf(state));
        state_ = state;
    }
    // Starts to fade when the state is another one, also in the middle of a fade.
    void setTarget(Switch state) {
        share_.setTarget(shareOf(state));
        state_ = state;
    }
    bool isFading() const { return share_.isMoving(); }
    // The switch is off and nothing of the processed signal is heard any more.
    bool isOff() const { return state_ == Switch::off && !isFading(); }
    // The processed signal's share of the next sample, 0 to 1.
    double next() { return share_.next(); }

private:
    static double shareOf(Switch state) { return state == Switch::on ? 1 : 0; }

    GainRamp share_;
    Switch state_ = Switch::on;
};

} // namespace QVM_NAMESPACE
