// All settings as one web address, which people send each other.
//
// The address is that of the product's page, so that a browser shows the product; behind "/?" stand the parameters that
// are not at their initial values: "https://SITE/SLUG/VERSION/?tg:4.5/trl:120". An older form joins them by "&" and
// "=". It comes from anywhere, so the reader is strict: it takes an address as a whole or refuses it as a whole, says
// why, and reads a number the same way in every locale. Numbers are in the shown domain. No state: any thread.
#pragma once

#include "description/QVMConfig.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

// Bytes. Every parameter at its longest makes less than a fifth of it.
inline constexpr std::size_t longestSettingsAddress = 4096;

// What an address says of one key.
struct SettingsEntry {
    std::string key;            // as written: a minimal or a full codename
    std::optional<float> value; // finite, not yet restricted to the range; none ("x"): leave the parameter as it is

    bool operator==(const SettingsEntry&) const = default;
};

// An address that was accepted.
struct SettingsAddress {
    std::string slug, version;          // of the product it was written by, which may be another one
    std::vector<SettingsEntry> entries; // those whose keys name a parameter, each key once, in order

    // What the address says of a key, or null.
    const SettingsEntry* entryFor(std::string_view key) const;
};

enum class SettingsProblem : unsigned char {
    tooLong,
    notAnAddress,
    noProductInPath,
    notANumber,
};

struct SettingsRefusal {
    SettingsProblem problem;
    std::string key; // the one with no number behind it; empty with any other problem

    // One line in plain words, without a full stop.
    std::string text() const;
};

// Reads an address; blanks and line ends around it do not count. Keys are looked up in `config`; those that name
// nothing are left out, whatever stands behind them. A key that comes twice has its last value. A value
// ends at a second separator, as in "tg:6:9". An address without a "?" has no entries.
[[nodiscard]] std::variant<SettingsAddress, SettingsRefusal> readSettingsAddress(std::string_view text,
                                                                                 const QVMConfig& config);

// The value that a parameter is sent for a number in an address: within its range. What switches and counts is sent
// what stands there as well; the unit makes it whole.
float settingsValueFor(const QVMParameter& parameter, float value);

// "SITE/SLUG/VERSION", the part before "/?". `site` is an https address without a slash at its end.
std::string settingsBaseAddress(std::string_view site, const QVMMetadata& metadata);
// The key that stands for a parameter: the minimal codename, or the full one where there is none.
const std::string& settingsKeyFor(const QVMParameter& parameter);
// How exactly numbers are written: with up to seven significant digits, or so that they read back as the same.
enum class AddressDigits : bool { seven, all };
// The whole address.
std::string writeSettingsAddress(std::string_view base, const std::vector<SettingsEntry>& entries,
                                 AddressDigits digits = AddressDigits::seven);

} // namespace QVM_NAMESPACE
