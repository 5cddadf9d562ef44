#include "toolkit/ToolkitRuntime.h"

namespace QVM_NAMESPACE {

ToolkitRuntime::ToolkitRuntime() {
    TextMetrics::install(&metrics_);
    Workspace::install(&workspace_);
}

ToolkitRuntime::~ToolkitRuntime() {
    Workspace::install(nullptr);
    TextMetrics::install(nullptr);
    if (!lookAndFeel_) return;
    juce::LookAndFeel::setDefaultLookAndFeel(nullptr);
    juce::Typeface::clearTypefaceCache(); // its typefaces are made from our faces
}

ToolkitLookAndFeel& ToolkitRuntime::lookAndFeel() {
    if (!lookAndFeel_) {
        lookAndFeel_ = std::make_unique<ToolkitLookAndFeel>(faces_);
        juce::LookAndFeel::setDefaultLookAndFeel(lookAndFeel_.get()); // the toolkit asks this one for every typeface
    }
    return *lookAndFeel_;
}

} // namespace QVM_NAMESPACE
