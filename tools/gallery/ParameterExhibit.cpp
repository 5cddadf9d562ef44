#include "tools/gallery/ParameterExhibit.h"

#include "controls/QVMBooleanControl.h"
#include "controls/QVMGridControl.h"
#include "controls/QVMVerticalSlider.h"
#include "description/NumberText.h"
#include "tools/gallery/Parameters.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double kBandDrop = 1; // points below the middle between the two ends' controls
constexpr unsigned kDimPriority = 10;
constexpr const char* kTypedText = "12.5";
constexpr const char* kDimKey = "gallery";

// Where the pointer stands on a control that is shown as hovered, own coordinates.
Point hoverPoint(const QVMFloatControl& control) {
    if (const auto* slider = dynamic_cast<const QVMVerticalSlider*>(&control)) return slider->readoutBulb()->position();
    if (const auto* grid = dynamic_cast<const QVMGridControl*>(&control)) return grid->squares().back().center();
    return {control.bounds().width * 0.3, control.bounds().height * 0.6};
}

} // namespace

std::unique_ptr<Exhibit> ParameterExhibit::make(const ExhibitRow& row, ExhibitState state, const Rect& frame) {
    const GalleryParameter* parameter = galleryParameter(row.key);
    if (!parameter) return nullptr;
    auto exhibit = std::make_unique<ParameterExhibit>(frame, *parameter, galleryParameter(row.otherKey));
    if (!exhibit->show(state)) return nullptr;
    return exhibit;
}

ParameterExhibit::ParameterExhibit(const Rect& frame, const GalleryParameter& parameter, const GalleryParameter* high)
    : Exhibit(frame) {
    layer()->setMasksToBounds(false);
    const double height = high ? bounds().height / 2 : bounds().height;
    control_ = &addControl({0, 0, bounds().width, height}, parameter);
    if (!high) return;
    high_ = &addControl({0, height, bounds().width, height}, *high);
    addBand();
}

QVMParameterControl& ParameterExhibit::addControl(const Rect& frame, const GalleryParameter& parameter) {
    auto& control =
        addSubview(std::make_unique<QVMParameterControl>(frame, Rect{}, &parameter, parameter.initialValue));
    control.setDelegate(this);
    control.setAction(
        [this](Control& sender) { report("action " + ShortestText(static_cast<double>(sender.floatValue()))); });
    return control;
}

void ParameterExhibit::addBand() {
    constexpr double thickness = SliderLayers::trackThickness;
    const Rect frame{0, bounds().midY() - thickness / 2 + kBandDrop, bounds().width, thickness};
    const auto make = [&] {
        auto range =
            std::make_unique<QVMRangeControl>(frame, Rect{}, high_->parameter(), high_->parameter()->initialValue);
        range->setLow(control_);
        range->setHigh(high_);
        range->setDelegate(this);
        return range;
    };
    band_ = &addSubview(make());
    band_->setInteractive(true);
    track_ = &addSubview(make(), Order::below);
    control_->setRange(band_);
    high_->setRange(band_);
}

bool ParameterExhibit::show(ExhibitState state) {
    QVMFloatControl* const inner = control_->primaryControl();
    if (!inner) return false;
    switch (state) {
    case ExhibitState::normal:
        return true;
    case ExhibitState::hovered:
        showHovered();
        return true;
    case ExhibitState::focused:
        control_->setFocused(true);
        return true;
    case ExhibitState::typing:
        if (!control_->acceptsTransientStringBuffers()) return false;
        control_->setFocused(true);
        control_->setTransientStringValue(kTypedText);
        return true;
    case ExhibitState::inaccurate: {
        auto* const cycle = dynamic_cast<QVMCycleControl*>(inner);
        if (!cycle || dynamic_cast<QVMBooleanControl*>(inner)) return false;
        cycle->setInaccurate(true);
        return true;
    }
    case ExhibitState::dimmed:
        showDimmed();
        return true;
    case ExhibitState::disabled:
        showDisabled();
        return true;
    case ExhibitState::lowest:
    case ExhibitState::highest:
        showExtreme(state);
        return true;
    case ExhibitState::selected:
    case ExhibitState::warning:
        break; // of buttons
    }
    return false;
}

void ParameterExhibit::showHovered() {
    QVMFloatControl& inner = *control_->primaryControl();
    Event event;
    event.locationInWindow = inner.coordinates().toWindow(hoverPoint(inner));
    inner.mouseEntered(event);
    inner.mouseMoved(event);
}

std::vector<QVMParameterControl*> ParameterExhibit::parts() const {
    if (!high_) return {control_};
    return {control_, high_, band_, track_};
}

void ParameterExhibit::showDimmed() {
    for (QVMParameterControl* part : parts())
        part->setDimmedDelayPriorityKey(true, 0, kDimPriority, kDimKey);
}

void ParameterExhibit::showDisabled() {
    for (QVMParameterControl* part : parts())
        part->primaryControl()->setPreventInteraction(true);
}

void ParameterExhibit::showExtreme(ExhibitState state) {
    const bool isLowest = state == ExhibitState::lowest;
    const auto extreme = [isLowest](const QVMParameterControl& control) {
        return isLowest ? control.parameter()->minValue : control.parameter()->maxValue;
    };
    if (!high_) return control_->setFloatValue(extreme(*control_));
    // Of a range, both ends pushed to one side: the band is empty and the handles stand over each other.
    control_->setFloatValue(extreme(*control_));
    high_->setFloatValue(extreme(*high_));
}

void ParameterExhibit::parameterControlDidChangeInteractionStateEvent(QVMParameterControl&, QVMInteraction state,
                                                                      const Event*) {
    static constexpr const char* names[] = {"began", "ended", "discrete"};
    report(names[state]);
}

} // namespace QVM_NAMESPACE
