// What is on the screen of a virtual X server that keeps it in a file (Xvfb -fbdir): read without the server's knowing,
// so that looking costs it nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace slantwise_bench {

// Pixels of the root window.
struct Area {
    int x = 0, y = 0, width = 0, height = 0;
    bool isEmpty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const Area&, const Area&) = default;
};

using Pixels = std::vector<std::uint32_t>; // 0xRRGGBB in the low bits, by rows

class ScreenFile {
public:
    // Throws std::runtime_error when the file is no screen of 32 bits a pixel.
    explicit ScreenFile(const std::string& path);
    ~ScreenFile();
    ScreenFile(const ScreenFile&) = delete;
    ScreenFile& operator=(const ScreenFile&) = delete;

    // Every `step`-th pixel of every `step`-th row of what of the area is on the screen.
    Pixels read(const Area& area, int step = 1) const;

private:
    const std::uint32_t* row(int y) const;

    const std::byte* file_ = nullptr;
    std::size_t bytes_ = 0, firstPixel_ = 0, rowBytes_ = 0;
    int width_ = 0, height_ = 0;
};

} // namespace slantwise_bench
