// The gallery's keyboard: Tab walks the exhibits of a page, arrows step, digits are typed and Return takes them.
#pragma once

#include "controls/QVMParameterControl.h"
#include "platform/view/Event.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class GalleryKeys {
public:
    // The controls that Tab walks, in its order; borrowed until the next call. Nothing has the focus then.
    void setControls(std::vector<QVMParameterControl*> controls);

    QVMParameterControl* focused() const { return focused_; }
    // Null for none.
    void focus(QVMParameterControl* control);
    // True when the key was for the gallery. Arrows come this way too.
    bool handleKey(const Event& event);
    // What has been typed and not been taken yet.
    const std::string& typed() const { return typed_; }

private:
    void focusNext(int direction);
    bool type(char32_t character);
    bool take();
    void showTyped();

    std::vector<QVMParameterControl*> controls_;
    QVMParameterControl* focused_ = nullptr;
    std::string typed_;
};

} // namespace QVM_NAMESPACE
