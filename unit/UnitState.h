// The unit's state as bytes, for hosts to save and restore.
//
// Little-endian: the four bytes "SW2X", version 1, length of the whole, number of parameters, their host-domain values,
// A/B state, interface state word, the preset's name and the A/B settings (each a length and its bytes), and last a
// checksum of everything before it. Equal states give equal bytes. Bytes come from files and other programs: whatever
// they are, decoding reads within them, allocates no more than they hold, and gives all or nothing.
//
// A parameter that is added goes behind the others, and the version stays: the number of parameters says which build's
// state it is. One of an earlier build has the later parameters at their initial values, and of one of a later build is
// read what this one knows. The version changes with anything else that does, and another version is refused.
#pragma once

#include "unit/UnitParameters.h"
#include "unit/UnitSettings.h"

#include <cstdint>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

struct UnitState {
    UnitParameters::Values parameters{};
    SavedSettings settings;
    bool operator==(const UnitState&) const = default;
};

enum class UnitStateResult : unsigned char {
    ok,
    truncated,
    tooLong,
    notOurs,
    unknownVersion,
    damaged,
    missingValues,
    badValue,
    badText,
};

// A sentence for a message or log line.
const char* toText(UnitStateResult result);

// Any thread. The settings' texts must fit SavedSettings::maxTextBytes.
std::vector<std::uint8_t> encodeUnitState(const UnitState& state);

// Any thread. `state` is written only when the result is ok; then every value is finite, and the texts fit.
[[nodiscard]] UnitStateResult decodeUnitState(std::span<const std::uint8_t> bytes, UnitState& state);

} // namespace QVM_NAMESPACE
