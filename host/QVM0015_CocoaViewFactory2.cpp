#include "host/QVM0015_CocoaViewFactory2.h"

#include "editor/surface/EditorLayout.h"
#include "host/QVM0015_CocoaView2.h"

namespace QVM_NAMESPACE {

std::uint32_t QVM0015_CocoaViewFactory2::interfaceVersion() const {
    return QVM_VERSION_INTEGER;
}

const char* QVM0015_CocoaViewFactory2::description() const {
    return "Cocoa View 2";
}

std::unique_ptr<QVM0015_CocoaView2> QVM0015_CocoaViewFactory2::uiViewForAudioUnitWithSize(AudioUnit unit, Size) const {
    auto view = std::make_unique<QVM0015_CocoaView2>(EditorLayoutForAltFrame(QVMAltFrameNormal).editor);
    view->setAU(unit);
    return view;
}

} // namespace QVM_NAMESPACE
