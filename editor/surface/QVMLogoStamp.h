// The product's logo at the foot of the power box; it fades while the editor has no keyboard focus. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"
#include "platform/surface/Image.h"

#include <memory>
#include <string_view>

namespace QVM_NAMESPACE {

class QVMLogoStamp final : public ThemedView {
public:
    // `logo` is the description's PNG as base64; without a picture the stamp stays empty.
    QVMLogoStamp(const Rect& frame, std::string_view logo);

    // A theme that inverts labels has the picture's light and dark exchanged as well; its hues stay.
    void themeUpdated() override;

private:
    const std::shared_ptr<const Image> logo_;
    bool showsInverted_ = false;
};

} // namespace QVM_NAMESPACE
