// Where things stand in the editor: asked of an editor of our own that shows a unit of our own, with no window. The
// editor under test is another one, in a bundle, of which only the pixels can be seen.
#pragma once

#include "platform/view/Window.h"
#include "unit/QVM0015_AudioUnit.h"

#include <cstdint>
#include <memory>

namespace QVM_NAMESPACE {

class Menu;
class QVM0015_CocoaView2;
class QVMVerticalSlider;

class EditorMap {
public:
    static constexpr std::uint32_t menuColour = 0xFCFBFA; // the ground of menus and tooltips, 0xRRGGBB

    // Where the pictures stand.
    static constexpr Rect curveBox{422, 196, 54, 62}, meterTrack{350, 60, 15, 157};

    EditorMap();
    ~EditorMap();

    // Points in the editor, y down. `shownValue` is in the shown domain.
    Point handleOf(std::uint32_t pid, float shownValue);
    Rect frameOf(std::uint32_t pid);
    // A corner of the curve in the small window, while nothing changes the sound.
    static Point cornerOf(double hertz);
    // What the right button opens there, in an editor that nobody has touched.
    std::unique_ptr<Menu> menuAt(Point at);

private:
    QVMVerticalSlider& slider(std::uint32_t pid);

    QVM0015_AudioUnit unit_;
    Window window_;
    QVM0015_CocoaView2* view_ = nullptr; // owned by the window
};

} // namespace QVM_NAMESPACE
