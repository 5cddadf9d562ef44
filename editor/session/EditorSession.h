// What the editor knows and decides, apart from anything that can be seen: the parameters' values, the current preset,
// the comparison, the history, and settings as text; and what each of them means for the others.
//
// Main thread only.
#pragma once

#include "editor/session/ABComparison.h"
#include "editor/session/EditorHistory.h"
#include "editor/session/EditorValues.h"
#include "editor/session/PresetSession.h"
#include "editor/session/SettingsClipboard.h"

#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

class EditorSession final : private EditorValuesObserver {
public:
    // Both are borrowed and outlive the session. The surface is not called before something is asked of the session.
    EditorSession(const QVMConfig& config, SessionSurface& surface);

    // Each lives as long as the session.
    EditorValues& values() { return values_; }
    const EditorValues& values() const { return values_; }
    PresetSession& presets() { return presets_; }
    const PresetSession& presets() const { return presets_; }
    ABComparison& comparison() { return comparison_; }
    const ABComparison& comparison() const { return comparison_; }
    EditorHistory& history() { return history_; }
    const EditorHistory& history() const { return history_; }
    SettingsClipboard& settings() { return settings_; }
    const SettingsClipboard& settings() const { return settings_; }

    // The comparison starts anew: A is active, and both sides have these values, by pid.
    void resetComparison(std::span<const float> values);
    // A side of the comparison as it was kept elsewhere (ABComparison::restore).
    void restoreSide(std::uint32_t side, std::string_view settings);

private:
    // EditorValuesObserver: a changed value is a step of the history, what was read otherwise at the opening is so
    // wherever it was kept, and what the unit holds is compared with the preset.
    void memoizedValueDidChange(std::uint32_t pid) override;
    void valueWasReread(std::uint32_t pid, float read, float held) override;
    void receivedValueWasAdopted(std::uint32_t pid) override;

    SessionSurface& surface_;
    EditorValues values_;
    PresetSession presets_;
    ABComparison comparison_;
    EditorHistory history_;
    SettingsClipboard settings_;
};

} // namespace QVM_NAMESPACE
