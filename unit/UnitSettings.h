// What the editor keeps in the unit besides the parameters: the preset's name, the A/B record, the interface state
// word, the latest interface preference and the path of an uploaded buffer.
//
// Guarded by a mutex, since hosts save and restore state on any thread; the render thread comes here only to name a
// preset by its number, which takes no lock. Texts are handed out by reference: each stays as it was until that text is
// next handed out, whatever is stored meanwhile.
#pragma once

#include "unit/PrivateProperties.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace QVM_NAMESPACE {

// What is saved with the parameters.
struct SavedSettings {
    static constexpr std::size_t maxTextBytes = 16384;

    std::string presetName;
    std::uint32_t abState = QVMABRecord::nothingSaved;
    std::string abSettings;
    std::uint32_t uiState = 0;
    bool operator==(const SavedSettings&) const = default;
};

class UnitSettings {
public:
    explicit UnitSettings(const SavedSettings& initial);

    SavedSettings saved() const;
    void restore(const SavedSettings& settings);
    // How often that was. Any thread, no lock.
    std::uint32_t restoreCount() const { return restoreCount_.load(std::memory_order_acquire); }

    // Never null; see above for how long the text lives.
    const std::string* presetName();
    // `settings` is never null either.
    QVMABRecord abRecord();
    std::uint32_t uiState() const;
    std::string bufferPath() const;
    bool interfacePreference() const;

    // The number of the preset with the present name, -1 when no preset has it. Any thread, no lock.
    std::int32_t presetIndex() const { return preset_.load(std::memory_order_relaxed).index; }
    // Names the preset by its number, which must exist. Any thread, the render thread included: no lock, no memory.
    void choosePreset(std::int32_t index);

    // Each copies the text. A missing text, or one of over `maxTextBytes`, is refused and changes nothing; only the A/B
    // record may come without its text, which then is empty.
    OSStatus setPresetName(const std::string* name);
    OSStatus setABRecord(const QVMABRecord& record);
    OSStatus setBufferPath(const std::string* path);
    void setUIState(std::uint32_t state);
    void setInterfacePreference(bool value);

private:
    using Text = std::shared_ptr<const std::string>;

    struct PresetNumber {
        std::int32_t index = -1;
        std::uint32_t isNamedByIt = 0; // 1: chosen by number after the name was stored, which it so makes out of date
    };

    void namePreset(const std::string& name);
    Text presentName() const;
    static bool fits(const std::string* text) { return text && text->size() <= SavedSettings::maxTextBytes; }

    // One word, so that number and flag are always those of one choice.
    std::atomic<PresetNumber> preset_{};
    static_assert(std::atomic<PresetNumber>::is_always_lock_free);
    std::atomic<std::uint32_t> restoreCount_ = 0;

    mutable std::mutex mutex_;
    // All guarded by mutex_.
    Text presetName_, handedOutPresetName_;
    Text abSettings_, handedOutABSettings_;
    std::uint32_t abState_ = QVMABRecord::nothingSaved;
    std::uint32_t uiState_ = 0;
    std::string bufferPath_;
    bool interfacePreference_ = false;
};

} // namespace QVM_NAMESPACE
