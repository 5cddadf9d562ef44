#include "plugin/SlantwiseEditor.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"
#include "platform/runloop/NotificationCenter.h"
#include "plugin/FramePlace.h"
#include "theme/QVMUITheme.h"
#include "toolkit/Conversions.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double openingSeconds = 2;

Size layoutSize(DrawerPlace drawer) {
    return EditorLayoutForAltFrame(QVMAltFrameDoubleWide, drawer).editor.size();
}

} // namespace

SlantwiseEditor::SlantwiseEditor(SlantwiseProcessor& owner, WindowComponent::Embedding embedding)
    : juce::AudioProcessorEditor(owner), processor_(owner), presets_(PresetFolder::ofUser()), component_(embedding),
      restores_(owner.unit().restoreCount()) {
    // A host may open the editor on another thread than the one that served messages so far.
    RunLoop::main().becomeMainThread();
    opened_ = RunLoop::main().now();
    view_ =
        &component_.window().setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&owner.unit(), {}));
    view_->ui().session().presets().list().user().setStore(&presets_);
    presses_ = owner.gestures().follow(component_.window());
    addAndMakeVisible(component_);
    theme_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                         [this](const Notification&) { repaint(); });
    component_.setContentSizeHandler([this] { askForFrame(); });
    view_->ui().scale().setFitter([this] { fitFrame(EditorScale::Kept::no); });
    setConstrainer(&limits_);
    followScale();
    askForFrame();
}

SlantwiseEditor::~SlantwiseEditor() {
    view_->ui().scale().keepWaiting();
    presses_.reset();
    setConstrainer(nullptr);
    component_.setContentSizeHandler(nullptr);
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

Size SlantwiseEditor::contentSize() const {
    return view_->bounds().size();
}

Size SlantwiseEditor::shapeFor(Size frame) const {
    constexpr double much = 1.15;
    const Size content = contentSize(), over = layoutSize(DrawerPlace::over);
    const bool isWide = content == layoutSize(DrawerPlace::beside);
    return isWide && scaleToFit(over, frame) > scaleToFit(content, frame) * much ? over : content;
}

void SlantwiseEditor::askForFrame() {
    if (isPlacing_ || isFitting_) return;
    const Size content = view_->frame().size(), plain = contentSize();
    limits_.setContent({plain.width * scale_, plain.height * scale_});
    frame_.ask({std::ceil(content.width * scale_), std::ceil(content.height * scale_)});
    layOut(); // also where that is the size it has
}

void SlantwiseEditor::resized() {
    if (isPlacing_ || isFitting_) return;
    const bool isHosts = frame_.takesAsHosts(frameSize());
    // What was asked for fits as it is: to scale it to its rounded sides would ask for this form's frame anew, while
    // another form's may be on its way.
    EditorScale& scale = view_->ui().scale();
    const bool isAsAsked = fillsFrame(contentSize(), scale_ * double{scale.current()}, frameSize());
    if (!isHosts && (isAsAsked || !scale.fitsWindow())) return layOut();
    // What a host gives at the opening is what it has kept itself.
    const bool isUsers =
        isHosts && hasShapeOf(contentSize(), frameSize()) && RunLoop::main().now() - opened_ > openingSeconds;
    fitFrame(isUsers ? EditorScale::Kept::yes : EditorScale::Kept::no);
}

void SlantwiseEditor::fitFrame(EditorScale::Kept kept) {
    {
        const juce::ScopedValueSetter<bool> fitting(isFitting_, true);
        view_->ui().scale().followWindow(static_cast<float>(scaleToFit(shapeFor(frameSize()), frameSize()) / scale_),
                                         kept);
    }
    layOut();
}

void SlantwiseEditor::layOut() {
    if (std::exchange(isPlacing_, true)) return;
    const Size frame = frameSize(), content = contentSize();
    const double wanted = scale_ * double{view_->ui().currentScale()};
    const bool isInside = fitsFrame(content, wanted, frame);
    view_->ui().setDrawerPlace(isInside ? DrawerPlace::beside : DrawerPlace::over);
    const bool isDrawerOver = !isInside && content == layoutSize(DrawerPlace::beside);
    const FramePlace place = placeInFrame(isDrawerOver ? layoutSize(DrawerPlace::over) : content, wanted, frame);
    component_.setTopLeftPosition(0, 0);
    component_.setTransform(juce::AffineTransform::scale(static_cast<float>(place.scale))
                                .translated(static_cast<float>(place.origin.x), static_cast<float>(place.origin.y)));
    view_->ui().scale().setShown(place.scale / scale_, {place.origin.x / scale_, place.origin.y / scale_});
    repaint();
    isPlacing_ = false;
}

void SlantwiseEditor::paint(juce::Graphics& g) {
    g.excludeClipRegion(component_.getBoundsInParent());
    g.fillAll(toToolkit(QVMUITheme::theme().palette.sidePanel));
}

} // namespace QVM_NAMESPACE
