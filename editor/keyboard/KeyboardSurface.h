// What keys, buttons and menu items may ask of the surface, whatever it looks like. All calls come on the main thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class QVMParameterControl;

class KeyboardSurface {
public:
    virtual ~KeyboardSurface() = default;

    // Null when there is none.
    virtual QVMParameterControl* parameterControlWithPid(std::uint32_t pid) const = 0;
    // Every control's parameter to its initial value.
    virtual void resetInitialValues() = 0;

    // Both tell whether there was anything to do.
    virtual bool hideAllDrawers() = 0;
    virtual bool togglePresetsDrawer() = 0;
    // The drawer of advanced controls; the compact form; light and dark.
    virtual void toggleDoubleWide() = 0;
    virtual void toggleFrame() = 0;
    virtual void toggleUITheme() = 0;
    // The next larger (1) or smaller (-1) size, or the plain one (0).
    virtual void stepScale(int direction) = 0;

    // Named by the contract and not used in this product.
    virtual void hideAllControls() = 0;
    virtual void freakout() = 0;
};

} // namespace QVM_NAMESPACE
