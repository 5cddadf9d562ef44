#include "editor/surface/EditorSpectrum.h"

#include "theme/QVMUITheme.h"
#include "viz/displays/SpectrumBackdrop.h"
#include "viz/sketches/QVMParameterSketch.h"

namespace QVM_NAMESPACE {

namespace {

SpectrumColours coloursOfTheme() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    return {palette.spectrumArea, palette.spectrumEdge, palette.spectrumInput};
}

} // namespace

EditorSpectrum::EditorSpectrum()
    : themeUpdates_(NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                [this](const Notification&) {
                                                                    if (SpectrumBackdrop* const spectrum = shown())
                                                                        spectrum->setColours(coloursOfTheme());
                                                                })) {}

void EditorSpectrum::setSketch(QVMParameterSketch* sketch) {
    sketch_ = sketch;
    apply();
}

void EditorSpectrum::setMode(SpectrumMode mode) {
    if (mode == mode_) return;
    mode_ = mode;
    apply();
}

void EditorSpectrum::restore(double kept) {
    for (const SpectrumMode mode : {SpectrumMode::output, SpectrumMode::inputAndOutput})
        if (kept == static_cast<double>(mode)) return setMode(mode);
    setMode(SpectrumMode::off);
}

SpectrumBackdrop* EditorSpectrum::shown() const {
    return sketch_ ? dynamic_cast<SpectrumBackdrop*>(sketch_->backdrop()) : nullptr;
}

void EditorSpectrum::apply() {
    if (!sketch_) return;
    sketch_->setBackdrop(nullptr); // one at a time has the signal
    if (mode_ != SpectrumMode::off)
        sketch_->setBackdrop(std::make_unique<SpectrumBackdrop>(sketch_->getVizRef(), mode_, coloursOfTheme()));
}

} // namespace QVM_NAMESPACE
