// A raster backend with no toolkit: small pictures in memory, each pixel computed from the layer's look.
#pragma once

#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/renderer/LayerRenderer.h"

#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace QVM_NAMESPACE {

// Premultiplied; compared exactly.
using FakePixel = std::array<float, 4>;

struct FakePicture {
    int width = 0, height = 0;
    std::vector<FakePixel> pixels;

    FakePicture(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w * h)) {}
    FakePixel& at(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
    const FakePixel& at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    bool operator==(const FakePicture&) const = default;
};

struct FakeRaster final : Raster {
    FakePicture picture;
    FakeRaster(int w, int h) : picture(w, h) {}
};

inline void blend(FakePixel& under, const FakePixel& over, float opacity) {
    const float rest = 1 - over[3] * opacity;
    for (std::size_t i = 0; i < 4; ++i)
        under[i] = under[i] * rest + over[i] * opacity;
}

inline FakePixel premultiplied(Color c) {
    return {c.r * c.a, c.g * c.a, c.b * c.a, c.a};
}

// Each pixel depends on the pixel's place and on everything that the look is made of, so that a stale raster, a wrong
// place or a shift by one pixel shows.
class FakeBackend final : public RasterBackend {
public:
    int alive() const {
        return static_cast<int>(std::count_if(made_.begin(), made_.end(), [](auto& r) { return !r.expired(); }));
    }

    std::shared_ptr<Raster> rasterise(const Layer& layer, const PresentedLayer& presented, const Rect& look,
                                      double scale) override {
        const auto raster = std::make_shared<FakeRaster>(static_cast<int>(std::lround(look.width * scale)),
                                                         static_cast<int>(std::lround(look.height * scale)));
        made_.push_back(raster);
        const std::size_t seed = lookHash(layer, presented);
        for (int y = 0; y < raster->picture.height; ++y) {
            for (int x = 0; x < raster->picture.width; ++x) {
                const std::size_t h = mix(mix(seed, static_cast<std::size_t>(x)), static_cast<std::size_t>(y));
                const auto part = [h](int shift) { return static_cast<float>(h >> shift & 0xFF) / 255; };
                raster->picture.at(x, y) = premultiplied({part(0), part(8), part(16), 0.5f + part(24) / 2});
            }
        }
        return raster;
    }

private:
    static std::size_t mix(std::size_t seed, std::size_t value) {
        std::uint64_t z = seed * 0x9E3779B97F4A7C15ull + value + 0x7F4A7C15ull;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ z >> 27) * 0x94D049BB133111EBull;
        return z ^ z >> 31;
    }
    static std::size_t mix(std::size_t seed, double value) { return mix(seed, std::hash<double>{}(value)); }
    static std::size_t mix(std::size_t seed, Color c) {
        for (const float part : {c.r, c.g, c.b, c.a})
            seed = mix(seed, static_cast<double>(part));
        return seed;
    }
    static std::size_t lookHash(const Layer& layer, const PresentedLayer& p) {
        std::size_t seed = mix(mix(1, p.backgroundColor), p.cornerRadius);
        seed = mix(mix(seed, p.bounds.width), p.bounds.height);
        seed = mix(mix(seed, layer.look().borderWidth()), layer.look().borderColor());
        seed = mix(mix(seed, layer.look().shadow().radius), static_cast<double>(layer.look().shadow().opacity));
        seed = mix(seed, layer.contents() ? layer.contents()->pixels.at(0) : 0.0);
        if (const auto* shape = dynamic_cast<const ShapeLayer*>(&layer)) {
            seed = mix(mix(mix(seed, shape->fillColor()), shape->strokeColor()), shape->lineWidth());
            seed = mix(seed, p.lineDashPhase);
            for (const auto& e : shape->path().elements())
                seed = mix(mix(seed, e.end.x), e.end.y);
        }
        if (const auto* text = dynamic_cast<const TextLayer*>(&layer))
            seed = mix(seed, std::hash<std::string>{}(text->string().string()));
        return seed;
    }

    std::vector<std::weak_ptr<FakeRaster>> made_;
};

