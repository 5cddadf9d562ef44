#include "editor/surface/ViewTransforms.h"

#include "platform/layer/Transaction.h"
#include "platform/view/View.h"

#include <utility>

namespace QVM_NAMESPACE {

AffineTransform QVMTransformFromArray(std::span<const QVMTransformStep> steps, Size size) {
    AffineTransform made;
    for (const QVMTransformStep& step : steps) {
        if (step.kind == "identity") {
            made = {};
        } else if (step.kind == "scale") {
            made = AffineTransform::scale(step.by.x, step.by.y).then(made);
        } else if (step.kind == "translate") {
            made = AffineTransform::translation(step.by.x * size.width, -step.by.y * size.height).then(made);
        }
    }
    return made;
}

void QVMAnimateViewToFromDuration(View& view, const AffineTransform& to, const std::optional<AffineTransform>& from,
                                  double seconds) {
    Layer& layer = *view.layer();
    BasicAnimation glide;
    glide.keyPath = "transform";
    glide.fromValue = from ? *from : layer.presentation().transform;
    glide.toValue = to;
    glide.duration = seconds;
    {
        const auto immediately = Transaction::disablingActions();
        layer.setTransform(to);
    }
    layer.animations().add(std::move(glide), "transform");
}

} // namespace QVM_NAMESPACE
