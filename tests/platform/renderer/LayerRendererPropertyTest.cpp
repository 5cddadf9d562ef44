// Whatever happens to a tree: composing only the damage gives the picture that composing everything anew gives.
#include "platform/renderer/LayerRenderer.h"

#include "platform/layer/LayerDump.h"
#include "platform/layer/Transaction.h"
#include "platform/renderer/FakePixels.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace QVM_NAMESPACE {
namespace {

constexpr int width = 60, height = 48; // points

// A still tree that shows what `layer` presents at `time`.
std::shared_ptr<Layer> stillCopy(const Layer& layer, double time) {
    std::shared_ptr<Layer> copy;
    if (const auto* shape = dynamic_cast<const ShapeLayer*>(&layer)) {
        const auto still = std::make_shared<ShapeLayer>(layer.yAxis());
        still->setPath(shape->path());
        still->setFillColor(shape->fillColor());
        still->setStrokeColor(shape->strokeColor());
        still->setLineWidth(shape->lineWidth());
        still->setLineDashPhase(layer.presentation(time).lineDashPhase);
        copy = still;
    } else if (const auto* text = dynamic_cast<const TextLayer*>(&layer)) {
        const auto still = std::make_shared<TextLayer>(layer.yAxis());
        still->setString(text->string());
        copy = still;
    } else {
        copy = std::make_shared<Layer>(layer.yAxis());
    }
    const PresentedLayer p = layer.presentation(time);
    copy->setAnchorPoint(layer.anchorPoint());
    copy->setBounds(p.bounds);
    copy->setPosition(p.position);
    copy->setTransform(p.transform);
    copy->setOpacity(p.opacity);
    copy->setHidden(layer.isHidden());
    copy->setMasksToBounds(layer.masksToBounds());
    copy->look().setBackgroundColor(p.backgroundColor);
    copy->look().setCornerRadius(p.cornerRadius);
    copy->look().setBorder(layer.look().borderWidth(), layer.look().borderColor());
    copy->look().setShadow(layer.look().shadow());
    copy->look().setContents(layer.contents(), layer.look().contentsGravity());
    for (const auto& sublayer : layer.tree().sublayers())
        copy->tree().add(stillCopy(*sublayer, time));
    return copy;
}

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random_(seed) {
        root->setFrame({0, 0, width, height});
        root->look().setBackgroundColor(Color::white(0.5f));
        for (int i = 0; i < 6; ++i)
            addLayer();
    }

    // One to three changes, of any kind, some of them gliding.
    void change() {
        for (int n = 1 + pick(3); n > 0; --n) {
            if (chance(0.2)) {
                const auto glide = Transaction::animated(0.05 + 0.1 * pick(5));
                changeOne();
            } else {
                changeOne();
            }
        }
    }
    bool chance(double p) { return std::uniform_real_distribution<>(0, 1)(random_) < p; }
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::shared_ptr<Layer> root = std::make_shared<Layer>();

private:
    double coordinate(int n) { return pick(2 * n) / 2.0 - 4; } // halves, and some beyond the edges
    Color color() {
        const auto part = [this] { return static_cast<float>(pick(256)) / 255; };
        return {part(), part(), part(), chance(0.5) ? 1 : part()};
    }
    Rect rect() { return {coordinate(width), coordinate(height), 1 + pick(50) / 2.0, 1 + pick(40) / 2.0}; }

