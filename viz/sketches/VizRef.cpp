#include "viz/sketches/VizRef.h"

#include "viz/sketches/QVM0015GLSketch.h"

namespace QVM_NAMESPACE {

VizRef makeVizRef(float sampleRate, unsigned chanIn, unsigned chanOut) {
    auto vizRef = std::make_shared<QVM0015GLSketch>();
    vizRef->chanIn = chanIn;
    vizRef->chanOut = chanOut;
    vizRef->sampleRate = sampleRate;
    vizRef->initNumericMeter();
    return vizRef;
}

} // namespace QVM_NAMESPACE
