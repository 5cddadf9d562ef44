#include "editor/surface/EditorScale.h"

#include "description/NumberText.h"
#include "editor/surface/LayoutVariants.h"
#include "editor/surface/QVMGenericUI.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double restSeconds = 0.5; // until a window that the user drags is taken to have its size
constexpr float sameStep = 1e-3F;

} // namespace

void EditorScale::apply(float scale) {
    const float possible = std::clamp(scale, least, greatest);
    if (possible == current_) return;
    current_ = possible;
    layouts_.requestAgain();
}

void EditorScale::show(float scale) {
    fitsWindow_ = false;
    apply(scale);
}

void EditorScale::keep() {
    keepCall_.cancel();
    ui_.preferences().report(preferenceKey);
}

void EditorScale::choose(float scale) {
    const bool isSame = std::clamp(scale, least, greatest) == current_;
    show(scale);
    // A window that did not grant it before may do so now.
    if (isSame) layouts_.requestAgain();
    keep();
}

void EditorScale::step(int direction) {
    const auto isBeyond = [this, direction](float step) {
        return direction > 0 ? step > current_ + sameStep : step < current_ - sameStep;
    };
    if (direction > 0) {
        if (const auto next = std::ranges::find_if(steps, isBeyond); next != steps.end()) choose(*next);
    } else {
        const auto next = std::find_if(steps.rbegin(), steps.rend(), isBeyond);
        if (next != steps.rend()) choose(*next);
    }
}

void EditorScale::fitWindow() {
    fitsWindow_ = true;
    if (fitter_) fitter_();
    keep();
}

void EditorScale::followWindow(float scale, Kept kept) {
    apply(scale);
    if (kept == Kept::no || fitsWindow_) return;
    keepCall_.schedule(restSeconds, [this] { keep(); });
}

void EditorScale::keepWaiting() {
    if (keepCall_.isPending()) keep();
}

double EditorScale::preference() const {
    if (fitsWindow_) return preferenceToFit;
    // 1.1 for 1.1f, not what that is in double precision; read again it is the same number to the last bit.
    return NumberFromText<double>(ShortestFloatText(current_)).value_or(1);
}

void EditorScale::adoptPreference(double value) {
    fitsWindow_ = value == preferenceToFit;
    if (!fitsWindow_ && std::isfinite(value))
        current_ = static_cast<float>(std::clamp(value, double{least}, double{greatest}));
}

} // namespace QVM_NAMESPACE
