// The bytes of a saved state as a test writes them: damaged, mended, and as builds with other parameters have them.
#pragma once

#include "unit/UnitState.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE::statebytes {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::size_t versionWord = 1, lengthWord = 2, countWord = 3, firstValueWord = 4;
inline constexpr std::size_t nameLengthWord = firstValueWord + UnitParameters::count + 2;

inline std::uint32_t wordAt(const Bytes& bytes, std::size_t word) {
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + word * 4, 4);
    return value;
}

inline void setWord(Bytes& bytes, std::size_t word, std::uint32_t value) {
    for (unsigned i = 0; i < 4; ++i)
        bytes.at(word * 4 + i) = static_cast<std::uint8_t>(value >> (8 * i));
}

// Puts the checksum right again.
inline void seal(Bytes& bytes) {
    if (bytes.size() < 4) return;
    std::uint32_t hash = 2166136261U;
    for (std::size_t i = 0; i + 4 < bytes.size(); ++i)
        hash = (hash ^ bytes[i]) * 16777619U;
    for (unsigned i = 0; i < 4; ++i)
        bytes[bytes.size() - 4 + i] = static_cast<std::uint8_t>(hash >> (8 * i));
}

inline Bytes patched(Bytes bytes, std::size_t word, std::uint32_t value) {
    setWord(bytes, word, value);
    seal(bytes);
    return bytes;
}

// The state with these values in place of its own: that of a build which has so many parameters.
inline Bytes withValues(const UnitState& state, std::span<const float> values) {
    Bytes bytes = encodeUnitState(state);
    const auto first = bytes.begin() + firstValueWord * 4;
    Bytes words(values.size() * 4);
    for (std::size_t pid = 0; pid < values.size(); ++pid)
        setWord(words, pid, std::bit_cast<std::uint32_t>(values[pid]));
    bytes.insert(bytes.erase(first, first + UnitParameters::count * 4), words.begin(), words.end());
    setWord(bytes, countWord, static_cast<std::uint32_t>(values.size()));
    return patched(bytes, lengthWord, static_cast<std::uint32_t>(bytes.size()));
}

// One damaged copy after another of some states, the same ones for the same seed. Half of them have their length and
// checksum mended, so that what is behind these is reached.
class Mutations {
public:
    Mutations(std::vector<Bytes> originals, std::uint32_t seed) : originals_(std::move(originals)), random_(seed) {}

    Bytes next() {
        Bytes bytes = originals_[below(originals_.size())];
        for (std::size_t n = 1 + below(3); n > 0; --n)
            mutate(bytes);
        if (below(2) == 0 || bytes.size() < (lengthWord + 2) * 4) return bytes;
        if (below(8) != 0) setWord(bytes, lengthWord, static_cast<std::uint32_t>(bytes.size()));
        seal(bytes);
        return bytes;
    }

private:
    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    void mutate(Bytes& bytes) {
        const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
        const auto end = place + static_cast<std::ptrdiff_t>(
                                     below(std::min(static_cast<std::size_t>(bytes.end() - place), std::size_t{12})));
        switch (below(7)) {
        case 0:
            if (place != bytes.end()) *place ^= static_cast<std::uint8_t>(1U << below(8));
            break;
        case 1:
            if (place != bytes.end()) *place = static_cast<std::uint8_t>(random_());
            break;
        case 2:
            bytes.erase(place, end);
            break;
        case 3: {
            const Bytes again(place, end);
            bytes.insert(place, again.begin(), again.end());
            break;
        }
        case 4:
            bytes.resize(below(bytes.size() + 1));
            break;
        case 5: // a value that a parameter may have, or may not
            if (bytes.size() >= 8) setWord(bytes, below(bytes.size() / 4), awkwardWord());
            break;
        case 6: { // the end of another one
            const Bytes& other = originals_[below(originals_.size())];
            const std::size_t from = below(std::min(bytes.size(), other.size()));
            bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(from));
            bytes.insert(bytes.end(), other.begin() + static_cast<std::ptrdiff_t>(from), other.end());
            break;
        }
        }
    }

    std::uint32_t awkwardWord() {
        const float value = static_cast<float>(below(48)) - 24;
        const std::uint32_t words[] = {0,
                                       0x80000000U,
                                       0x7F800000U,
                                       0xFF800000U,
                                       0x7FC00000U,
                                       0xFFFFFFFFU,
                                       1,
                                       static_cast<std::uint32_t>(below(64)),
                                       SavedSettings::maxTextBytes,
                                       SavedSettings::maxTextBytes + 1,
                                       std::bit_cast<std::uint32_t>(value),
                                       std::bit_cast<std::uint32_t>(value * 1e20F)};
        return words[below(std::size(words))];
    }

    std::vector<Bytes> originals_;
    std::mt19937 random_;
};

} // namespace QVM_NAMESPACE::statebytes
