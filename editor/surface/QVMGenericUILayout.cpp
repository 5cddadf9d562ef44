// The layout variants, the backing scale, and what the side column's buttons do.
#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NoticeView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/Transaction.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"
#include "viz/sketches/QVMParameterSketch.h"

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t altFrameCount = 3, frameStep = 2;
constexpr double compactButtonInset = 6; // points
constexpr double drawerEndSeconds = 0.5; // until a drawer that was told to close is out of the way

// What has no room in a layout, or stands outside the view it is in, is not part of it; its content would show all the
// same, or an edge of it where a fraction of a pixel is rounded up.
void place(View* view, const Rect& frame, const Rect& room) {
    if (!view) return;
    view->setFrame(frame);
    view->setHidden(frame.intersectionWith(room).isEmpty());
}

} // namespace

void QVMGenericUI::requestFrame(std::int32_t altFrame) {
    if (delegate_) delegate_->interfaceWantsToAssumeFrame(*this, altFrame);
}

void QVMGenericUI::assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged) {
    altFrame_ = altFrame;
    if (altFrame_ == QVMAltFrameCompact) hideAllDrawers(); // they would lie over the whole of it
    assumeFrames();
    if (scaleChanged) viewDidChangeBackingProperties();
    if (powerBox_) {
        if (QVMSymbolButton* gear = powerBox_->gear()) gear->setSelected(altFrame_ == QVMAltFrameDoubleWide);
        powerBox_->themeUpdated();
    }
    if (delegate_) delegate_->interfaceWantsToSaveUIState(*this, static_cast<std::uint32_t>(altFrame_));
}

void QVMGenericUI::assumeFrames() {
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    setFrame(layout.editor);
    place(clumpsView_, layout.clumpsView, layout.editor);
    place(presetBar_, layout.presetBar, layout.editor);
    place(powerBox_, layout.powerBox, layout.editor);
    place(parameterControlWithPid(0), layout.powerControl, {0, 0, layout.powerBox.width, layout.powerBox.height});
    place(advClumpsView_, layout.advClumpsView, layout.editor);
    if (powerBox_) powerBox_->assumeLayout(layout);
    layOutSketch();
    layOutFrameButton();
    layOutNotice();
    focus_.dropIfHidden();
}

void QVMGenericUI::layOutSketch() {
    if (!sketch_) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    sketch_->setFrame(layout.sketchPlace);
    sketch_->layer()->setCornerRadius(layout.sketchPlaceRadius);
}

void QVMGenericUI::showNotice(std::string what, std::string why) {
    if (!notice_) notice_ = &addSubview(std::make_unique<NoticeView>());
    layOutNotice();
    notice_->show(std::move(what), std::move(why));
}

// Over the controls, or over the curve where that is all there is.
void QVMGenericUI::layOutNotice() {
    if (!notice_) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    const Rect shown = layout.clumpsView.intersectionWith(layout.editor);
    notice_->placeIn(shown.isEmpty() ? layout.editor : shown);
}

// In the corner of the curve.
void QVMGenericUI::layOutFrameButton() {
    if (!frameButton_) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    const Rect curve = layout.sketchPlace.offsetBy(layout.powerBox.x, layout.powerBox.y);
    const bool isCompact = altFrame_ == QVMAltFrameCompact;
    const double inset = isCompact ? compactButtonInset : 0;
    const Rect corner = {curve.maxX() - FrameButton::size.width - inset, curve.y + inset, FrameButton::size.width,
                         FrameButton::size.height};
    place(frameButton_, curve.isEmpty() ? Rect{} : corner, layout.editor);
    frameButton_->setDestination(isCompact ? FrameButton::Destination::wholeEditor
                                           : FrameButton::Destination::compactForm);
}

void QVMGenericUI::restoreUIState(std::uint32_t state) {
    const auto altFrame = static_cast<std::int32_t>(state);
    if (state < altFrameCount && altFrame != altFrame_) requestFrame(altFrame);
}

void QVMGenericUI::toggleFrame() {
    toggleFrameCall_.cancel();
    if (!presetDrawer_ || !presetDrawer_->visible()) {
        assumeNextFrame();
        return;
    }
    hideDrawerIfVisible(presetDrawer_);
    toggleFrameCall_.schedule(drawerEndSeconds, [this] { assumeNextFrame(); });
}

void QVMGenericUI::assumeNextFrame() {
    const std::int32_t next = altFrame_ + frameStep;
    requestFrame(next < altFrameCount ? next : QVMAltFrameNormal);
}

void QVMGenericUI::gearTapped() {
    requestFrame(altFrame_ == QVMAltFrameDoubleWide ? QVMAltFrameNormal : QVMAltFrameDoubleWide);
}

void QVMGenericUI::meterTapped() {
    if (delegate_) delegate_->interfaceWantsToResetMetering(*this);
}

void QVMGenericUI::setBackingScaleOnViewRecursively(View& view) {
    setBackingScaleOnLayerRecursively(*view.layer());
}

// A view's layers include those of its subviews.
void QVMGenericUI::setBackingScaleOnLayerRecursively(Layer& layer) {
    if (!window()) return;
    layer.setContentsScale(window()->backingScaleFactor());
    for (const auto& sublayer : layer.sublayers())
        setBackingScaleOnLayerRecursively(*sublayer);
}

void QVMGenericUI::viewDidChangeBackingProperties() {
    const auto immediately = Transaction::disablingActions();
    setBackingScaleOnViewRecursively(*this);
    sketchScaleDidChange();
}

void QVMGenericUI::toggleUITheme() {
    QVMUITheme::toggleThemeForWindow(window());
    if (powerBox_) powerBox_->layer()->setNeedsDisplay();
    layer()->setNeedsDisplay();
    if (delegate_) delegate_->interfaceDidUpdateInterfacePreferenceValue(*this, "theme", 1);
}

} // namespace QVM_NAMESPACE
