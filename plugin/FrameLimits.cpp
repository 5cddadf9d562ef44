#include "plugin/FrameLimits.h"

#include "editor/surface/EditorScale.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

int wholeTimes(double points, float scale) {
    return static_cast<int>(std::lround(points * double{scale}));
}

} // namespace

void FrameLimits::setContent(Size plain) {
    if (plain.width <= 0 || plain.height <= 0) return;
    setSizeLimits(wholeTimes(plain.width, EditorScale::least), wholeTimes(plain.height, EditorScale::least),
                  wholeTimes(plain.width, EditorScale::greatest), wholeTimes(plain.height, EditorScale::greatest));
    setFixedAspectRatio(plain.width / plain.height);
}

} // namespace QVM_NAMESPACE
