// A value that follows its target smoothly: two equal one-pole low-passes, so that it neither jumps nor bends sharply.
//
// Render thread.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE::dsp {

class Glide {
public:
    // `share` of the way is gone each step; nearer than `nearness` it is there.
    void prepare(double share, double nearness, double value) {
        share_ = share;
        nearness_ = nearness;
        snap(value);
    }
    void snap(double value) { first_ = value_ = value; }
    // One step. Returns the value.
    double follow(double target);
    double value() const { return value_; }

private:
    double share_ = 1;
    double nearness_ = 0;
    double first_ = 0;
    double value_ = 0;
};

} // namespace QVM_NAMESPACE::dsp
