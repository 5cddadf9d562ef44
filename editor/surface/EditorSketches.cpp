#include "editor/surface/EditorSketches.h"

#include "controls/QVMVerticalSlider.h"
#include "editor/session/ModesWithoutControl.h"
#include "editor/surface/ClipLight.h"
#include "editor/surface/CurveNumbers.h"
#include "editor/surface/NumericMeterReading.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMInsetShadowBox.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/ToolTips.h"
#include "platform/layer/Transaction.h"
#include "viz/sketches/QVMAuxiliarySketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double appearanceSeconds = 1;
constexpr std::size_t mainSketch = 0;                       // in PB_Sketches; the others are auxiliary
constexpr double meterGlyphSize = 12, meterSuffixSize = 10; // points
constexpr double meterShadowDrop = 2;                       // points
constexpr float meterAlpha = 0.7f;
constexpr float meterGap = 1;                  // points, between two channels
constexpr Point clipLightInset = {12.5, 14.5}; // from the upper right corner of the meter's slider
constexpr double ghostOpacity = 0.35, ghostSeconds = 0.25;

} // namespace

EditorSketches::EditorSketches(const QVMConfig& config, EditorValues& values, ParameterControls& controls)
    : config_(config), values_(values), controls_(controls) {}

EditorSketches::~EditorSketches() = default;

void EditorSketches::addNumericMeter(QVMPowerBox& box, std::function<void()> tapped) {
    if (!config_.metadata->numericMeter) return;
    // Its frame is empty until whoever draws the sketch finds a place for it.
    box.addSubview(std::make_unique<QVMInsetShadowBox>(Rect{0, meterShadowDrop, 0, 0}));
    const Color color = QVMUITheme::theme().palette.onAccent.withAlpha(meterAlpha);
    QVMMeterButton& meter = box.addSubview(std::make_unique<QVMMeterButton>(Rect{}, "", meterGlyphSize, color));
    meter.setAction([tapped = std::move(tapped)](Control&) { tapped(); });
    meter.setToolTip(toolTipOf(Button::meter, config_.metadata->numericMeter->tooltip));
    meter.setSuffixSize(meterSuffixSize);
    numericMeterReading_ = std::make_unique<NumericMeterReading>(meter);
}

void EditorSketches::add(QVMPowerBox& box, const QVMEditorLayout& layout, QVMParameterSketchDelegate& delegate,
                         const Settings& settings) {
    auto made =
        std::make_unique<QVMParameterSketch>(layout.sketchPlace, config_, static_cast<float>(settings.sampleRate),
                                             settings.maxFrames, settings.scale, settings.chanIn, settings.chanOut);
    sketch_ = made.get();
    sketch_->setDelegate(&delegate);
    sketch_->setValues(&values_);
    sketch_->setNumericMeter(numericMeterReading_.get());
    showMemoizedValues(*sketch_->getVizRef());
    sketch_->layer()->setMasksToBounds(true); // lines end at the rounded corners
    assumeLayout(layout);
    sketch_->setAlpha(0); // it becomes visible in its window
    {
        const Transaction appearing = Transaction::animated(appearanceSeconds);
        box.addSubview(std::move(made));
    }
    numbers_ = &sketch_->addSubview(
        std::make_unique<CurveNumbers>(*sketch_, values_, controls_, [&box] { return box.sketchGround(); }));
    numbers_->fit();
    spectrum_.setSketch(sketch_);
    for (std::size_t i = mainSketch + 1; i < PB_Sketches.size(); ++i)
        addAuxiliarySketch(PB_Sketches[i], settings);
    takeMeterInk();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { takeMeterInk(); });
    showGhost();
    describeMeters();
}

