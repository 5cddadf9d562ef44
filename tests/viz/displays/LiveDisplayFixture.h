// Pictures of the displays for signals of which theory says what they look like, on both back ends. Every question is
// also asked of pictures that must fail: none, a shifted one, and those of other signals.
#pragma once

#include "viz/displays/LiveDisplays.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"
#include "viz/analysis/StereoSignals.h"
#include "viz/displays/QVMGoniometer.h"
#include "viz/displays/QVMStereoscope.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

constexpr int kSide = 240;
constexpr double kRate = 48000;

enum class Backend { cpu, gl };

#ifdef __SANITIZE_THREAD__ // reports from inside a software renderer's threads say nothing about this code
constexpr Backend kBackends[] = {Backend::cpu};
#else
constexpr Backend kBackends[] = {Backend::cpu, Backend::gl};
#endif

inline Image shifted(const Image& picture, int dx, int dy) {
    Image result = picture;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const int fromX = x - dx, fromY = y - dy;
            const bool isThere = fromX >= 0 && fromX < kSide && fromY >= 0 && fromY < kSide;
            result.pixels[static_cast<std::size_t>(y * kSide + x)] =
                isThere ? picture.pixels[static_cast<std::size_t>(fromY * kSide + fromX)] : 0;
        }
    }
    return result;
}

// Calls `f(x, y, alpha)` for every pixel, by its centre, y upwards from the bottom.
template <class F>
double sumOver(const Image& picture, F&& f) {
    double sum = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            sum += f(x + 0.5, kSide - y - 0.5, picture.pixels[static_cast<std::size_t>(y * kSide + x)] >> 24);
    return sum / 255;
}
inline double lightOf(const Image& picture) {
    return sumOver(picture, [](double, double, double alpha) { return alpha; });
}

class LiveDisplayPicture : public testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        std::string problem;
        if (GetParam() == Backend::cpu) surface = std::make_unique<CpuDrawingSurface>();
        if (GetParam() == Backend::gl) surface = GlDrawingSurface::make(GlRenderer::any, problem);
        ASSERT_NE(surface, nullptr) << problem;
    }
    template <class Draw>
    Image picture(Draw&& draw) {
        surface->begin({kSide, kSide}, 1);
        draw(*surface);
        Image result;
        EXPECT_TRUE(surface->finish(result));
        return result;
    }
    Image goniometer(Signal signal) {
        QVMGoniometer display;
        display.init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
        SignalSource source(signal, kRate);
        play(
            source, kRate, 90, [&](auto& block, unsigned n) { display.processAudio(&block, n, false); },
            [&](float dt) { display.prepareForDrawing(dt); });
        return picture([&](DrawingSurface& s) { display.glDraw(s, displayCanvas().sketch.color); });
    }
    Image stereoscope(Signal signal) {
        QVMStereoscope display;
        display.init(displayCanvas(kSide, kSide), float{kRate}, kBlock);
        SignalSource source(signal, kRate);
        play(
            source, kRate, 90, [&](auto& block, unsigned n) { display.processAudio(&block, n); },
            [&](float dt) { display.prepareForDrawing(dt); });
        return picture([&](DrawingSurface& s) { display.glDraw(s); });
    }
    // Whether `holds` is true of the picture of `of` and of no other one.
    void expectOnly(Signal of, const std::function<Image(Signal)>& make,
                    const std::function<bool(const Image&)>& holds) {
        const Image right = make(of);
        EXPECT_TRUE(holds(right));
        EXPECT_FALSE(holds(picture([](DrawingSurface&) {}))) << "blank";
        // Along a line, a shift changes little.
        EXPECT_FALSE(holds(shifted(right, 14, 0)) && holds(shifted(right, 0, -14))) << "shifted";
        for (const NamedSignal& other : kSignals) {
            const bool isSameKind = other.signal == Signal::sine && of == Signal::mono;
            if (other.signal == of || isSameKind) continue;
            EXPECT_FALSE(holds(make(other.signal))) << other.name;
        }
    }

    std::unique_ptr<DrawingSurface> surface;
};
inline std::string nameOfBackend(const testing::TestParamInfo<Backend>& test) {
    return test.param == Backend::cpu ? "cpu" : "gl";
}

} // namespace QVM_NAMESPACE
