// Synthetic gestures on a lone control, and a record of what the control tells its owner.
#pragma once

#include "controls/QVMFloatControl.h"
#include "description/Description.h"
#include "theme/QVMUITheme.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// An event of a type at a point of the view's own coordinates.
inline Event eventAt(EventType type, const View& view, Point point, std::uint32_t modifiers = 0) {
    Event event;
    event.type = type;
    event.locationInWindow = view.coordinates().toWindow(point);
    event.modifierFlags = modifiers;
    event.clickCount = 1;
    return event;
}

inline void press(View& view, Point point, std::uint32_t modifiers = 0) {
    view.mouseDown(eventAt(EventType::mouseDown, view, point, modifiers));
}
inline void drag(View& view, Point point, std::uint32_t modifiers = 0) {
    view.mouseDragged(eventAt(EventType::mouseDragged, view, point, modifiers));
}
inline void release(View& view, Point point, std::uint32_t modifiers = 0) {
    view.mouseUp(eventAt(EventType::mouseUp, view, point, modifiers));
}
inline void pointAt(View& view) {
    view.mouseEntered(eventAt(EventType::mouseMoved, view, view.bounds().center()));
}
inline void pointAway(View& view) {
    view.mouseExited(eventAt(EventType::mouseExited, view, {-1, -1}));
}

// A copy of a parameter of the product, changed by `change`; its arithmetic stays that of its number.
inline QVMParameter parameterLike(std::uint32_t pid, const std::function<void(QVMParameter&)>& change = {}) {
    QVMParameter parameter = *GetParameter(pid);
    if (change) change(parameter);
    return parameter;
}

// Writes down, in order, the actions and interactions of one control: "action 0.5", "began", "ended", "discrete".
class GestureRecord : public QVMFloatControlDelegate {
public:
    explicit GestureRecord(QVMFloatControl& control) : control_(control) {
        control.setDelegate(this);
        control.setAction([this](Control& sender) { lines.push_back("action " + shown(sender.floatValue())); });
    }
    ~GestureRecord() override {
        control_.setDelegate(nullptr);
        control_.setAction({});
    }
    GestureRecord(const GestureRecord&) = delete;
    GestureRecord& operator=(const GestureRecord&) = delete;

    void floatControlInteractionDidChangeToEvent(QVMFloatControl&, QVMInteraction state, const Event*) override {
        static const char* const names[] = {"began", "ended", "discrete"};
        lines.push_back(names[state]);
    }
    void floatControlWantsToPerformStaticConversion(QVMFloatControl&, std::int32_t) override {}
    void floatControlHasRequestedDocumentation(QVMFloatControl&) override {}
    void floatControlDidPerformMetaActionWithEvent(QVMFloatControl&, std::int32_t, const QVMEvent*) override {}
    void floatControlWantsToChangeMultipleValuesMotion(QVMFloatControl&, const std::map<std::uint32_t, float>&,
                                                       double) override {}
    void floatControlWantsToDisplayModal(QVMFloatControl&, View&) override {}
    void floatControlDidTapMeaninglessly(QVMFloatControl&) override {}

    std::vector<std::string> lines;

private:
    static std::string shown(float value) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
        return text;
    }
    QVMFloatControl& control_;
};

// Makes the dark theme current for the life of the object.
class DarkTheme {
public:
    DarkTheme() { QVMUITheme::toggleThemeForWindow(nullptr); }
    ~DarkTheme() { QVMUITheme::toggleThemeForWindow(nullptr); }
    DarkTheme(const DarkTheme&) = delete;
    DarkTheme& operator=(const DarkTheme&) = delete;
};

} // namespace QVM_NAMESPACE
