#include "editor/surface/SpectrumMenu.h"

#include "editor/surface/EditorMenuItem.h"
#include "editor/surface/QVMGenericUI.h"

#include <array>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

struct Choice {
    SpectrumMode mode;
    const char* title;
    const char* ownTitle; // where "Spectrum" does not stand before it
};
constexpr std::array<Choice, 3> choices = {
    {{SpectrumMode::off, "Off", "No spectrum"},
     {SpectrumMode::output, "Output", "Spectrum of output"},
     {SpectrumMode::inputAndOutput, "Input and output", "Spectrum of input and output"}}};

void choose(QVMGenericUI& ui, SpectrumMode mode) {
    ui.sketches().spectrum().setMode(mode);
    ui.preferences().report(EditorSpectrum::preferenceKey);
}

} // namespace

std::vector<MenuItem> spectrumItems(QVMGenericUI& ui) {
    const bool isSmall = ui.altFrame() == QVMAltFrameCompact;
    std::vector<MenuItem> items;
    for (const Choice& choice : choices) {
        const auto chooseIt = [mode = choice.mode](QVMGenericUI& editor) { choose(editor, mode); };
        items.push_back(ticked(ui.sketches().spectrum().mode() == choice.mode,
                               menuItem(isSmall ? choice.ownTitle : choice.title, onEditor(ui, chooseIt))));
    }
    if (isSmall) return items;
    return {submenu("Spectrum", std::move(items))};
}

} // namespace QVM_NAMESPACE
