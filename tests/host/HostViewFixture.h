// A view bound to a recording unit that has every property and the ranges of the real one, in virtual time and with
// display frames by hand, with the log caught.
#pragma once

#include "description/Description.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/QVM0015_CocoaViewFactory2.h"
#include "platform/audiounit/AudioUnitListeners.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/system/Log.h"
#include "platform/view/Window.h"
#include "support/FakeAudioUnit.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

using Lines = std::vector<std::string>;

// Gives a unit the properties of a stereo unit on which nothing was saved yet.
inline void addAllProperties(FakeAudioUnit& unit) {
    unit.addProperty(2, 48000.0, kAudioUnitScope_Input);
    unit.addProperty(14, std::uint32_t{1024});
    unit.addProperty(64003, std::uint8_t{0});
    unit.addProperty<const std::string*>(64004, nullptr);
    unit.addProperty(64005, std::uint32_t{2});
    unit.addProperty(64006, std::uint32_t{2});
    unit.addProperty(64007, std::uint32_t{0});
    unit.addProperty(64008, QVMABRecord{});
    unit.addProperty<const std::string*>(64009, nullptr);
    unit.addProperty(64010, std::uint32_t{0});
    unit.addProperty<void*>(64011, nullptr);
    unit.addProperty(64012, std::uint32_t{0});
    for (std::uint32_t pid = 0; pid < FakeAudioUnit::parameterCount; ++pid) {
        const QVMFloat32Range range = GetParameter(pid)->heldRange();
        unit.limits[pid] = {range.min, range.max};
    }
    // Values that are in range for every parameter.
    for (auto& value : unit.values)
        value = 12;
}

class HostView : public testing::Test {
protected:
    HostView() { addAllProperties(unit); }

    void bind() { view = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&unit, {}); }
    QVMGenericUI& ui() { return view->ui(); }
    QVMGenericUIDelegate& delegate() { return *view; }
    // The calls since the last time.
    Lines takeCalls() { return std::exchange(unit.calls, {}); }
    // The tags of the lines logged since the last time; a line of another form comes back whole.
    Lines takeTags() {
        Lines tags;
        for (const std::string& line : std::exchange(logged, {})) {
            const std::string tag = tagOf(line);
            tags.push_back(tag.empty() ? line : tag);
        }
        return tags;
    }
    // The tag of a line that is as it must be to the last character for the status it names, otherwise nothing.
    static std::string tagOf(const std::string& line) {
        char source[64] = {}, tag[64] = {};
        int number = 0, status = 0;
        if (std::sscanf(line.c_str(), "%63[^:]:%d: %63[^\n]", source, &number, tag) != 3) return {};
        std::string text = tag;
        text.resize(std::min(text.rfind(" result "), text.size()));
        if (std::sscanf(tag + text.size(), " result %d", &status) != 1) return {};
        const auto bits = static_cast<std::uint32_t>(status);
        const char bytes[] = {char(bits >> 24), char(bits >> 16), char(bits >> 8), char(bits), 0};
        char expected[256] = {};
        std::snprintf(expected, sizeof expected, "%s:%d: %s result %d %08X %4.4s\n", source, number, text.c_str(),
                      status, bits, bytes);
        const bool ours = std::string(source).starts_with("QVM0015_CocoaView2") && number > 0;
        return ours && line == expected ? text : std::string();
    }

    // One display frame, for views that are in a window.
    void frame() {
        ticks.tick(time.now());
        time.settle();
    }

    ManualTickSource ticks;
    VirtualTime time;
    Lines logged;
    ScopedLogSink sink{[this](const std::string& line) { logged.push_back(line); }};
    FakeAudioUnit unit;
    std::unique_ptr<QVM0015_CocoaView2> view;
};

} // namespace QVM_NAMESPACE