// A further sketch stands in the track of its parameter's slider, below the handle.
void EditorSketches::addAuxiliarySketch(const PBSketch& description, const Settings& settings) {
    QVMParameterControl* control = controls_.withPid(static_cast<std::uint32_t>(description.pid));
    auto* slider = control ? dynamic_cast<QVMVerticalSlider*>(control->primaryControl()) : nullptr;
    if (!slider) return;
    sketch_->addAuxiliarySketch(slider->addInTrack(std::make_unique<QVMAuxiliarySketch>(
        slider->bounds(), static_cast<float>(settings.sampleRate), settings.maxFrames, description,
        sketch_->getVizRef()->paramCount(), sketch_->getVizRef(), settings.scale, settings.chanIn, settings.chanOut)));
    const Point corner = {slider->bounds().width, slider->bounds().height}; // y up
    clipLights_.push_back(
        &slider->addSubview(std::make_unique<ClipLight>(corner - clipLightInset, sketch_->getVizRef().get())));
}

void EditorSketches::takeMeterInk() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    for (const QVMAuxiliarySketch* auxiliary : sketch_->auxiliarySketches())
        auxiliary->glSketch()->setMeterInk({palette.meterBar, palette.meterClip, meterGap});
}

void EditorSketches::setGhosted(bool ghosted) {
    if (std::exchange(isGhosted_, ghosted) == ghosted) return;
    const Transaction fading = Transaction::animated(ghostSeconds);
    showGhost();
}

void EditorSketches::showGhost() {
    if (sketch_) sketch_->glSketch()->setOpacity(isGhosted_ ? ghostOpacity : 1);
}

// So that the first glide starts from what the controls show.
void EditorSketches::showMemoizedValues(PBGLSketchAbstract& vizRef) const {
    const std::size_t count = std::min<std::size_t>(vizRef.paramCount(), values_.count());
    for (std::uint32_t pid = 0; pid < count; ++pid)
        vizRef.standAt(pid, values_.memoizedInRange(pid));
}

void EditorSketches::assumeLayout(const QVMEditorLayout& layout) {
    if (!sketch_) return;
    sketch_->setFrame(layout.sketchPlace);
    sketch_->layer()->look().setCornerRadius(layout.sketchPlaceRadius);
    if (numbers_) numbers_->fit();
    isCurveAlone_ = layout.sketchPlace == layout.editor;
    describeCurve();
}

void EditorSketches::curveDidChange() {
    if (numbers_) numbers_->curveDidChange();
}

void EditorSketches::scaleDidChange() {
    if (!sketch_) return;
    sketch_->viewDidChangeBackingProperties();
    for (QVMAuxiliarySketch* auxiliary : sketch_->auxiliarySketches())
        auxiliary->viewDidChangeBackingProperties();
    if (numbers_) numbers_->fit();
}

void EditorSketches::setFocusedPid(std::int32_t pid) {
    if (sketch_) sketch_->setFocusedPid(pid);
}

bool EditorSketches::areHidden() const {
    return sketch_ && !sketch_->vizVisible();
}

void EditorSketches::toggleVisibility() {
    if (sketch_) sketch_->toggleVisible();
}

// Something stays where the curve was, so that who hid it by a click finds it again.
void EditorSketches::visibilityDidChange(QVMPowerBox& box) {
    box.setShowsHiddenSign(areHidden());
    for (ClipLight* light : clipLights_)
        light->setHidden(areHidden());
    if (numbers_) numbers_->fit();
    describeCurve();
    describeMeters();
}

// Where it is all that there is, a tooltip would cover what is looked at.
void EditorSketches::describeCurve() {
    if (!sketch_) return;
    if (areHidden())
        sketch_->setToolTip(toolTipOf(Button::hiddenCurve));
    else
        sketch_->setToolTip(isCurveAlone_ ? "" : toolTipOf(Button::curve));
}

void EditorSketches::describeMeters() {
    if (!sketch_) return;
    for (const QVMAuxiliarySketch* auxiliary : sketch_->auxiliarySketches()) {
        const std::int32_t pid = auxiliary->glSketch()->sketch().pid;
        QVMParameterControl* control = controls_.withPid(static_cast<std::uint32_t>(pid));
        if (!control) continue;
        std::string state;
        for (const QVMParameter* mode : modesWithoutControl(control->parameter()->clump))
            state +=
                (state.empty() ? "" : "\n") + mode->name + ": " + mode->stringForValue(values_.memoized(mode->pid));
        if (areHidden()) state += "\nThe meter is hidden";
        control->setToolTip(toolTipOf(*control->parameter(), state));
    }
}

} // namespace QVM_NAMESPACE
