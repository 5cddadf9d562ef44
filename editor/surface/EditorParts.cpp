#include "editor/surface/EditorParts.h"

#include "editor/surface/FrameButton.h"
#include "editor/surface/NoticeView.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/ScaleGrip.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

// What has no room in a layout, or stands outside the view it is in, is not part of it; its content would show all the
// same, or an edge of it where a fraction of a pixel is rounded up.
void place(View* view, const Rect& frame, const Rect& room) {
    if (!view) return;
    view->setFrame(frame);
    view->setHidden(frame.intersectionWith(room).isEmpty());
}

} // namespace

void EditorParts::addFrame() {
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    if (!powerBox_) {
        const auto advanced = config_.hasAdvancedControls() ? AdvancedControls::yes : AdvancedControls::no;
        powerBox_ = &editor_.addSubview(std::make_unique<QVMPowerBox>(layout.powerBox, advanced, *config_.metadata));
    }
    if (!clumpsView_) {
        clumpsView_ = &editor_.addSubview(std::make_unique<QVMClumpsView>(layout.clumpsView, config_));
        clumpsView_->setDrawOutsideBorder(false);
    }
    if (!presetBar_)
        presetBar_ = &editor_.addSubview(std::make_unique<QVMPresetBar>(layout.presetBar, config_.presets));
}

void EditorParts::addClumps(ParameterControls& controls) {
    if (!controls.all().empty()) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    config_.enumerateClumpsOfType(QVMClumpTypeOrdinary,
                                  [&](QVMClump& clump) { addClump(clump, clump.frame, *clumpsView_, controls); });
    if (config_.hasAdvancedControls()) {
        advClumpsView_ =
            &editor_.addSubview(std::make_unique<QVMClumpsView>(layout.advClumpsView, config_, ClumpsArea::advanced));
        config_.enumerateClumpsOfType(
            QVMClumpTypeAdvanced, [&](QVMClump& clump) { addClump(clump, clump.frame, *advClumpsView_, controls); });
        advClumpsView_->setHidden(true); // until its layout is assumed
    }
    const std::vector<QVMClump*> masters = config_.clumpsOfType(QVMClumpTypeMaster);
    if (!masters.empty()) masterClump_ = &addClump(*masters.front(), layout.powerBox, editor_, controls);
}

QVMClumpView& EditorParts::addClump(QVMClump& clump, const Rect& frame, View& container, ParameterControls& controls) {
    QVMClumpView& clumpView = container.addSubview(std::make_unique<QVMClumpView>(frame, clump));
    View& around = clump.clumpType == QVMClumpTypeAdvanced ? *advClumpsView_ : *clumpsView_;
    controls.addClump(clump, clumpView, around);
    return clumpView;
}

FrameButton& EditorParts::addFrameButton() {
    if (!frameButton_) frameButton_ = &editor_.addSubview(std::make_unique<FrameButton>());
    layOutFrameButton();
    return *frameButton_;
}

std::vector<const View*> EditorParts::areas() const {
    std::vector<const View*> found;
    for (const View* area : {clumpsView_, advClumpsView_})
        if (area) found.push_back(area);
    return found;
}

QVMClumpView* EditorParts::clumpViewWithCodename(std::string_view codesafeName) const {
    for (const View* area : areas()) {
        for (const auto& subview : area->subviews()) {
            auto* clumpView = dynamic_cast<QVMClumpView*>(subview.get());
            if (clumpView && clumpView->clump().codesafeName == codesafeName) return clumpView;
        }
    }
    return masterClump_ && masterClump_->clump().codesafeName == codesafeName ? masterClump_ : nullptr;
}

void EditorParts::assumeLayout(std::int32_t altFrame, QVMParameterControl* power, DrawerPlace drawer) {
    altFrame_ = altFrame;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_, drawer);
    editor_.setFrame(layout.editor);
    place(clumpsView_, layout.clumpsView, layout.editor);
    place(presetBar_, layout.presetBar, layout.editor);
    place(powerBox_, layout.powerBox, layout.editor);
    place(power, layout.powerControl, {0, 0, layout.powerBox.width, layout.powerBox.height});
    place(advClumpsView_, layout.advClumpsView, layout.editor);
    if (powerBox_) powerBox_->assumeLayout(layout);
    layOutFrameButton();
    layOutNotice();
    if (grip_) grip_->placeIn(layout.editor.size());
}

void EditorParts::addScaleGrip(EditorScale& scale) {
    if (!grip_) grip_ = &editor_.addSubview(std::make_unique<ScaleGrip>(scale));
    grip_->placeIn(EditorLayoutForAltFrame(altFrame_).editor.size());
}

void EditorParts::pointerMoved(Point at) {
    if (grip_) grip_->pointerMoved(at);
}

void EditorParts::pointerLeft() {
    if (grip_) grip_->pointerLeft();
}

// In the corner of the curve.
void EditorParts::layOutFrameButton() {
    if (!frameButton_) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    const Rect curve = layout.sketchPlace.offsetBy(layout.powerBox.x, layout.powerBox.y);
    const bool isCompact = altFrame_ == QVMAltFrameCompact;
    const Rect corner = FrameButton::placeIn(curve, isCompact ? FrameButton::inset : 0);
    place(frameButton_, curve.isEmpty() ? Rect{} : corner, layout.editor);
    frameButton_->setDestination(isCompact ? FrameButton::Destination::wholeEditor
                                           : FrameButton::Destination::compactForm);
}

void EditorParts::showNotice(std::string what, std::string why) {
    if (!notice_) notice_ = &editor_.addSubview(std::make_unique<NoticeView>());
    layOutNotice();
    notice_->show(std::move(what), std::move(why));
}

// Over the controls, or over the curve where that is all there is.
void EditorParts::layOutNotice() {
    if (!notice_) return;
    const QVMEditorLayout& layout = EditorLayoutForAltFrame(altFrame_);
    const Rect shown = layout.clumpsView.intersectionWith(layout.editor);
    notice_->placeIn(shown.isEmpty() ? layout.editor : shown);
}

} // namespace QVM_NAMESPACE
