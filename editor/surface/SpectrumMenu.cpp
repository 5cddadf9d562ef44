#include "editor/surface/SpectrumMenu.h"

#include "editor/surface/QVMGenericUI.h"
#include "platform/view/Menu.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

struct Choice {
    SpectrumMode mode;
    const char* title;
};
constexpr std::array<Choice, 3> choices = {
    {{SpectrumMode::off, "Off"}, {SpectrumMode::output, "Output"}, {SpectrumMode::inputAndOutput, "Input and output"}}};

void choose(QVMGenericUI& ui, SpectrumMode mode) {
    ui.sketches().spectrum().setMode(mode);
    ui.preferences().report(EditorSpectrum::preferenceKey);
}

} // namespace

MenuItem spectrumItem(QVMGenericUI& ui) {
    MenuItem made;
    made.title = "Spectrum";
    for (const Choice& choice : choices) {
        MenuItem& item = made.submenu.emplace_back();
        item.title = choice.title;
        item.checked = ui.sketches().spectrum().mode() == choice.mode;
        item.action = [&ui, lifetime = ui.lifetime(), mode = choice.mode] {
            if (!lifetime.expired()) choose(ui, mode);
        };
    }
    return made;
}

} // namespace QVM_NAMESPACE
