// The switch between two complete settings, A and B, with a button between the letters that copies the active one to
// the other side.
//
// It changes nothing by itself: every tap is reported, and whoever hears it moves the switch. With the keyboard's focus
// whatever is typed flips it. Main thread only.
#pragma once

#include "controls/Animate.h"
#include "controls/FocusableControl.h"
#include "platform/runloop/NotificationCenter.h"

#include <memory>

namespace QVM_NAMESPACE {

class QVMABControl;
class QVMFocusBorder;
class QVMSymbolButton;

// The parts of the switch, by the number under which a tap is reported.
enum QVMABButton : std::uint32_t { QVMABButtonA = 0, QVMABButtonB = 1, QVMABButtonArrow = 2 };

class QVMABControlDelegate {
public:
    virtual ~QVMABControlDelegate() = default;
    // `button` is a QVMABButton. Main thread.
    virtual void abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) = 0;
};

class QVMABControl final : public FocusableControl {
public:
    explicit QVMABControl(const Rect& frame);

    // Borrowed; null hears nothing.
    void setDelegate(QVMABControlDelegate* delegate) { delegate_ = delegate; }

    QVMSymbolButton& a() { return *a_; }
    QVMSymbolButton& b() { return *b_; }
    QVMSymbolButton& arrow() { return *arrow_; }
    const std::shared_ptr<Layer>& box() const { return box_; }
    const std::shared_ptr<Layer>& indicator() const { return indicator_; }

    // Moves the indicator to slot 0 or 1.
    void updatePositionAnimated(std::uint32_t position, Animate animate);
    std::uint32_t position() const { return position_; }
    // What a tap on one of the buttons (or on anything else) does.
    void handleTap(const View& tapped);

    // Keyboard: everything that reaches a focused control flips the switch.
    bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) override;
    bool toggleBooleanControl() override;
    bool tap() override;
    void setTransientStringValue(const std::string& text) override;
    void setFocused(bool focused) override;

    void viewDidMoveToWindow() override;

private:
    QVMSymbolButton& addButton(const char* name, const Rect& frame, std::string symbol);
    void report(std::uint32_t button);
    void style();

    QVMABControlDelegate* delegate_ = nullptr;
    std::uint32_t position_ = 0;
    std::shared_ptr<Layer> box_, indicator_;
    std::shared_ptr<QVMFocusBorder> highlight_;
    QVMSymbolButton* a_ = nullptr;
    QVMSymbolButton* b_ = nullptr;
    QVMSymbolButton* arrow_ = nullptr;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
