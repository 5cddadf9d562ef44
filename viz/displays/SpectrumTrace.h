// The outline of a spectrum in the pixels that it is drawn in.
//
// Frequencies stand where the response curve has them. A pixel that is wider than a band shows the highest level in it,
// so that a tone is as high in a small picture as in a large one.
#pragma once

#include "BuildNamespace.h"

#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class SpectrumTrace {
public:
    // Of the levels (dB, one a band) in a picture of so many pixels.
    SpectrumTrace(std::span<const float> levels, int width, int height);

    // For each column how far below the picture's top the level is, in pixels: 0 at the top of the axis or above it,
    // the height at its bottom.
    const std::vector<float>& tops() const { return tops_; }
    // Whether nothing rises above the bottom.
    bool isEmpty() const;
    // Whether the eye can tell them apart: they differ by a quarter of a pixel somewhere.
    bool differsFrom(const SpectrumTrace& other) const;

private:
    int height_;
    std::vector<float> tops_;
};

} // namespace QVM_NAMESPACE
