#include "plugin/FramePlace.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double roundedUp = 1; // unit of the frame

// What is left of a side goes to both of its ends.
double half(double left) {
    return std::max(0.0, std::floor(left / 2));
}

} // namespace

double scaleToFit(Size content, Size frame) {
    if (content.width <= 0 || content.height <= 0) return 1;
    return std::min(frame.width / content.width, frame.height / content.height);
}

bool hasShapeOf(Size content, Size frame) {
    const double scale = scaleToFit(content, frame);
    return frame.width - content.width * scale <= roundedUp && frame.height - content.height * scale <= roundedUp;
}

bool fillsFrame(Size content, double scale, Size frame) {
    return std::abs(frame.width - content.width * scale) <= roundedUp &&
           std::abs(frame.height - content.height * scale) <= roundedUp;
}

bool fitsFrame(Size content, double scale, Size frame) {
    return content.width * scale <= frame.width + roundedUp && content.height * scale <= frame.height + roundedUp;
}

FramePlace placeInFrame(Size content, double wanted, Size frame) {
    const bool isEmpty = content.width <= 0 || content.height <= 0 || frame.width <= 0 || frame.height <= 0;
    if (isEmpty) return {wanted, {}};
    const double scale = fitsFrame(content, wanted, frame) ? wanted : scaleToFit(content, frame);
    return {scale, {half(frame.width - content.width * scale), half(frame.height - content.height * scale)}};
}

} // namespace QVM_NAMESPACE
