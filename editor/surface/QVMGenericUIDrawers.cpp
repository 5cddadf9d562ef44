// Drawers: which of them is open, and how the presets drawer comes and goes with the clumps view as a miniature.
#include "editor/surface/DrawerBackdrop.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "editor/surface/ViewTransforms.h"

#include <array>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double openSeconds = 0.2, closeSeconds = 0.25; // of the clumps view
constexpr double fadeInSeconds = 0.25, fadeOutSeconds = 0.3;

constexpr std::array<QVMTransformStep, 2> miniatureSteps = {{{"scale", {0.5, 0.5}}, {"translate", {0.5, 0.25}}}};
constexpr std::array<QVMTransformStep, 1> identitySteps = {{{"identity", {}}}};
// What the translation is a part of, so that the miniature stands clear of the right edge, a little above the middle,
// and on whole points.
constexpr Size translationBase = {398, 52};

AffineTransform miniatureTransform() {
    return QVMTransformFromArray(miniatureSteps, translationBase);
}

BasicAnimation fade(const Layer& layer, double to, double seconds) {
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.fromValue = layer.presentation().opacity;
    fade.toValue = to;
    fade.duration = seconds;
    return fade;
}

} // namespace

QVMDrawerView& QVMGenericUI::addDrawer(std::unique_ptr<QVMDrawerView> drawer) {
    drawer->setDelegate(this);
    drawer->setDrawsPatternedBackground(true);
    return addSubview(std::move(drawer), presetBar_ ? Order::below : Order::above, presetBar_);
}

std::vector<QVMDrawerView*> QVMGenericUI::drawers() const {
    std::vector<QVMDrawerView*> found;
    for (const auto& subview : subviews())
        if (auto* drawer = dynamic_cast<QVMDrawerView*>(subview.get())) found.push_back(drawer);
    return found;
}

void QVMGenericUI::toggleDrawerForce(QVMDrawerView& drawer, bool force) {
    if (drawer.visible()) {
        drawer.toggleVisibility();
        showClumpsView();
        return;
    }
    const bool mustWait = !force && presetDrawer_ && presetDrawer_ != &drawer && presetDrawer_->visible();
    if (!mustWait) {
        hideVisibleDrawersPresenting(&drawer);
        return;
    }
    waitingDrawer_ = &drawer;
    presetDrawer_->toggleVisibility();
}

bool QVMGenericUI::hideVisibleDrawersPresenting(QVMDrawerView* drawer) {
    bool hidAny = false;
    for (QVMDrawerView* each : drawers())
        hidAny = hideViewIfNotEqualToView(each, drawer) || hidAny;
    if (hidAny) showClumpsView();
    if (drawer && !drawer->visible()) {
        bringParameterControlIntoFocus(nullptr);
        drawer->toggleVisibility();
        // The presets drawer leaves the miniature to be seen; any other covers everything once it is there.
        if (drawer->visible() && drawer != presetDrawer_)
            hideClumpsViewCall_.schedule(fadeInSeconds, [this] { hideClumpsView(); });
    }
    return hidAny;
}

bool QVMGenericUI::hideViewIfNotEqualToView(QVMDrawerView* drawer, const QVMDrawerView* excepted) {
    if (!drawer || !drawer->visible() || drawer == excepted) return false;
    drawer->toggleVisibility();
    return true;
}

void QVMGenericUI::hideDrawerIfVisible(QVMDrawerView* drawer) {
    if (drawer && drawer->visible()) toggleDrawerForce(*drawer, false);
}

void QVMGenericUI::hideClumpsView() {
    if (clumpsView_) clumpsView_->setHidden(true);
}

void QVMGenericUI::showClumpsView() {
    hideClumpsViewCall_.cancel();
    if (clumpsView_) clumpsView_->setHidden(clumpsView_->frame().intersectionWith(bounds()).isEmpty());
}

void QVMGenericUI::drawerDidTapMiniature(QVMDrawerView&, std::int32_t code) {
    constexpr std::int32_t tapped = 1;
    if (code == tapped) hideAllDrawers();
}

bool QVMGenericUI::canDrawerViewToggleVisibilityToVisibility(QVMDrawerView& drawer, bool visible) {
    if (&drawer != presetDrawer_) return true;
    if (visible)
        presentPresetsDrawer(drawer);
    else
        dismissPresetsDrawer(drawer);
    return true;
}

void QVMGenericUI::presentPresetsDrawer(QVMDrawerView& drawer) {
    waitingDrawer_ = nullptr; // it waited for an end that does not come
    BasicAnimation fadeIn = fade(*drawer.layer(), 1, fadeInSeconds);
    drawer.layer()->removeAllAnimations();
    QVMAnimateViewToFromDuration(*clumpsView_, miniatureTransform(), std::nullopt, openSeconds);
    if (!drawerBackdrop_) {
        const Rect behind = EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView;
        drawerBackdrop_ = &addSubview(std::make_unique<DrawerBackdrop>(behind, drawer), Order::below, clumpsView_);
    }
    drawerBackdrop_->setHidden(false);
    drawer.setVisibility(true);
    drawer.layer()->addAnimation(std::move(fadeIn), "fadeIn");
}

void QVMGenericUI::dismissPresetsDrawer(QVMDrawerView& drawer) {
    BasicAnimation fadeOut = fade(*drawer.layer(), 0, fadeOutSeconds);
    fadeOut.completion = [this, &drawer](bool finished) { animationDidStopFinished(drawer, finished); };
    drawer.layer()->removeAllAnimations();
    QVMAnimateViewToFromDuration(*clumpsView_, QVMTransformFromArray(identitySteps, translationBase), std::nullopt,
                                 closeSeconds);
    drawer.layer()->setOpacity(0);
    drawer.layer()->addAnimation(std::move(fadeOut), "fadeOut");
    ensureFirstResponder();
}

// `finished` is false when the drawer was opened again, or goes away, before it had closed.
void QVMGenericUI::animationDidStopFinished(QVMDrawerView& drawer, bool finished) {
    if (!finished) return;
    drawer.shiftOutOfView();
    drawerBackdrop_->setHidden(true);
    if (QVMDrawerView* next = std::exchange(waitingDrawer_, nullptr)) hideVisibleDrawersPresenting(next);
}

} // namespace QVM_NAMESPACE
