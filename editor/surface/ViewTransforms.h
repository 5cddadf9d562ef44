// Whole views moved and scaled: transforms written as lists of steps, and the glide from one to another.
#pragma once

#include "geometry/Geometry.h"

#include <optional>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

class View;

// One step of a transform: "identity" forgets the steps before it, "scale" takes factors, and "translate" fractions of
// a size, to the right and upwards, in the coordinates that the steps before it have made.
struct QVMTransformStep {
    std::string_view kind;
    Point by;
};

// The transform that a list of steps makes. Each step acts on what the steps before it left, about the middle of the
// view; `size` is what the fractions of a translation are of, in points. Unknown kinds change nothing. Any thread.
AffineTransform QVMTransformFromArray(std::span<const QVMTransformStep> steps, Size size);

// Gives the view's layer a transform and lets it glide there within `seconds`, from `from` or, without one, from
// wherever it is presented. A glide that is under way is taken over. Main thread.
void QVMAnimateViewToFromDuration(View& view, const AffineTransform& to, const std::optional<AffineTransform>& from,
                                  double seconds);

} // namespace QVM_NAMESPACE
