#include "unit/UnitState.h"

#include "unit/ComparisonText.h"

#include <bit>
#include <cmath>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint32_t magic = 0x58325753; // "SW2X"
constexpr std::uint32_t version = 1;
constexpr std::size_t wordBytes = 4;
constexpr std::size_t mostParameters = 1024; // that any build will have

// All but the two texts' own bytes.
constexpr std::size_t fixedBytes(std::size_t parameterCount) {
    return (9 + parameterCount) * wordBytes;
}
constexpr std::size_t longestState = fixedBytes(mostParameters) + 2 * SavedSettings::maxTextBytes;
static_assert(UnitParameters::count <= mostParameters);

// 32-bit FNV-1a: finds damage, not intent.
std::uint32_t checksum(std::span<const std::uint8_t> bytes) {
    std::uint32_t hash = 2166136261U;
    for (const std::uint8_t byte : bytes)
        hash = (hash ^ byte) * 16777619U;
    return hash;
}

class Writer {
public:
    void word(std::uint32_t value) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes_.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    void text(const std::string& value) {
        word(static_cast<std::uint32_t>(value.size()));
        bytes_.insert(bytes_.end(), value.begin(), value.end());
    }
    std::vector<std::uint8_t>& bytes() { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
};

// Reading past the end gives zeros and marks the reader as failed.
class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : left_(bytes) {}

    std::uint32_t word() {
        if (!available(wordBytes)) return 0;
        std::uint32_t value = 0;
        for (unsigned i = 0; i < wordBytes; ++i)
            value |= static_cast<std::uint32_t>(left_[i]) << (8 * i);
        left_ = left_.subspan(wordBytes);
        return value;
    }
    std::string text() {
        const std::uint32_t length = word();
        if (length > SavedSettings::maxTextBytes) failed_ = true;
        if (!available(length)) return {};
        std::string value(left_.begin(), left_.begin() + length);
        left_ = left_.subspan(length);
        return value;
    }
    bool failed() const { return failed_; }
    bool atEnd() const { return left_.empty(); }

private:
    bool available(std::size_t count) {
        failed_ = failed_ || left_.size() < count;
        return !failed_;
    }

    std::span<const std::uint8_t> left_;
    bool failed_ = false;
};

// The values of a build with `savedCount` parameters. What it did not have is at its initial value; of what only it has
// no more is asked than that it is a number.
UnitStateResult readParameters(Reader& in, std::uint32_t savedCount, UnitParameters::Values& values) {
    values = UnitParameters::initialValues();
    for (std::uint32_t pid = 0; pid < savedCount; ++pid) {
        const float value = std::bit_cast<float>(in.word());
        if (in.failed()) return UnitStateResult::missingValues;
        if (!std::isfinite(value)) return UnitStateResult::badValue;
        if (pid < values.size()) values[pid] = value;
    }
    return UnitStateResult::ok;
}

// What can be told before the contents are read.
UnitStateResult checkEnvelope(std::span<const std::uint8_t> bytes) {
    Reader head(bytes);
    const std::uint32_t foundMagic = head.word(), foundVersion = head.word(), length = head.word();
    if (head.failed()) return UnitStateResult::truncated;
    if (foundMagic != magic) return UnitStateResult::notOurs;
    if (foundVersion != version) return UnitStateResult::unknownVersion;
    if (length > longestState || bytes.size() > length) return UnitStateResult::tooLong;
    if (bytes.size() < length || length < 4 * wordBytes) return UnitStateResult::truncated;
    Reader tail(bytes.last(wordBytes));
    return tail.word() == checksum(bytes.first(length - wordBytes)) ? UnitStateResult::ok : UnitStateResult::damaged;
}

} // namespace

const char* toText(UnitStateResult result) {
    switch (result) {
    case UnitStateResult::ok:
        return "the state was restored";
    case UnitStateResult::truncated:
        return "the state is cut off";
    case UnitStateResult::tooLong:
        return "the state is longer than any of this plug-in";
    case UnitStateResult::notOurs:
        return "the state belongs to another plug-in";
    case UnitStateResult::unknownVersion:
        return "the state was saved by another version";
    case UnitStateResult::damaged:
        return "the state is damaged";
    case UnitStateResult::missingValues:
        return "the state has fewer values than it says";
    case UnitStateResult::badValue:
        return "a parameter value in the state is out of range";
    case UnitStateResult::badText:
        return "a text in the state is malformed";
    }
    return "unknown result";
}

std::vector<std::uint8_t> encodeUnitState(const UnitState& state) {
    const SavedSettings& settings = state.settings;
    const std::size_t length =
        fixedBytes(UnitParameters::count) + settings.presetName.size() + settings.abSettings.size();
    Writer out;
    out.word(magic);
    out.word(version);
    out.word(static_cast<std::uint32_t>(length));
    out.word(static_cast<std::uint32_t>(UnitParameters::count));
    for (const float value : state.parameters)
        out.word(std::bit_cast<std::uint32_t>(value));
    out.word(settings.abState);
    out.word(settings.uiState);
    out.text(settings.presetName);
    out.text(settings.abSettings);
    out.word(checksum(out.bytes()));
    return std::move(out.bytes());
}

UnitStateResult decodeUnitState(std::span<const std::uint8_t> bytes, UnitState& state) {
    if (const UnitStateResult envelope = checkEnvelope(bytes); envelope != UnitStateResult::ok) return envelope;
    constexpr std::size_t headBytes = 3 * wordBytes;
    Reader in(bytes.subspan(headBytes, bytes.size() - headBytes - wordBytes));
    const std::uint32_t savedCount = in.word();
    UnitState read;
    const UnitStateResult values = readParameters(in, savedCount, read.parameters);
    if (values != UnitStateResult::ok) return values;
    read.settings.abState = in.word();
    read.settings.uiState = in.word();
    read.settings.presetName = in.text();
    read.settings.abSettings = in.text();
    if (in.failed() || !in.atEnd()) return UnitStateResult::badText;
    read.settings.abSettings = comparisonTextOf(read.settings.abSettings, savedCount);
    if (read.settings.abSettings.size() > SavedSettings::maxTextBytes) return UnitStateResult::badText;
    state = std::move(read);
    return UnitStateResult::ok;
}

} // namespace QVM_NAMESPACE
