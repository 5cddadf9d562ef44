// Where things stand in the editor: asked of an editor of our own that shows a unit of our own, with no window. The
// editor under test is another one, in a bundle, of which only the pixels can be seen.
#pragma once

#include "platform/view/Window.h"
#include "unit/QVM0015_AudioUnit.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class QVM0015_CocoaView2;
class QVMVerticalSlider;

class EditorMap {
public:
    EditorMap();
    ~EditorMap();

    // Points in the editor, y down. `shownValue` is in the shown domain.
    Point handleOf(std::uint32_t pid, float shownValue);
    Rect frameOf(std::uint32_t pid);

private:
    QVMVerticalSlider& slider(std::uint32_t pid);

    QVM0015_AudioUnit unit_;
    Window window_;
    QVM0015_CocoaView2* view_ = nullptr; // owned by the window
};

} // namespace QVM_NAMESPACE
