#include "toolkit/Resampling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

// Which pixels of a row, from `first` on, make up one of the new row, and how much of each.
struct Share {
    int first = 0;
    std::vector<float> weights;
};

Share averageOf(double from, double to) {
    Share share;
    share.first = static_cast<int>(std::floor(from));
    const int last = static_cast<int>(std::ceil(to));
    for (int i = share.first; i < last; ++i) {
        const double covered = std::min<double>(i + 1, to) - std::max<double>(i, from);
        share.weights.push_back(static_cast<float>(covered / (to - from)));
    }
    return share;
}

Share interpolationAt(double centre, int size) {
    const double left = std::clamp(centre - 0.5, 0.0, size - 1.0);
    const int first = std::min(static_cast<int>(left), std::max(0, size - 2));
    const auto part = static_cast<float>(left - first);
    return size == 1 ? Share{0, {1}} : Share{first, {1 - part, part}};
}

std::vector<Share> shares(int oldSize, int newSize) {
    std::vector<Share> all;
    all.reserve(static_cast<std::size_t>(newSize));
    const double step = static_cast<double>(oldSize) / newSize;
    for (int i = 0; i < newSize; ++i) {
        all.push_back(step > 1 ? averageOf(i * step, std::min<double>((i + 1) * step, oldSize))
                               : interpolationAt((i + 0.5) * step, oldSize));
    }
    return all;
}

using Pixel = std::array<float, 4>;

Pixel unpacked(std::uint32_t p) {
    return {static_cast<float>(p & 0xFF), static_cast<float>(p >> 8 & 0xFF), static_cast<float>(p >> 16 & 0xFF),
            static_cast<float>(p >> 24)};
}

std::uint32_t packed(const Pixel& p) {
    const auto part = [&p](std::size_t i) { return static_cast<std::uint32_t>(std::clamp(p[i] + 0.5f, 0.0f, 255.0f)); };
    return part(0) | part(1) << 8 | part(2) << 16 | part(3) << 24;
}

template <class At> // at(i): the i-th pixel of a row or column
Pixel mixed(const Share& share, const At& at) {
    Pixel sum{};
    for (std::size_t k = 0; k < share.weights.size(); ++k) {
        const Pixel& p = at(share.first + static_cast<int>(k));
        for (std::size_t i = 0; i < 4; ++i)
            sum[i] += p[i] * share.weights[k];
    }
    return sum;
}

} // namespace

Image resampled(const Image& image, int width, int height) {
    if (image.isEmpty() || width <= 0 || height <= 0) return {};
    if (width == image.width && height == image.height) return image;

    const auto index = [](int x, int y, int w) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(w) + static_cast<std::size_t>(x);
    };
    const std::vector<Share> columns = shares(image.width, width), rows = shares(image.height, height);
    std::vector<Pixel> wide(index(0, image.height, width)); // the new width, the old height
    std::vector<Pixel> row(static_cast<std::size_t>(image.width));
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x)
            row[static_cast<std::size_t>(x)] = unpacked(image.pixels[index(x, y, image.width)]);
        for (int x = 0; x < width; ++x) {
            wide[index(x, y, width)] = mixed(columns[static_cast<std::size_t>(x)],
                                             [&](int i) -> const Pixel& { return row[static_cast<std::size_t>(i)]; });
        }
    }
    Image out{width, height, std::vector<std::uint32_t>(index(0, height, width))};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            out.pixels[index(x, y, width)] = packed(mixed(
                rows[static_cast<std::size_t>(y)], [&](int i) -> const Pixel& { return wide[index(x, i, width)]; }));
        }
    }
    return out;
}

} // namespace QVM_NAMESPACE