    std::shared_ptr<Layer> newLayer() {
        const YAxis axis = chance(0.3) ? YAxis::up : YAxis::down;
        std::shared_ptr<Layer> layer;
        if (chance(0.2)) {
            const auto shape = std::make_shared<ShapeLayer>(axis);
            shape->setPath(Path::roundedRect(rect(), 2));
            shape->setFillColor(color());
            layer = shape;
        } else if (chance(0.2)) {
            const auto text = std::make_shared<TextLayer>(axis);
            text->setString({"ab", Font{"HelveticaNeue", 8}, Color::white(1)});
            layer = text;
        } else {
            layer = std::make_shared<Layer>(axis);
            if (chance(0.8)) layer->look().setBackgroundColor(color());
            if (chance(0.3)) layer->look().setCornerRadius(2);
            layer->setMasksToBounds(chance(0.4));
        }
        layer->setFrame(rect());
        return layer;
    }
    void addLayer() {
        all_.push_back(newLayer());
        Layer& parent = anyLayer();
        parent.tree().insert(all_.back(),
                             static_cast<std::size_t>(pick(static_cast<int>(parent.tree().sublayers().size()) + 1)));
        while (all_.size() > 24)
            all_.front()->tree().removeFromSuperlayer(), all_.erase(all_.begin());
    }
    Layer& anyLayer() {
        if (all_.empty() || chance(0.3)) return *root;
        return *all_[static_cast<std::size_t>(pick(static_cast<int>(all_.size())))];
    }
    void animate(Layer& layer) {
        BasicAnimation a;
        const char* scalars[] = {"opacity",       "transform.scale", "transform.translation.x",
                                 "lineDashPhase", "cornerRadius",    "position.x",
                                 "position.y"};
        a.keyPath = scalars[pick(7)];
        a.fromValue = pick(8) / 4.0;
        if (chance(0.8)) a.toValue = pick(40) / 8.0;
        a.duration = 0.05 + pick(10) / 20.0;
        a.beginDelay = chance(0.2) ? 0.2 : 0;
        a.autoreverses = chance(0.3);
        a.repeatCount = chance(0.1) ? BasicAnimation::forever : 1 + pick(2);
        a.removedOnCompletion = chance(0.8);
        if (chance(0.2)) {
            a.completion = [weak = layer.weak_from_this()](bool) {
                if (const auto over = weak.lock()) over->tree().removeFromSuperlayer();
            };
        }
        layer.animations().add(a, a.keyPath);
    }
    void changeOne() {
        Layer& layer = anyLayer();
        if (&layer == root.get()) return addLayer();
        switch (pick(18)) {
        case 0:
            return addLayer();
        case 1:
            return layer.tree().removeFromSuperlayer();
        case 2:
            return layer.setFrame(rect());
        case 3:
            return layer.setPosition({coordinate(width), coordinate(height)});
        case 4:
            return layer.setOpacity(pick(5) / 4.0);
        case 5:
            return layer.setHidden(!layer.isHidden());
        case 6:
            return layer.setMasksToBounds(!layer.masksToBounds());
        case 7:
            return layer.look().setCornerRadius(pick(4) * 2);
        case 8:
            return layer.look().setBackgroundColor(color());
        case 9:
            return layer.setBounds({coordinate(10), coordinate(10), layer.bounds().width, layer.bounds().height});
        case 10:
            return layer.setTransform(
                chance(0.5) ? AffineTransform{}
                            : AffineTransform::rotation(pick(8) * 0.4).then(AffineTransform::scale(pick(9) / 4.0, 1)));
        case 11: { // another superlayer or another place in the order
            Layer& parent = anyLayer();
            return parent.tree().insert(layer.shared_from_this(), static_cast<std::size_t>(pick(4)));
        }
        case 12:
            return layer.look().setBorder(pick(3), color());
        case 13:
            return layer.look().setShadow({color(), double(pick(3)), {1, 2}, chance(0.5) ? 0.5f : 0});
        case 14: {
            auto image = std::make_shared<Image>();
            *image = {8, 6, std::vector<std::uint32_t>(48, static_cast<std::uint32_t>(pick(1000)))};
            return layer.look().setContents(chance(0.3) ? nullptr : image, static_cast<ContentsGravity>(pick(4)));
        }
        case 15:
            return animate(layer);
        case 16:
            return layer.setAnchorPoint({pick(3) / 2.0, pick(3) / 2.0});
        case 17:
            if (auto* shape = dynamic_cast<ShapeLayer*>(&layer)) shape->setPath(Path::rect(rect()));
            if (auto* text = dynamic_cast<TextLayer*>(&layer))
                text->setString({chance(0.3) ? "" : std::to_string(pick(100)), Font{"HelveticaNeue", 8}, {}});
            return;
        default:
            return;
        }
    }

