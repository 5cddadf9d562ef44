// The ground behind the clumps view while the presets drawer is open. The clumps view stands as a miniature behind the
// drawer, so what is to be seen around it while it shrinks is neither's. Main thread only.
#pragma once

#include "editor/ThemedView.h"

namespace QVM_NAMESPACE {

class DrawerBackdrop final : public ThemedView {
public:
    // Hidden at first, because the clumps view covers it.
    explicit DrawerBackdrop(const Rect& frame) : ThemedView(frame) {
        layer()->setName("drawerBackdrop");
        setHidden(true);
        DrawerBackdrop::themeUpdated();
    }
    void themeUpdated() override { layer()->setBackgroundColor(QVMUITheme::theme().palette.drawer); }
    // Takes no clicks.
    View* hitTest(Point) override { return nullptr; }
};

} // namespace QVM_NAMESPACE
