#include "editor/surface/ParameterControls.h"

#include "controls/QVMRangeControl.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/ToolTips.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double bandThickness = 14, bandDrop = 1; // points

// The band of a low/high pair: as wide as both controls together, centred on them, and a little lower.
Rect bandFrame(const Rect& low, const Rect& high) {
    const Rect both = low.unionWith(high);
    const double thickness = std::min(both.height, bandThickness);
    return {both.x, both.midY() - thickness / 2 + bandDrop, both.width, thickness};
}

} // namespace

ParameterControls::ParameterControls(QVMParameterControlDelegate& delegate, EditorValues& values)
    : delegate_(delegate), values_(values) {}

void ParameterControls::addClump(QVMClump& clump, QVMClumpView& clumpView, View& around) {
    std::vector<std::unique_ptr<QVMParameterControl>> displaced;
    List controls;
    for (const QVMParameter* parameter : clump.parameters) {
        if (parameter->hidden || parameter->frame.isEmpty()) continue;
        auto made = std::make_unique<QVMParameterControl>(parameter->frame, Rect{}, parameter,
                                                          values_.memoized(parameter->pid));
        made->layer()->setName("control:" + parameter->codesafeName);
        made->setToolTip(toolTipOf(*parameter));
        made->setClumpView(&clumpView);
        controls.push_back(made.get());
        if (parameter->isDisplaced)
            displaced.push_back(std::move(made));
        else
            clumpView.addSubview(std::move(made));
    }
    enlist(controls, clumpView);
    for (auto& control : displaced)
        around.addSubview(std::move(control));
}

void ParameterControls::enlist(const List& controls, QVMClumpView& clumpView) {
    all_.insert(all_.end(), controls.begin(), controls.end());
    for (QVMParameterControl* control : controls) {
        control->setTarget(values_);
        values_.setDisplay(control->parameter()->pid, *control);
        control->setDelegate(&delegate_);
    }
    for (QVMParameterControl* high : controls) {
        const std::string& partner = high->parameter()->rangeWith;
        QVMParameterControl* low = partner.empty() ? nullptr : withCodename(partner);
        if (low) addRangeControls(*low, *high, clumpView);
    }
}

void ParameterControls::addStandIn(QVMParameterControl& control) {
    control.setTarget(values_);
    control.setDelegate(&delegate_);
    standIns_.push_back(&control);
}

// Two controls on one band: one above the handles to be dragged, and one below them that draws it.
void ParameterControls::addRangeControls(QVMParameterControl& low, QVMParameterControl& high, QVMClumpView& clumpView) {
    const Rect band = bandFrame(low.frame(), high.frame());
    const auto make = [&](bool interactive) {
        auto range = std::make_unique<QVMRangeControl>(band, Rect{}, high.parameter(), high.floatValue());
        range->layer()->setName((interactive ? "range:" : "band:") + high.parameter()->clumpName);
        range->setDelegate(&delegate_);
        range->setLow(&low);
        range->setHigh(&high);
        range->setInteractive(interactive);
        range->setToolTip(bandToolTip(*low.parameter(), *high.parameter()));
        return range;
    };
    QVMRangeControl& upper = clumpView.addSubview(make(true));
    QVMRangeControl& lower = clumpView.addSubview(make(false), Order::below, clumpView.subviews().front().get());
    low.setRange(&upper);
    high.setRange(&upper);
    upper.updateRangeAnimated(Animate::no);
    lower.updateRangeAnimated(Animate::no);
}

QVMParameterControl* ParameterControls::withPid(std::uint32_t pid) const {
    const auto found =
        std::find_if(all_.begin(), all_.end(), [pid](const auto* control) { return control->parameter()->pid == pid; });
    return found == all_.end() ? nullptr : *found;
}

QVMParameterControl* ParameterControls::withCodename(std::string_view codesafeName) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [&](const auto* control) {
        return control->parameter()->codesafeName == codesafeName;
    });
    return found == all_.end() ? nullptr : *found;
}

QVMParameterControl* ParameterControls::around(const View* view) const {
    for (; view; view = view->superview()) {
        for (const List* list : {&all_, &standIns_}) {
            const auto found = std::find(list->begin(), list->end(), view);
            if (found != list->end()) return *found;
        }
    }
    return nullptr;
}

bool ParameterControls::contains(const QVMParameterControl* control) const {
    return std::ranges::find(all_, control) != all_.end() || std::ranges::find(standIns_, control) != standIns_.end();
}

std::vector<ShownValue> ParameterControls::shownValues() const {
    std::vector<ShownValue> shown;
    for (const QVMParameterControl* control : all_)
        shown.push_back({control->parameter()->pid, control->floatValue()});
    return shown;
}

} // namespace QVM_NAMESPACE
