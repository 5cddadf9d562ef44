#include "bench/hosted/probe/ScreenFile.h"

#include <algorithm>
#include <stdexcept>

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace slantwise_bench {

namespace {

// Words of the file's header, most significant byte first.
enum HeaderWord { headerBytes = 0, widthWord = 4, heightWord = 5, bitsPerPixel = 11, bytesPerLine = 12, colours = 19 };
constexpr std::size_t headerWords = 25, bytesPerColour = 12;

std::uint32_t wordAt(const std::byte* file, HeaderWord word) {
    return ntohl(reinterpret_cast<const std::uint32_t*>(file)[word]);
}

} // namespace

ScreenFile::ScreenFile(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0 || status.st_size < static_cast<off_t>(headerWords * 4))
        throw std::runtime_error("no screen in " + path);
    bytes_ = static_cast<std::size_t>(status.st_size);
    void* const mapped = mmap(nullptr, bytes_, PROT_READ, MAP_SHARED, file, 0);
    close(file);
    if (mapped == MAP_FAILED) throw std::runtime_error("cannot map " + path);
    file_ = static_cast<const std::byte*>(mapped);
    width_ = static_cast<int>(wordAt(file_, widthWord));
    height_ = static_cast<int>(wordAt(file_, heightWord));
    rowBytes_ = wordAt(file_, bytesPerLine);
    firstPixel_ = wordAt(file_, headerBytes) + wordAt(file_, colours) * bytesPerColour;
    if (wordAt(file_, bitsPerPixel) != 32 || firstPixel_ + rowBytes_ * static_cast<std::size_t>(height_) > bytes_)
        throw std::runtime_error("not a screen of 32 bits a pixel: " + path);
}

ScreenFile::~ScreenFile() {
    if (file_) munmap(const_cast<std::byte*>(file_), bytes_);
}

const std::uint32_t* ScreenFile::row(int y) const {
    return reinterpret_cast<const std::uint32_t*>(file_ + firstPixel_ + rowBytes_ * static_cast<std::size_t>(y));
}

Pixels ScreenFile::read(const Area& area, int step) const {
    const int left = std::max(area.x, 0), right = std::min(area.x + area.width, width_);
    const int top = std::max(area.y, 0), bottom = std::min(area.y + area.height, height_);
    Pixels pixels;
    for (int y = top; y < bottom; y += step) {
        const std::uint32_t* const from = row(y);
        for (int x = left; x < right; x += step)
            pixels.push_back(from[x] & 0xFFFFFFU);
    }
    return pixels;
}

} // namespace slantwise_bench
