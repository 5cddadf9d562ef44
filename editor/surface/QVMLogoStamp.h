// The product's logo at the foot of the power box; it fades while the editor has no keyboard focus. Main thread only.
#pragma once

#include "platform/view/View.h"

#include <string_view>

namespace QVM_NAMESPACE {

class QVMLogoStamp final : public View {
public:
    // `logo` is the description's PNG as base64; without a picture the stamp stays empty.
    QVMLogoStamp(const Rect& frame, std::string_view logo);
};

} // namespace QVM_NAMESPACE
