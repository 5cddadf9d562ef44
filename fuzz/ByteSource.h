// An input of a fuzzer as numbers and texts. Past its end everything is 0 and empty, so any input means something.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace slantwise_fuzz {

class ByteSource {
public:
    // The bytes are borrowed and outlive the source.
    explicit ByteSource(std::span<const std::uint8_t> bytes) : left_(bytes) {}

    bool isEmpty() const { return left_.empty(); }
    std::uint8_t byte() {
        if (left_.empty()) return 0;
        const std::uint8_t value = left_.front();
        left_ = left_.subspan(1);
        return value;
    }
    // Below `bound`, which is from 1 to 256.
    std::size_t below(std::size_t bound) { return byte() % bound; }
    // From 0 to 1, both included.
    float part() { return static_cast<float>(byte()) / 255; }
    std::uint32_t word() {
        std::uint32_t value = 0;
        for (unsigned shift = 0; shift < 32; shift += 8)
            value |= static_cast<std::uint32_t>(byte()) << shift;
        return value;
    }
    // Any number at all, and what is none.
    float number() { return std::bit_cast<float>(word()); }
    // A byte says how long it is, in units of `step` bytes.
    std::string text(std::size_t step = 1) {
        const std::size_t wanted = byte() * step; // read before it is asked what is left
        const std::size_t length = std::min(wanted, left_.size());
        const std::string value(left_.begin(), left_.begin() + static_cast<std::ptrdiff_t>(length));
        left_ = left_.subspan(length);
        return value;
    }

private:
    std::span<const std::uint8_t> left_;
};

} // namespace slantwise_fuzz
