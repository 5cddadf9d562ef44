#include "toolkit/KeyboardToolTip.h"

#include "platform/view/ToolTipPlacement.h"
#include "toolkit/ToolkitLookAndFeel.h"

namespace QVM_NAMESPACE {

namespace {

const View* toolTippedAround(const View* view) {
    while (view && view->toolTip().empty())
        view = view->superview();
    return view;
}

class Tip final : public juce::Component {
public:
    Tip(const juce::String& text, juce::LookAndFeel& look) : Component(text) {
        setLookAndFeel(&look);
        setInterceptsMouseClicks(false, false);
        setAccessible(false);
        setAlwaysOnTop(true);
    }
    ~Tip() override { setLookAndFeel(nullptr); }
    void paint(juce::Graphics& g) override { getLookAndFeel().drawTooltip(g, getName(), getWidth(), getHeight()); }
};

} // namespace

void KeyboardToolTip::keyWillArrive() {
    hide();
    viewBefore_ = window_.keyboardView();
}

void KeyboardToolTip::keyDidArrive() {
    const View* const view = window_.keyboardView();
    if (view && view != viewBefore_) rest_.schedule(restSeconds, [this] { show(); });
}

void KeyboardToolTip::hide() {
    rest_.cancel();
    tip_ = nullptr;
}

void KeyboardToolTip::show() {
    const View* const view = toolTippedAround(window_.keyboardView());
    if (!view || window_.isKeyHeld() || window_.mouseCapture()) return;
    juce::LookAndFeel& look = runtime_.lookAndFeel();
    const juce::String text = juce::String::fromUTF8(view->toolTip().c_str());
    const juce::Rectangle<int> size = look.getTooltipBounds(text, {}, parent_.getLocalBounds());
    const Rect frame = toolTipFrame(window_, *view, {double(size.getWidth()), double(size.getHeight())});
    tip_ = std::make_unique<Tip>(text, look);
    tip_->setBounds(size.withPosition(static_cast<int>(frame.x), static_cast<int>(frame.y)));
    parent_.addAndMakeVisible(*tip_);
}

} // namespace QVM_NAMESPACE
