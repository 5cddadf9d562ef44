#include "editor/surface/EditorDrawers.h"

#include "editor/surface/DrawerBackdrop.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "editor/surface/ViewTransforms.h"

#include <algorithm>
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

BasicAnimation fade(const Layer& layer, double to, double seconds) {
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.fromValue = layer.presentation().opacity;
    fade.toValue = to;
    fade.duration = seconds;
    return fade;
}

} // namespace

QVMDrawerView& EditorDrawers::add(std::unique_ptr<QVMDrawerView> drawer, const View* bar) {
    drawer->setDelegate(this);
    drawer->setDrawsPatternedBackground(true);
    return editor_.addSubview(std::move(drawer), bar ? Order::below : Order::above, bar);
}

QVMPresetsDrawer& EditorDrawers::addPresets(std::unique_ptr<QVMPresetsDrawer> drawer, const View* bar) {
    presets_ = drawer.get();
    presets_->setMiniatureDelegate(this);
    presets_->setAnimatesVisibility(false);
    add(std::move(drawer), bar);
    return *presets_;
}

bool EditorDrawers::arePresetsOpen() const {
    return presets_ && presets_->visible();
}

bool EditorDrawers::isAnyOpen() const {
    const std::vector<QVMDrawerView*> drawers = all();
    return std::any_of(drawers.begin(), drawers.end(), [](const QVMDrawerView* each) { return each->visible(); });
}

std::vector<QVMDrawerView*> EditorDrawers::all() const {
    std::vector<QVMDrawerView*> found;
    for (const auto& subview : editor_.subviews())
        if (auto* drawer = dynamic_cast<QVMDrawerView*>(subview.get())) found.push_back(drawer);
    return found;
}

void EditorDrawers::toggle(QVMDrawerView& drawer, bool force) {
    if (drawer.visible()) {
        drawer.toggleVisibility();
        showClumpsView();
        return;
    }
    const bool mustWait = !force && presets_ != &drawer && arePresetsOpen();
    if (!mustWait) {
        hideVisiblePresenting(&drawer);
        return;
    }
    waiting_ = &drawer;
    presets_->toggleVisibility();
}

bool EditorDrawers::hideVisiblePresenting(QVMDrawerView* drawer) {
    bool hidAny = false;
    for (QVMDrawerView* each : all())
        hidAny = hideUnlessEqual(each, drawer) || hidAny;
    if (hidAny) showClumpsView();
    if (drawer && !drawer->visible()) {
        delegate_.drawerWillOpen();
        drawer->toggleVisibility();
        // The presets drawer leaves the miniature to be seen; any other covers everything once it is there.
        if (drawer->visible() && drawer != presets_)
            hideClumpsViewCall_.schedule(fadeInSeconds, [this] { hideClumpsView(); });
    }
    return hidAny;
}

bool EditorDrawers::hideUnlessEqual(QVMDrawerView* drawer, const QVMDrawerView* excepted) {
    if (!drawer || !drawer->visible() || drawer == excepted) return false;
    drawer->toggleVisibility();
    return true;
}

void EditorDrawers::hideIfVisible(QVMDrawerView* drawer) {
    if (drawer && drawer->visible()) toggle(*drawer, false);
}

void EditorDrawers::hideClumpsView() {
    if (clumpsView_) clumpsView_->setHidden(true);
}

void EditorDrawers::showClumpsView() {
    hideClumpsViewCall_.cancel();
    if (clumpsView_) clumpsView_->setHidden(clumpsView_->frame().intersectionWith(editor_.bounds()).isEmpty());
}

void EditorDrawers::drawerDidTapMiniature(QVMDrawerView&, std::int32_t code) {
    constexpr std::int32_t tapped = 1;
    if (code == tapped) hideVisiblePresenting(nullptr);
}

bool EditorDrawers::canDrawerViewToggleVisibilityToVisibility(QVMDrawerView& drawer, bool visible) {
    if (&drawer != presets_) return true;
    if (visible)
        presentPresets();
    else
        dismissPresets();
    return true;
}

void EditorDrawers::presentPresets() {
    waiting_ = nullptr; // it waited for an end that does not come
    BasicAnimation fadeIn = fade(*presets_->layer(), 1, fadeInSeconds);
    presets_->layer()->animations().removeAll();
    QVMAnimateViewToFromDuration(*clumpsView_, QVMTransformFromArray(miniatureSteps, translationBase), std::nullopt,
                                 openSeconds);
    if (!backdrop_) {
        const Rect behind = EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView;
        backdrop_ = &editor_.addSubview(std::make_unique<DrawerBackdrop>(behind, *presets_), Order::below, clumpsView_);
    }
    backdrop_->setHidden(false);
    presets_->setVisibility(true);
    presets_->layer()->animations().add(std::move(fadeIn), "fadeIn");
}

void EditorDrawers::dismissPresets() {
    BasicAnimation fadeOut = fade(*presets_->layer(), 0, fadeOutSeconds);
    fadeOut.completion = [this](bool finished) { presetsDidFadeOut(finished); };
    presets_->layer()->animations().removeAll();
    QVMAnimateViewToFromDuration(*clumpsView_, QVMTransformFromArray(identitySteps, translationBase), std::nullopt,
                                 closeSeconds);
    presets_->layer()->setOpacity(0);
    presets_->layer()->animations().add(std::move(fadeOut), "fadeOut");
    delegate_.presetsDrawerWillClose();
}

// `finished` is false when the drawer was opened again, or goes away, before it had closed.
void EditorDrawers::presetsDidFadeOut(bool finished) {
    if (!finished) return;
    presets_->shiftOutOfView();
    backdrop_->setHidden(true);
    if (QVMDrawerView* next = std::exchange(waiting_, nullptr)) hideVisiblePresenting(next);
}

} // namespace QVM_NAMESPACE
