// The ground of the presets drawer. The clumps view stands as a miniature behind the drawer, so what is to be seen
// around it while it shrinks lies behind both. Main thread only.
#pragma once

#include "editor/surface/QVMDrawerView.h"

namespace QVM_NAMESPACE {

class DrawerBackdrop final : public ThemedView {
public:
    // Hidden at first, because the clumps view covers it. The drawer whose ground it is stands beside it, for as long.
    DrawerBackdrop(const Rect& frame, const QVMDrawerView& drawer) : ThemedView(frame), drawer_(drawer) {
        layer()->setName("drawerBackdrop");
        setHidden(true);
        DrawerBackdrop::themeUpdated();
    }
    void themeUpdated() override { drawer_.drawGround(*layer()); }
    // Takes no clicks.
    View* hitTest(Point) override { return nullptr; }

private:
    const QVMDrawerView& drawer_;
};

} // namespace QVM_NAMESPACE