    std::mt19937 random_;
    std::vector<std::shared_ptr<Layer>> all_;
};

FakePicture composedAnew(const Layer& root, double scale, double time, int w, int h) {
    FakeBackend backend;
    LayerRenderer renderer(backend);
    renderer.setScale(scale);
    renderer.setRootLayer(stillCopy(root, time));
    renderer.update(time);
    FakePicture picture(w, h);
    FakeTarget target(picture, {0, 0, double(w), double(h)});
    renderer.compose(target, {0, 0, double(w), double(h)});
    return picture;
}

std::string firstDifference(const FakePicture& a, const FakePicture& b) {
    std::ostringstream text;
    for (int y = 0; y < a.height; ++y) {
        for (int x = 0; x < a.width; ++x) {
            if (a.at(x, y) == b.at(x, y)) continue;
            text << "first at " << x << ',' << y << ':';
            for (std::size_t i = 0; i < 4; ++i)
                text << ' ' << a.at(x, y)[i] << " for " << b.at(x, y)[i];
            return text.str();
        }
    }
    return "none";
}

class IncrementalComposition : public testing::TestWithParam<unsigned> {};

TEST_P(IncrementalComposition, EqualsAFullOneAfterAnyChanges) {
    const double scales[] = {1, 2, 1.25, 1.5};
    const double scale = scales[GetParam() % 4];
    const int w = static_cast<int>(width * scale), h = static_cast<int>(height * scale);
    VirtualTime time;
    RandomTree tree(GetParam());
    FakeBackend backend;
    LayerRenderer renderer(backend);
    renderer.setScale(scale);
    renderer.setRootLayer(tree.root);
    FakePicture shown(w, h);
    int framesThatChanged = 0;
    double pixelsComposed = 0;
    for (int frame = 0; frame < 120; ++frame) {
        if (tree.chance(0.7)) tree.change();
        time.advance(1.0 / 60);
        const FakePicture before = shown;
        const std::vector<Rect> damage = renderer.update(time.now()).damage;
        ASSERT_LE(damage.size(), DamageRegion::maxRects);
        for (std::size_t i = 0; i < damage.size(); ++i) {
            ASSERT_EQ(damage[i], damage[i].integral());
            ASSERT_TRUE((Rect{0, 0, double(w), double(h)}).contains(damage[i]));
            for (std::size_t j = 0; j < i; ++j)
                ASSERT_FALSE(damage[i].intersects(damage[j]));
            FakeTarget target(shown, damage[i]);
            renderer.compose(target, damage[i]);
            ASSERT_TRUE(target.isBalanced());
            pixelsComposed += damage[i].width * damage[i].height;
        }
        framesThatChanged += shown != before;
        const FakePicture expected = composedAnew(*tree.root, scale, time.now(), w, h);
        ASSERT_TRUE(shown == expected) << "frame " << frame << ", " << firstDifference(shown, expected) << "\n"
                                       << dumpLayerTree(*tree.root);
        if (renderer.isAnimating()) continue;
        ASSERT_TRUE(renderer.update(time.now()).damage.empty());
        ASSERT_TRUE(renderer.update(time.now()).rasterised.empty());
    }
    // Neither a tree that shows nothing nor a renderer that composes everything would pass for one that works.
    EXPECT_GT(framesThatChanged, 30);
    EXPECT_LT(pixelsComposed, 0.6 * 120 * w * h);
}

INSTANTIATE_TEST_SUITE_P(Seeds, IncrementalComposition, testing::Range(1u, 25u));

} // namespace
} // namespace QVM_NAMESPACE
