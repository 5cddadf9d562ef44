#include "plugin/SlantwiseEditor.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/system/UserFolders.h"
#include "plugin/FramePlace.h"
#include "theme/QVMUITheme.h"
#include "toolkit/Conversions.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

Size layoutSize(DrawerPlace drawer) {
    return EditorLayoutForAltFrame(QVMAltFrameDoubleWide, drawer).editor.size();
}

std::filesystem::path presetsFolder() {
    const std::filesystem::path data = userDataFolder();
    return data.empty() ? data : data / "presets";
}

} // namespace

SlantwiseEditor::SlantwiseEditor(SlantwiseProcessor& owner, WindowComponent::Embedding embedding)
    : juce::AudioProcessorEditor(owner), processor_(owner), presets_(presetsFolder()), component_(embedding),
      restores_(owner.unit().restoreCount()) {
    // A host may open the editor on another thread than the one that served messages so far.
    RunLoop::main().becomeMainThread();
    view_ =
        &component_.window().setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&owner.unit(), {}));
    view_->ui().session().presets().list().user().setStore(&presets_);
    presses_ = owner.gestures().follow(component_.window());
    addAndMakeVisible(component_);
    theme_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                         [this](const Notification&) { repaint(); });
    followScale();
    askForFrame();
    setResizable(false, false);
}

SlantwiseEditor::~SlantwiseEditor() {
    presses_.reset();
    component_.window().takeContentView();
}

void SlantwiseEditor::setScaleFactor(float factor) {
    if (std::exchange(hasFactor_, true) || factor != 1) processor_.setScaledByHost();
    juce::AudioProcessorEditor::setScaleFactor(factor);
}

void SlantwiseEditor::followScale() {
    const double scale = processor_.isScaledByHost() ? 1 : desktopScale_.value();
    if (std::exchange(scale_, scale) != scale) askForFrame();
}

void SlantwiseEditor::followHost() {
    followScale();
    frame_.refresh();
    const std::uint32_t restores = processor_.unit().restoreCount();
    if (std::exchange(restores_, restores) != restores) view_->adoptRestoredState();
    const std::int32_t index = processor_.unit().presetIndex();
    const auto chosen = static_cast<std::uint32_t>(index);
    if (index >= 0 && chosen != view_->ui().currentPreset()) view_->ui().lastSavedPresetWasKeyed(chosen);
}

void SlantwiseEditor::childBoundsChanged(juce::Component* child) {
    if (child == &component_ && !isPlacing_) askForFrame();
}

void SlantwiseEditor::askForFrame() {
    const Size content = view_->bounds().size();
    frame_.ask({std::ceil(content.width * scale_), std::ceil(content.height * scale_)});
    layOut(); // also where that is the size it has
}

void SlantwiseEditor::layOut() {
    if (std::exchange(isPlacing_, true)) return;
    const Size frame{double(getWidth()), double(getHeight())}, content = view_->bounds().size();
    const bool isInside = fitsFrame(content, scale_, frame);
    view_->ui().setDrawerPlace(isInside ? DrawerPlace::beside : DrawerPlace::over);
    const bool isDrawerOver = !isInside && content == layoutSize(DrawerPlace::beside);
    const FramePlace place = placeInFrame(isDrawerOver ? layoutSize(DrawerPlace::over) : content, scale_, frame);
    component_.setTopLeftPosition(0, 0);
    component_.setTransform(juce::AffineTransform::scale(static_cast<float>(place.scale))
                                .translated(static_cast<float>(place.origin.x), static_cast<float>(place.origin.y)));
    repaint();
    isPlacing_ = false;
}

void SlantwiseEditor::paint(juce::Graphics& g) {
    g.excludeClipRegion(component_.getBoundsInParent());
    g.fillAll(toToolkit(QVMUITheme::theme().palette.sidePanel));
}

} // namespace QVM_NAMESPACE
