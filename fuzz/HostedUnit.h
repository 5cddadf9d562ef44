// An audio unit as a host has it, with an editor that is opened and closed, in virtual time; and what must hold of the
// three whatever the host and the user do. Ends the program where something does not.
//
// Main thread; one at a time.
#pragma once

#include "host/GestureLedger.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/system/Log.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"
#include "unit/QVM0015_AudioUnit.h"

#include <bitset>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace slantwise_fuzz {

class HostedUnit final : private slantwise::GestureListener, private slantwise::WindowHost {
public:
    HostedUnit() = default;
    ~HostedUnit() override { closeEditor(); }
    HostedUnit(const HostedUnit&) = delete;
    HostedUnit& operator=(const HostedUnit&) = delete;

    slantwise::QVM0015_AudioUnit& unit() { return unit_; }
    bool isEditorOpen() const { return window_.has_value(); }
    // Nothing where it is open, or closed, already.
    void openEditor();
    void closeEditor();
    // Only while the editor is open.
    slantwise::Window& window() { return *window_; }
    slantwise::QVMGenericUI& ui() { return view_->ui(); }
    slantwise::QVM0015_CocoaView2& view() { return *view_; }

    // Seconds since the beginning.
    double now() const { return time_.now(); }
    // Seconds go by, with a display frame at their end.
    void wait(double seconds);
    void frame() { wait(1.0 / 60); }
    void send(slantwise::Event event);
    // Chooses an item of the menu that was shown last, also after the editor has gone.
    void chooseFromMenu(std::size_t item);
    // All of the state or nothing, as the unit promises; true when it was restored.
    bool restore(std::span<const std::uint8_t> bytes);
    // A block in which every sample is `sample`. What is heard of finite samples is finite.
    void play(std::uint32_t frames, float sample);

    // What holds at any time: finite values in range, in the unit and on the controls.
    void check();
    // What holds once everything at hand is done: every gesture has ended, and the editor shows what the unit holds.
    void checkAtRest();
    // The same after one step back and one forward.
    void checkUndoAndRedo();

private:
    // GestureListener
    void gestureBegan(std::uint32_t pid) override;
    void valueChanged(std::uint32_t pid) override;
    void gestureEnded(std::uint32_t pid) override;
    void editEnded() override;
    // WindowHost
    void setCursor(slantwise::Cursor) override {}
    void contentSizeDidChange(slantwise::Size) override {}
    void takeKeyboardFocus() override { window_->setKeyWindow(true); }
    void popUpMenu(std::unique_ptr<slantwise::Menu> menu, slantwise::Point) override { menu_ = std::move(menu); }

    float heldValue(std::uint32_t pid) const;
    void followHost();
    void checkEditorShows(std::uint32_t pid);

    slantwise::ManualTickSource ticks_;
    slantwise::VirtualTime time_;
    slantwise::ScopedLogSink log_{[](const std::string&) {}};
    slantwise::QVM0015_AudioUnit unit_;
    slantwise::GestureLedger gestures_{unit_, *this};
    std::bitset<slantwise::QVMParameterCount> isOpen_; // gestures as the host knows them, by pid
    std::optional<slantwise::Window> window_;
    slantwise::QVM0015_CocoaView2* view_ = nullptr; // owned by the window
    slantwise::ObservationToken presses_;
    std::uint32_t restores_ = 0; // of the unit, as far as the editor has followed them
    std::unique_ptr<slantwise::Menu> menu_;
    std::vector<float> left_, right_; // the block
};

} // namespace slantwise_fuzz
