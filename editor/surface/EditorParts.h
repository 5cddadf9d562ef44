// The views that the surface is put together from, in the order in which they stand, and where each layout has them.
//
// The editor owns them as its subviews; each is made once and is null before that. What they do is wired by whoever
// puts them together. Main thread only.
#pragma once

#include "description/QVMConfig.h"
#include "editor/surface/EditorLayout.h"

#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class EditorScale;
class FrameButton;
class NoticeView;
class ParameterControls;
class QVMClumpView;
class QVMClumpsView;
class QVMParameterControl;
class QVMPowerBox;
class QVMPresetBar;
class ScaleGrip;
class View;

class EditorParts {
public:
    // Both are borrowed; the parts are added to the editor.
    EditorParts(View& editor, const QVMConfig& config) : editor_(editor), config_(config) {}

    // The column, the area for the clumps, and the bar. Nothing is added a second time.
    void addFrame();
    // Every clump with its controls, and the area for the advanced ones, hidden at first.
    void addClumps(ParameterControls& controls);
    // The button that leads to the compact form, above all that is there.
    FrameButton& addFrameButton();

    QVMPowerBox* powerBox() const { return powerBox_; }
    QVMClumpsView* clumpsView() const { return clumpsView_; }
    QVMClumpsView* advClumpsView() const { return advClumpsView_; } // none without advanced controls
    QVMClumpView* masterClump() const { return masterClump_; }
    QVMPresetBar* presetBar() const { return presetBar_; }
    FrameButton* frameButton() const { return frameButton_; }
    NoticeView* notice() const { return notice_; } // none before the first notice
    // The areas with clump views in them.
    std::vector<const View*> areas() const;
    // Null when there is none.
    QVMClumpView* clumpViewWithCodename(std::string_view codesafeName) const;

    // Everything where a layout variant has it, the editor itself included. `power` is the control of the master
    // switch, or null.
    void assumeLayout(std::int32_t altFrame, QVMParameterControl* power, DrawerPlace drawer = DrawerPlace::beside);
    // Above all that is there, too: by which the editor is dragged to another size. It shows while the pointer, which
    // is given in the editor, is near.
    void addScaleGrip(EditorScale& scale);
    ScaleGrip* scaleGrip() const { return grip_; }
    void pointerMoved(Point at);
    void pointerLeft();
    // Says something over the controls for a few seconds.
    void showNotice(std::string what, std::string why);

private:
    QVMClumpView& addClump(QVMClump& clump, const Rect& frame, View& container, ParameterControls& controls);
    void layOutFrameButton();
    void layOutNotice();

    View& editor_;
    const QVMConfig& config_;
    std::int32_t altFrame_ = QVMAltFrameNormal;
    QVMPowerBox* powerBox_ = nullptr;
    QVMClumpsView* clumpsView_ = nullptr;
    QVMClumpsView* advClumpsView_ = nullptr;
    QVMClumpView* masterClump_ = nullptr;
    QVMPresetBar* presetBar_ = nullptr;
    FrameButton* frameButton_ = nullptr;
    NoticeView* notice_ = nullptr;
    ScaleGrip* grip_ = nullptr;
};

} // namespace QVM_NAMESPACE
