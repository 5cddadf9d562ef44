// Drawings for both back ends, and how far two pictures differ.
#pragma once

#include "platform/surface/DrawingSurface.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// The most that any part (alpha, red, green, blue) of any pixel differs; 256 when the sizes do.
inline int greatestDifference(const Image& a, const Image& b) {
    if (a.width != b.width || a.height != b.height || a.pixels.size() != b.pixels.size()) return 256;
    int greatest = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        for (const int shift : {0, 8, 16, 24}) {
            const int x = static_cast<int>(a.pixels[i] >> shift & 0xFF),
                      y = static_cast<int>(b.pixels[i] >> shift & 0xFF);
            greatest = std::max(greatest, std::abs(x - y));
        }
    }
    return greatest;
}

// The picture one pixel further to the right.
inline Image shiftedRight(const Image& image) {
    Image shifted{image.width, image.height, std::vector<std::uint32_t>(image.pixels.size())};
    for (int y = 0; y < image.height; ++y)
        std::copy_n(&image.pixels[static_cast<std::size_t>(y) * image.width], image.width - 1,
                    &shifted.pixels[static_cast<std::size_t>(y) * image.width + 1]);
    return shifted;
}

struct Drawing {
    std::string name;
    std::function<void(DrawingSurface&)> draw;
};

inline std::vector<Vertex> wave(int points, float height) {
    std::vector<Vertex> curve;
    for (int i = 0; i < points; ++i) {
        const float x = -1 + 2 * static_cast<float>(i) / static_cast<float>(points - 1);
        curve.push_back({x, height * std::sin(7 * x) * x});
    }
    return curve;
}

inline std::vector<Drawing> drawings() {
    const auto unit = [](DrawingSurface& s) { s.setProjection(-1, 1, -1, 1); };
    return {
        {"thinLine",
         [=](DrawingSurface& s) {
             unit(s), s.drawLineStrip(wave(97, 0.8f), {0.5f}, Color{1, 1, 1, 0.5f});
         }},
        {"curve",
         [=](DrawingSurface& s) {
             unit(s), s.drawLineStrip(wave(97, 0.8f), {2}, Color{0.9f, 0.4f, 0.1f, 1});
         }},
        {"steepCurve",
         [=](DrawingSurface& s) {
             unit(s), s.drawLineStrip(wave(40, 30), {2}, Color{0.2f, 1, 0.4f, 0.35f});
         }},
        {"dashes",
         [=](DrawingSurface& s) {
             unit(s);
             s.drawLineStrip(std::vector<Vertex>{{-1, 0.31f}, {1, 0.31f}}, {1, 4, 2}, Color{0.5f, 0.5f, 0.5f, 0.5f});
             s.drawLineStrip(wave(60, 0.7f), {3, 5, 3}, Color{0.3f, 0.6f, 1, 0.8f});
         }},
        {"sharpTurns",
         [](DrawingSurface& s) {
             s.drawLineStrip(std::vector<Vertex>{{5, 5}, {40, 30}, {6, 9}, {40, 4}, {40, 33}, {22, 33}}, {5},
                             Color{1, 0.2f, 0.7f, 0.6f});
         }},
        {"colouredLine",
         [=](DrawingSurface& s) {
             unit(s);
             std::vector<Color> colors;
             for (int i = 0; i < 30; ++i)
                 colors.push_back({static_cast<float>(i) / 29, 0.5f, 1 - static_cast<float>(i) / 29,
                                   0.3f + static_cast<float>(i % 5) / 10});
             s.drawLineStrip(wave(30, 0.9f), {4}, colors);
         }},
        {"bars",
         [](DrawingSurface& s) {
             for (const float x : {3.0f, 9.3f, 15.75f}) {
                 const std::vector<Vertex> bar{{x, 2.2f}, {x + 6, 2.2f}, {x, 30.6f}, {x + 6, 30.6f}};
                 s.fillTriangles(bar, TriangleMode::strip, Color{1, 0, 0, 0.25f});
             }
         }},
        {"fan",
         [](DrawingSurface& s) {
             std::vector<Vertex> corners;
             std::vector<Color> colors;
             for (int i = 0; i < 9; ++i) {
                 const auto at = [](int k) {
                     const float turn = static_cast<float>(k) * 2 * std::numbers::pi_v<float> / 9;
                     return Vertex{24 + 19 * std::cos(turn), 18 + 15 * std::sin(turn)};
                 };
                 corners.insert(corners.end(), {{24, 18}, at(i), at(i + 1)});
                 colors.insert(colors.end(), {Color{1, 1, 1, 1}, Color{0, 0.4f, 1, 0.7f}, Color{0.8f, 0, 0.2f, 0.2f}});
             }
             s.fillTriangles(corners, TriangleMode::list, colors);
         }},
        {"slivers",
         [](DrawingSurface& s) {
             s.fillTriangles(std::vector<Vertex>{{1, 1}, {47, 2.3f}, {47, 1.7f}}, TriangleMode::list,
                             Color{1, 1, 0, 1});
             s.fillTriangles(std::vector<Vertex>{{3, 5}, {3.2f, 35}, {3.4f, 5}}, TriangleMode::list, Color{0, 1, 1, 1});
             s.fillTriangles(std::vector<Vertex>{{-500, 10}, {700, 30}, {700, 31}}, TriangleMode::list,
                             Color{1, 0, 1, 1});
         }},
        {"beyondTheEdges",
         [=](DrawingSurface& s) {
             unit(s);
             s.drawLineStrip(std::vector<Vertex>{{-3, -2}, {0.2f, 0.4f}, {40, 2}}, {6}, Color{0, 1, 0, 1});
             s.fillTriangles(std::vector<Vertex>{{0, 0}, {9, 1}, {3, -9}}, TriangleMode::list, Color{0, 0, 1, 0.5f});
         }},
    };
}

} // namespace QVM_NAMESPACE
