// A bare control that writes down which of its hooks are called.
#pragma once

#include "controls/Gestures.h"

namespace QVM_NAMESPACE {

inline std::string hookCall(const char* hook, const QVMGranularities& g) {
    return std::string(hook) + ' ' + std::to_string(g.is) + ' ' + std::to_string(g.was) + (g.changed ? " changed" : "");
}

// Writes down which hook is called with which granularities.
class HookedControl : public QVMFloatControl {
public:
    using QVMFloatControl::QVMFloatControl;
    void handleMouseDownWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(hookCall("down", g));
    }
    void handleMouseDraggedWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(hookCall("dragged", g));
    }
    void handleMouseUpWithEventGranularities(const QVMEvent&, const QVMGranularities& g) override {
        hooks.push_back(hookCall("up", g));
    }
    void handleScrollWithEventStartDeltaGranularities(const QVMEvent&, float, double,
                                                      const QVMGranularities& g) override {
        hooks.push_back(hookCall("scroll", g));
    }
    std::vector<std::string> hooks;
};

// With a record of what it tells its owner.
struct HookedControlBench {
    explicit HookedControlBench(QVMParameter p)
        : parameter(std::move(p)), control({10, 20, 100, 40}, parameter), record(control) {}
    QVMParameter parameter;
    HookedControl control;
    GestureRecord record;
    Point inside = {50, 20};
};

} // namespace QVM_NAMESPACE
