#include "editor/surface/SpectrumMenu.h"

#include "editor/surface/QVMGenericUI.h"
#include "platform/view/Menu.h"

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
        MenuItem& item = items.emplace_back();
        item.title = isSmall ? choice.ownTitle : choice.title;
        item.checked = ui.sketches().spectrum().mode() == choice.mode;
        item.action = [&ui, lifetime = ui.lifetime(), mode = choice.mode] {
            if (!lifetime.expired()) choose(ui, mode);
        };
    }
    if (isSmall) return items;
    MenuItem all;
    all.title = "Spectrum";
    all.submenu = std::move(items);
    return {std::move(all)};
}

} // namespace QVM_NAMESPACE
