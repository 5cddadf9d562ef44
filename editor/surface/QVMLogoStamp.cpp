#include "editor/surface/QVMLogoStamp.h"

#include "editor/surface/QVMBase64Decoder.h"

namespace QVM_NAMESPACE {

QVMLogoStamp::QVMLogoStamp(const Rect& frame, std::string_view logo) : View(frame) {
    layer()->setName("logoStamp");
    if (auto image = QVMImageFromBase64String(logo)) layer()->look().setContents(image, ContentsGravity::resizeAspect);
}

} // namespace QVM_NAMESPACE