// Draws into a picture, within one clip, and notes each call.
class FakeTarget final : public RasterTarget {
public:
    std::vector<std::string> calls;

    FakeTarget(FakePicture& picture, const Rect& clip) : clip_(clip), base_(picture) {
        forEachPixel(clip, [&](int x, int y) { base_.at(x, y) = {}; });
    }

    void draw(const Raster& raster, const AffineTransform& transform, double opacity) override {
        calls.push_back("draw");
        const FakePicture& source = static_cast<const FakeRaster&>(raster).picture;
        const AffineTransform back = transform.inverted();
        const Rect touched = transform.apply(Rect{0, 0, double(source.width), double(source.height)}).integral();
        forEachPixel(touched, [&](int x, int y) {
            const Point p = back.apply(Point{x + 0.5, y + 0.5});
            const int sx = static_cast<int>(std::floor(p.x)), sy = static_cast<int>(std::floor(p.y));
            if (sx < 0 || sy < 0 || sx >= source.width || sy >= source.height) return;
            blend(top().at(x, y), source.at(sx, sy), static_cast<float>(opacity));
        });
    }
    void fill(const Rect& rect, Color color) override {
        calls.push_back("fill");
        forEachPixel(rect.integral(), [&](int x, int y) {
            if (rect.contains(Point{x + 0.5, y + 0.5})) blend(top().at(x, y), premultiplied(color), 1);
        });
    }
    void pushClip(const Rect& rect, double radius, const AffineTransform& transform) override {
        calls.push_back("pushClip");
        clips_.push_back({rect, radius, transform.inverted()});
    }
    void popClip() override {
        calls.push_back("popClip");
        clips_.pop_back();
    }
    void pushGroup(const Rect&, double opacity) override {
        calls.push_back("pushGroup");
        groups_.push_back({FakePicture(base_.width, base_.height), static_cast<float>(opacity)});
    }
    void popGroup() override {
        calls.push_back("popGroup");
        const Group group = std::move(groups_.back());
        groups_.pop_back();
        forEachPixel(clip_, [&](int x, int y) { blend(top().at(x, y), group.picture.at(x, y), group.opacity); });
    }
    bool isBalanced() const { return clips_.empty() && groups_.empty(); }

private:
    struct Clip {
        Rect rect;
        double radius;
        AffineTransform back;
        bool contains(Point device) const {
            const Point p = back.apply(device);
            if (!rect.contains(p)) return false;
            const double r = std::min({radius, rect.width / 2, rect.height / 2});
            const double dx = std::max({rect.minX() + r - p.x, p.x - rect.maxX() + r, 0.0});
            const double dy = std::max({rect.minY() + r - p.y, p.y - rect.maxY() + r, 0.0});
            return dx * dx + dy * dy <= r * r || r <= 0;
        }
    };
    struct Group {
        FakePicture picture;
        float opacity;
    };
    FakePicture& top() { return groups_.empty() ? base_ : groups_.back().picture; }
    void forEachPixel(const Rect& area, const std::function<void(int, int)>& visit) {
        const Rect all{0, 0, double(base_.width), double(base_.height)};
        const Rect part = area.intersectionWith(clip_).intersectionWith(all);
        for (int y = static_cast<int>(part.minY()); y < static_cast<int>(part.maxY()); ++y) {
            for (int x = static_cast<int>(part.minX()); x < static_cast<int>(part.maxX()); ++x) {
                const Point centre{x + 0.5, y + 0.5};
                if (std::all_of(clips_.begin(), clips_.end(), [&](const Clip& c) { return c.contains(centre); }))
                    visit(x, y);
            }
        }
    }

    Rect clip_;
    FakePicture& base_;
    std::vector<Clip> clips_;
    std::vector<Group> groups_;
};

// Ignores everything; tests override what they look at.
struct QuietTarget : RasterTarget {
    void draw(const Raster&, const AffineTransform&, double) override {}
    void fill(const Rect&, Color) override {}
    void pushClip(const Rect&, double, const AffineTransform&) override {}
    void popClip() override {}
    void pushGroup(const Rect&, double) override {}
    void popGroup() override {}
};

} // namespace QVM_NAMESPACE
