// The drawers of the editor: which of them is open, which waits for another to close, and how the presets drawer comes
// and goes with the clumps view as a miniature behind it.
//
// At most one is open; opening one closes the others first. Main thread only.
#pragma once

#include "editor/surface/QVMDrawerView.h"
#include "platform/runloop/DelayedCall.h"

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class DrawerBackdrop;
class QVMPresetsDrawer;

// What the drawers mean for what is around them.
class EditorDrawersDelegate {
public:
    virtual ~EditorDrawersDelegate() = default;
    // A drawer is about to open: the controls that it covers can have no focus.
    virtual void drawerWillOpen() = 0;
    // The presets drawer is about to close, and whoever had the keys before has them again.
    virtual void presetsDrawerWillClose() = 0;
};

class EditorDrawers final : private QVMDrawerViewDelegate {
public:
    // Both are borrowed. The editor is the view that the drawers stand in, and owns them.
    EditorDrawers(View& editor, EditorDrawersDelegate& delegate) : editor_(editor), delegate_(delegate) {}

    // What the drawers cover, borrowed. To be set before one is opened.
    void setClumpsView(View& clumpsView) { clumpsView_ = &clumpsView; }
    // Takes a drawer in, below `bar`, or above everything where that is null.
    QVMDrawerView& add(std::unique_ptr<QVMDrawerView> drawer, const View* bar);
    QVMPresetsDrawer& addPresets(std::unique_ptr<QVMPresetsDrawer> drawer, const View* bar);
    // Null before it was added.
    QVMPresetsDrawer* presets() const { return presets_; }
    bool arePresetsOpen() const;
    bool isAnyOpen() const;

    // Opens or closes one. While the presets drawer is to be closed for it, it waits for the end of that, unless it is
    // forced.
    void toggle(QVMDrawerView& drawer, bool force);
    // Closes every open drawer but one, and opens that one, which may be null; true when it closed any.
    bool hideVisiblePresenting(QVMDrawerView* drawer);
    // Closes one, if it is open and not the excepted one; true when it did.
    static bool hideUnlessEqual(QVMDrawerView* drawer, const QVMDrawerView* excepted);
    void hideIfVisible(QVMDrawerView* drawer);
    // Nothing of what is covered is seen behind a drawer that covers it.
    void hideClumpsView();
    // Opens when the presets drawer has closed; null for none.
    QVMDrawerView* waiting() const { return waiting_; }

private:
    // QVMDrawerViewDelegate
    bool canDrawerViewToggleVisibilityToVisibility(QVMDrawerView& drawer, bool visible) override;
    void drawerDidTapMiniature(QVMDrawerView& drawer, std::int32_t code) override;

    std::vector<QVMDrawerView*> all() const;
    void presentPresets();
    void dismissPresets();
    void presetsDidFadeOut(bool finished);
    void showClumpsView();

    View& editor_;
    EditorDrawersDelegate& delegate_;
    View* clumpsView_ = nullptr;
    QVMPresetsDrawer* presets_ = nullptr;
    QVMDrawerView* waiting_ = nullptr;
    DrawerBackdrop* backdrop_ = nullptr; // none before the presets were opened
    DelayedCall hideClumpsViewCall_;
};

} // namespace QVM_NAMESPACE
