// A lone parameter control in virtual time.
#pragma once

#include "controls/Gestures.h"
#include "controls/QVMParameterControl.h"
#include "controls/QVMVerticalSlider.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {

// With a record of what reaches its owner.
class ParameterControlBench : public QVMParameterControlDelegate {
public:
    explicit ParameterControlBench(QVMParameter p, float value = 0)
        : parameter(std::move(p)), control({0, 26, 321, 56}, {}, &parameter, value) {
        control.setDelegate(this);
        control.setAction([this](Control& sender) { values.push_back(sender.floatValue()); });
    }
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& sender, QVMInteraction state,
                                                        const Event*) override {
        EXPECT_EQ(&sender, &control);
        static const char* const names[] = {"began", "ended", "discrete"};
        reports.push_back(names[state]);
    }
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override { reports.push_back("document"); }
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override { reports.push_back("meaningless"); }
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t value) override {
        reports.push_back("convert " + std::to_string(value));
    }
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override { reports.push_back("modal"); }

    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control.primaryControl()); }
    std::string readout() { return slider().readout()->string().string(); }

    VirtualTime time;
    QVMParameter parameter;
    QVMParameterControl control;
    std::vector<float> values;
    std::vector<std::string> reports;
};

inline Event clickAt(const View& view, Point point, int clicks) {
    Event event = eventAt(EventType::mouseDown, view, point);
    event.clickCount = clicks;
    return event;
}

} // namespace QVM_NAMESPACE
