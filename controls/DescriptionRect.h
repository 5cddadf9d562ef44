// Rectangles of the description as the platform's.
#pragma once

#include "description/Types.h"
#include "platform/Geometry.h"

namespace QVM_NAMESPACE {

constexpr Rect rectFrom(const QVMRect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace QVM_NAMESPACE
