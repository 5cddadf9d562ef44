#include "packaging/icons/SmallerPicture.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr int components = 4;

// How much of one axis' pixels a pixel of the result takes: from the first on, in pixels of the picture.
struct Share {
    int first = 0;
    std::vector<double> parts;
};

std::vector<Share> sharesOf(int from, int to) {
    std::vector<Share> shares(static_cast<std::size_t>(to));
    const double step = static_cast<double>(from) / to;
    for (int i = 0; i < to; ++i) {
        const double begin = i * step, end = std::min<double>(begin + step, from);
        Share& share = shares[static_cast<std::size_t>(i)];
        share.first = static_cast<int>(begin);
        for (int pixel = share.first; pixel < end; ++pixel)
            share.parts.push_back(std::min<double>(pixel + 1, end) - std::max<double>(pixel, begin));
    }
    return shares;
}

double sumOf(const SquarePicture& picture, const Share& across, const Share& down, int component) {
    double sum = 0;
    for (std::size_t y = 0; y < down.parts.size(); ++y) {
        const std::size_t row = (static_cast<std::size_t>(down.first) + y) * static_cast<std::size_t>(picture.side);
        for (std::size_t x = 0; x < across.parts.size(); ++x) {
            const std::size_t pixel = row + static_cast<std::size_t>(across.first) + x;
            sum += picture.components[pixel * components + static_cast<std::size_t>(component)] * across.parts[x] *
                   down.parts[y];
        }
    }
    return sum;
}

} // namespace

SquarePicture smallerPicture(const SquarePicture& picture, int side) {
    const std::vector<Share> shares = sharesOf(picture.side, side);
    const double area = std::pow(static_cast<double>(picture.side) / side, 2);
    SquarePicture result{side, {}};
    result.components.reserve(shares.size() * shares.size() * components);
    for (const Share& down : shares) {
        for (const Share& across : shares) {
            for (int component = 0; component < components; ++component)
                result.components.push_back(
                    static_cast<std::uint16_t>(std::lround(sumOf(picture, across, down, component) / area)));
        }
    }
    return result;
}

} // namespace QVM_NAMESPACE
