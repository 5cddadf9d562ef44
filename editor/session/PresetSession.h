// Which preset is the current one, what choosing one does, and whether the settings still are those of it.
//
// Presets are known by their index in the list. Main thread only.
#pragma once

#include "editor/session/EditorValues.h"
#include "editor/session/PresetList.h"
#include "platform/runloop/DelayedCall.h"

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace QVM_NAMESPACE {

class PresetSession {
public:
    // The name of an index that no preset has.
    static constexpr const char* unknownName = PresetList::unknownName;

    // All borrowed; `settled` is called half a second after the last change of a value or a name, when the two have
    // been compared.
    PresetSession(const QVMConfig& config, EditorValues& values, SessionSurface& surface,
                  std::function<void()> settled);

    // What there is to choose from.
    PresetList& list() { return list_; }
    const PresetList& list() const { return list_; }
    // 0 in a product without presets.
    std::uint32_t current() const { return current_; }
    // The index of the preset that a session keeps under a name (PresetList::savedName); with none, one that no preset
    // has. None in a product without presets.
    std::optional<std::uint32_t> indexOf(const std::string& savedName);
    // Whether an index is that of a preset of this product, or of the user's.
    bool isKnown(std::uint32_t index) const { return list_.isKnown(index); }

    // Names the current preset and applies nothing, whether there is such a preset or not.
    void setCurrent(std::uint32_t index);
    // The same for a state that the user came to by another way than the list; whoever keeps the name hears of it.
    void switchTo(std::uint32_t index);
    // The user chose a preset, or the same one again: its values are sent, the focus moves, and it is announced. One of
    // the user's that cannot be read is refused, and nothing happens.
    void choose(std::uint32_t index);
    // One value for each parameter that is no preset wildcard, in pid order. What is no number leaves its parameter.
    void apply(std::span<const float> presetValues);

    // The present values as a preset of the user's, which becomes the current one. Nothing happens unless it is done.
    PresetOutcome saveAs(const std::string& name, ExistingFile existing);
    // Takes the file of the current preset away, if it is the user's; its name stays the current one. Or a damaged
    // file. And brings back what was taken away last. Why it cannot be is told. True once it is gone.
    bool removeCurrent();
    bool removeDamaged(const std::string& fileName);
    void putBackRemoved();
    // Why something with a preset of the user's was not done, one line each.
    void tellRefusal(const std::string& what, const std::string& why) { surface_.presetWasRefused(what, why); }

    // Whether the values differ from those of the current preset. No settings equal a preset that does not exist.
    bool isDirty();
    // A value is another one: whether it is dirty shows half a second after the last.
    void scheduleDirtyCheck();

private:
    void announce() const;
    void checkDirtyState();
    std::vector<SettingsEntry> presentSettings() const;
    bool equals(const QVMParameter& parameter, float wanted) const;
    bool listDidChange(const PresetOutcome& outcome, const char* whatFailed);

    const QVMConfig& config_;
    EditorValues& values_;
    SessionSurface& surface_;
    std::function<void()> settled_;
    PresetList list_;
    std::uint32_t current_ = 0;
    DelayedCall dirtyCall_;
};

} // namespace QVM_NAMESPACE
