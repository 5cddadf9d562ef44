// Built-in stereo signals whose look on a display is known beforehand.
#pragma once

#include "plugin/standalone/AudioFile.h"

#include <optional>
#include <span>
#include <string_view>

namespace QVM_NAMESPACE {

// "sine": a tone, the same on both sides. "noise": pink noise, each side its own. "mono": pink noise, the same on both
// sides. "wide": noise with more side than middle. "antiphase": pink noise, one side upside down.
std::span<const std::string_view> testSignalNames();

// A few seconds of the signal, the same each time; nothing for a name that there is none for.
[[nodiscard]] std::optional<AudioClip> testSignal(std::string_view name, double sampleRateHz);

} // namespace QVM_NAMESPACE
