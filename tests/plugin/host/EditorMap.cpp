#include "plugin/host/EditorMap.h"

#include "controls/QVMVerticalSlider.h"
#include "editor/surface/CurveScale.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"
#include "platform/view/Menu.h"
#include "response/ResponseModel.h"

namespace QVM_NAMESPACE {

EditorMap::EditorMap() {
    RunLoop::main().becomeMainThread();
    view_ = &window_.setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&unit_, {}));
}

EditorMap::~EditorMap() {
    window_.takeContentView();
}

QVMVerticalSlider& EditorMap::slider(std::uint32_t pid) {
    return dynamic_cast<QVMVerticalSlider&>(*view_->ui().parameterControlWithPid(pid)->primaryControl());
}

Point EditorMap::handleOf(std::uint32_t pid, float shownValue) {
    QVMVerticalSlider& it = slider(pid);
    Point inSlider = it.readoutBulb()->position();
    (it.horizontal() ? inSlider.x : inSlider.y) = it.positionValueFromFloatValue(shownValue);
    return it.coordinates().toWindow(inSlider);
}

Rect EditorMap::frameOf(std::uint32_t pid) {
    const QVMParameterControl& control = *view_->ui().parameterControlWithPid(pid);
    return control.coordinates().toWindow(control.bounds());
}

Point EditorMap::cornerOf(double hertz) {
    CurveScale scale;
    scale.size = EditorLayoutForAltFrame(QVMAltFrameCompact).sketchPlace.size();
    scale.lowestHertz = model::lowestHertz;
    scale.highestHertz = model::highestHertz;
    return {scale.xOf(hertz), scale.size.height / 2};
}

std::unique_ptr<Menu> EditorMap::menuAt(Point at) {
    Event press;
    press.type = EventType::rightMouseDown;
    press.locationInWindow = at;
    return view_->ui().menuForEvent(press);
}

} // namespace QVM_NAMESPACE
