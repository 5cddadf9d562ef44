// A window system of our own: the toolkit's mouse, key and focus logic runs as on screen, and what is to be painted is
// written down.
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

namespace juce {
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}

namespace slantwise {

// Runs what was posted to the message thread, until nothing is left.
inline void runPostedMessages() {
    while (juce::dispatchNextMessageOnSystemQueue(true)) {}
}

class FakePeer final : public juce::ComponentPeer {
public:
    using Component = juce::Component;
    template <class T>
    using Rectangle = juce::Rectangle<T>;
    template <class T>
    using Point = juce::Point<T>;

    FakePeer(Component& c, int flags) : juce::ComponentPeer(c, flags), bounds(c.getLocalBounds()) {}

    Rectangle<int> bounds;
    std::vector<Rectangle<int>> repaints; // logical, as asked for
    int flushes = 0;                      // times that painting was wanted at once
    double scale = 1;
    bool focused = false, minimised = false;

    void vBlank() {
        vBlankListeners.call([](VBlankListener& l) { l.onVBlank(); });
    }
    void mouse(Point<float> at, int modifiers, juce::int64 ms) {
        handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse, at, juce::ModifierKeys(modifiers), 0, 0, ms);
    }
    void wheel(Point<float> at, const juce::MouseWheelDetails& details, juce::int64 ms) {
        handleMouseWheel(juce::MouseInputSource::InputSourceType::mouse, at, ms, details);
    }
    // Paints what meets `clip` (device pixels) and forgets what was asked for.
    juce::Image paint(juce::RectangleList<int> clip) {
        juce::Image image(juce::Image::ARGB, juce::roundToInt(bounds.getWidth() * scale),
                          juce::roundToInt(bounds.getHeight() * scale), true, juce::SoftwareImageType());
        juce::LowLevelGraphicsSoftwareRenderer context(image, {}, clip);
        context.addTransform(juce::AffineTransform::scale(static_cast<float>(scale)));
        repaints.clear();
        handlePaint(context);
        return image;
    }
    juce::Image paintAll() { return paint((bounds.toDouble() * scale).toNearestInt()); }

    void* getNativeHandle() const override { return const_cast<FakePeer*>(this); } // of no window, but one there is
    void setVisible(bool) override {}
    void setTitle(const juce::String&) override {}
    void setBounds(const Rectangle<int>& b, bool) override {
        bounds = b;
        handleMovedOrResized();
    }
    Rectangle<int> getBounds() const override { return bounds; }
    Point<float> localToGlobal(Point<float> p) override { return p; }
    Point<float> globalToLocal(Point<float> p) override { return p; }
    void setMinimised(bool m) override { minimised = m; }
    bool isMinimised() const override { return minimised; }
    void setFullScreen(bool) override {}
    bool isFullScreen() const override { return false; }
    void setIcon(const juce::Image&) override {}
    bool contains(Point<int> p, bool) const override { return bounds.withZeroOrigin().contains(p); }
    OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }
    juce::BorderSize<int> getFrameSize() const override { return {}; }
    bool setAlwaysOnTop(bool) override { return false; }
    void toFront(bool) override {}
    void toBehind(juce::ComponentPeer*) override {}
    bool isFocused() const override { return focused; }
    void grabFocus() override { focused = true; }
    void repaint(const Rectangle<int>& area) override { repaints.push_back(area); }
    void performAnyPendingRepaintsNow() override { ++flushes; }
    void setAlpha(float) override {}
    juce::StringArray getAvailableRenderingEngines() override { return {"fake"}; }
    void textInputRequired(Point<int>, juce::TextInputTarget&) override {}
    double getPlatformScaleFactor() const noexcept override { return scale; }
};

// While it lives the toolkit knows of one screen; without one it shows no menus.
class FakeDisplay {
public:
    FakeDisplay() {
        juce::Displays::Display display{};
        display.isMain = true;
        display.scale = 1;
        display.totalArea = display.userArea = {0, 0, 1000, 800};
        displays().add(display);
    }
    ~FakeDisplay() { displays().clear(); }
    FakeDisplay(const FakeDisplay&) = delete;
    FakeDisplay& operator=(const FakeDisplay&) = delete;

private:
    static juce::Array<juce::Displays::Display>& displays() {
        return const_cast<juce::Displays&>(juce::Desktop::getInstance().getDisplays()).displays;
    }
};

// The top-level component of a window on that system.
class FakeDesktopWindow : public juce::Component {
public:
    // Takes the child's size.
    explicit FakeDesktopWindow(juce::Component& child) {
        addAndMakeVisible(child);
        child.setTopLeftPosition(0, 0);
        setSize(child.getWidth(), child.getHeight());
        setVisible(true);
        addToDesktop(0);
    }
    ~FakeDesktopWindow() override { removeFromDesktop(); }
    FakePeer& peer() { return *static_cast<FakePeer*>(getPeer()); }

private:
    juce::ComponentPeer* createNewPeer(int styleFlags, void*) override { return new FakePeer(*this, styleFlags); }
};

} // namespace slantwise
