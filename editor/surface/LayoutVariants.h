// Which layout variant the editor has, and the way to another one.
//
// The editor never takes another size by itself: it asks its delegate, and whoever has the window answers with the
// variant that it is to assume. Variants are QVMAltFrame. Main thread only.
#pragma once

#include "editor/surface/EditorLayout.h"
#include "platform/runloop/DelayedCall.h"

#include <cstdint>
#include <optional>

namespace QVM_NAMESPACE {

class QVMGenericUI;

class LayoutVariants {
public:
    // The editor is borrowed; nothing is asked of it here.
    explicit LayoutVariants(QVMGenericUI& ui) : ui_(ui) {}

    std::int32_t current() const { return current_; }
    void request(std::int32_t altFrame);
    // Asks once more for the variant that is being asked for, or for the present one: at another scale.
    void requestAgain() { request(asked_.value_or(current_)); }
    // Puts everything where the variant has it, and tells the delegate to keep that. No drawer stays open over the
    // compact form.
    void assume(std::int32_t altFrame, bool scaleChanged);
    // Asks for a variant that was kept; nothing happens for the present one and for a number that none has.
    void restore(std::uint32_t kept);
    // Asks for the drawer of advanced controls, or for the editor without it.
    void toggleDoubleWide();
    // Asks for the compact form, or for the editor without a drawer. An open presets drawer is closed first, and then
    // it is asked half a second later.
    void toggleCompact();
    // Where the advanced drawer opens, in the variant that has it.
    void setDrawerPlace(DrawerPlace place);

private:
    void requestNext();
    void layOut();

    QVMGenericUI& ui_;
    std::int32_t current_ = QVMAltFrameNormal;
    std::optional<std::int32_t> asked_; // while the delegate is asked: a window may have another size before it answers
    DrawerPlace drawerPlace_ = DrawerPlace::beside;
    DelayedCall requestCall_;
};

} // namespace QVM_NAMESPACE
