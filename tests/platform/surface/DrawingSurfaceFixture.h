// Pictures by either back end, of which each pixel is computed by the test.
#pragma once

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/DrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

enum class Backend { cpu, gl };

// Race reports from inside a software renderer's own threads say nothing about this code.
#ifdef __SANITIZE_THREAD__
constexpr Backend backends[] = {Backend::cpu};
#else
constexpr Backend backends[] = {Backend::cpu, Backend::gl};
#endif

inline std::unique_ptr<DrawingSurface> make(Backend backend) {
    if (backend == Backend::cpu) return std::make_unique<CpuDrawingSurface>();
    std::string problem;
    std::unique_ptr<DrawingSurface> surface = GlDrawingSurface::make(GlRenderer::any, problem);
    EXPECT_NE(surface, nullptr) << problem;
    return surface;
}

inline bool isClearOutside(const Image& image, const Rect& painted) {
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            if (image.pixels[static_cast<std::size_t>(y * image.width + x)] != 0 &&
                !painted.contains(Point{double(x), double(y)}))
                return false;
    return true;
}

inline Image picture(DrawingSurface& surface, Size size, double scale,
                     const std::function<void(DrawingSurface&)>& draw) {
    surface.begin(size, scale);
    draw(surface);
    Image image;
    EXPECT_TRUE(surface.finish(image));
    EXPECT_TRUE(isClearOutside(image, surface.painted()));
    return image;
}

struct DrawingSurfaceFixture : testing::TestWithParam<Backend> {
    std::unique_ptr<DrawingSurface> surface = make(GetParam());
    Image image;

    void draw(Size size, double scale, const std::function<void(DrawingSurface&)>& draw) {
        ASSERT_NE(surface, nullptr);
        image = picture(*surface, size, scale, draw);
    }
    std::uint32_t at(int x, int y) const { return image.pixels.at(static_cast<std::size_t>(y * image.width + x)); }
    int alpha(int x, int y) const { return static_cast<int>(at(x, y) >> 24); }
    long long sumOfAlpha() const {
        long long sum = 0;
        for (const std::uint32_t p : image.pixels)
            sum += p >> 24;
        return sum;
    }
};
inline const Color white{1, 1, 1, 1};
inline std::vector<Vertex> rectangle(float left, float bottom, float right, float top) {
    return {{left, bottom}, {right, bottom}, {left, top}, {right, top}};
}

inline std::string nameOfBackend(const testing::TestParamInfo<Backend>& test) {
    return test.param == Backend::cpu ? "cpu" : "gl";
}

} // namespace QVM_NAMESPACE
