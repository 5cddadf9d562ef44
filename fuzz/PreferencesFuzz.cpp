// The reader and writer of the preferences. What is read is finite; what is written is read, and loses nothing else.
#include "Fuzz.h"
#include "preferences/PreferenceText.h"

#include <cmath>
#include <string>

using namespace slantwise;
using slantwise_fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto before = preferencesIn(text);
    if (!before) return 0;
    for (const auto& [key, value] : *before)
        require(!key.empty() && std::isfinite(value), "a preference has a name and is a number");

    Preferences expected = *before;
    const std::string key = before->empty() ? "scale" : before->begin()->first;
    expected[key] = 1.25;
    const std::string written = textWithPreference(text, key, 1.25);
    require(preferencesIn(written) == expected, "one is changed, and no other");
    require(textWithPreference(written, key, 1.25) == written, "once more changes nothing");
    require(textWithPreference(text, "a b", 1) == text && textWithPreference(text, key, NAN) == text,
            "what is no preference is not written");
    return 0;
}
