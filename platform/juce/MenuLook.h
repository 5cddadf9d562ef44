// How menus and tooltips look: the product's face on a quiet dark ground.
#pragma once

#include "platform/Menu.h"
#include "platform/juce/FaceLibrary.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

class MenuLook final : public juce::LookAndFeel_V4 {
public:
    // Borrowed.
    explicit MenuLook(FaceLibrary& faces);

    juce::Font getPopupMenuFont() override;
    juce::Font getAlertWindowFont() override { return getPopupMenuFont(); }

    // The toolkit's menu for ours; items call their actions.
    static juce::PopupMenu toolkitMenu(const std::string& title, const std::vector<MenuItem>& items);

private:
    FaceLibrary& faces_;
};

} // namespace QVM_NAMESPACE
