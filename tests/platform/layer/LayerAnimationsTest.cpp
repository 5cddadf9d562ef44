#include "platform/layer/LayerAnimations.h"

#include "platform/layer/Layer.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/Transaction.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

BasicAnimation animation(const char* keyPath, AnimatableValue from, AnimatableValue to, double seconds = 1) {
    BasicAnimation a;
    a.keyPath = keyPath;
    a.fromValue = from;
    a.toValue = to;
    a.duration = seconds;
    a.timing = TimingFunction::linear;
    return a;
}

struct LayerAnimationsTest : testing::Test {
    VirtualTime time{100};
    std::shared_ptr<Layer> layer = std::make_shared<Layer>();
    std::vector<bool> completions;
    LayerAnimationsTest() { layer->setFrame({0, 0, 10, 10}); }
    BasicAnimation fade(double seconds = 1) {
        BasicAnimation a = animation("opacity", 0.0, 0.8, seconds);
        a.completion = [this](bool finished) { completions.push_back(finished); };
        return a;
    }
};

TEST_F(LayerAnimationsTest, PresentsBetweenItsValuesAndLeavesTheLayerAlone) {
    layer->animations().add(fade(), "fade");
    for (const double t : {0.0, 0.25, 0.5, 0.75}) {
        EXPECT_DOUBLE_EQ(layer->presentation(100 + t).opacity, 0.8 * t);
    }
    EXPECT_EQ(layer->opacity(), 1);
    EXPECT_EQ(layer->presentation(101).opacity, 1); // over: the layer's own again
    time.advance(0.5);
    EXPECT_DOUBLE_EQ(layer->presentation().opacity, 0.4);
}

TEST_F(LayerAnimationsTest, EveryKeyPathReachesItsValueAndNoOther) {
    struct Case {
        const char* keyPath;
        AnimatableValue value;
        void (*apply)(PresentedLayer& expected);
    };
    const Case cases[] = {
        {"opacity", 0.25, [](PresentedLayer& p) { p.opacity = 0.25; }},
        {"position", Point{3, 4},
         [](PresentedLayer& p) {
             p.position = {3, 4};
         }},
        {"position.x", 7.0, [](PresentedLayer& p) { p.position.x = 7; }},
        {"position.y", 8.0, [](PresentedLayer& p) { p.position.y = 8; }},
        {"bounds", Rect{1, 2, 3, 4},
         [](PresentedLayer& p) {
             p.bounds = {1, 2, 3, 4};
         }},
        {"transform", AffineTransform::scale(1, 2), [](PresentedLayer& p) { p.transform.d = 2; }},
        {"transform.scale", 3.0, [](PresentedLayer& p) { p.transform = AffineTransform::scale(3, 3); }},
        {"transform.translation.x", 5.0, [](PresentedLayer& p) { p.transform.tx = 5; }},
        {"transform.translation.y", 6.0, [](PresentedLayer& p) { p.transform.ty = 6; }},
        {"backgroundColor", Color{1, 0, 0, 1},
         [](PresentedLayer& p) {
             p.backgroundColor = {1, 0, 0, 1};
         }},
        {"cornerRadius", 2.0, [](PresentedLayer& p) { p.cornerRadius = 2; }},
        {"lineDashPhase", 9.0, [](PresentedLayer& p) { p.lineDashPhase = 9; }},
    };
    for (const Case& c : cases) {
        PresentedLayer expected = layer->presentation(100);
        c.apply(expected);
        Layer fresh;
        fresh.setFrame({0, 0, 10, 10});
        fresh.animations().add(animation(c.keyPath, c.value, c.value), "any");
        const PresentedLayer p = fresh.presentation(100.5);
        const auto values = [](const PresentedLayer& l) {
            return std::tuple(l.position, l.bounds, l.opacity, l.transform, l.backgroundColor, l.cornerRadius,
                              l.lineDashPhase);
        };
        EXPECT_TRUE(values(p) == values(expected)) << c.keyPath;
    }
}

TEST_F(LayerAnimationsTest, ScaleMultipliesTheLayersOwnTransform) {
    layer->setTransform(AffineTransform::scale(2, 2).then(AffineTransform::translation(5, 0)));
    layer->animations().add(animation("transform.scale", 1.0, 3.0), "pulse");
    EXPECT_EQ(layer->presentation(100.5).transform,
              AffineTransform::scale(4, 4).then(AffineTransform::translation(5, 0)));
}

TEST_F(LayerAnimationsTest, AbsentValuesAreTheLayersOwn) {
    layer->setOpacity(0.5);
    BasicAnimation a = animation("opacity", 0.0, 0.0);
    a.toValue.reset();
    layer->animations().add(a, "fadeIn");
    EXPECT_EQ(layer->presentation(100.5).opacity, 0.25);
    layer->setOpacity(0.8); // the end moves along
    EXPECT_EQ(layer->presentation(100.5).opacity, 0.4);
}

TEST_F(LayerAnimationsTest, AnUnknownKeyPathOrAWrongKindOfValueChangesNothing) {
    layer->animations().add(animation("zPosition", 1.0, 2.0), "a");
    layer->animations().add(animation("position", 1.0, 2.0), "b");
    EXPECT_EQ(layer->presentation(100.5).position, layer->position());
}

TEST_F(LayerAnimationsTest, AutoreverseAndRepeat) {
    BasicAnimation a = animation("transform.scale", 1.0, 1.2, 0.5);
    a.autoreverses = true;
    a.repeatCount = 2;
    layer->animations().add(a, "pulse");
    const auto scaleAt = [&](double t) { return layer->presentation(100 + t).transform.a; };
    EXPECT_DOUBLE_EQ(scaleAt(0.25), 1.1);
    EXPECT_DOUBLE_EQ(scaleAt(0.5), 1.2);
    EXPECT_DOUBLE_EQ(scaleAt(0.75), 1.1);
    EXPECT_DOUBLE_EQ(scaleAt(1.5), 1.2);
    EXPECT_DOUBLE_EQ(scaleAt(2), 1);
    EXPECT_FALSE(layer->animations().find("pulse")->isFinishedAt(1.99));
    layer->animations().finish(102);
    EXPECT_TRUE(layer->animations().isEmpty());
}

TEST_F(LayerAnimationsTest, ForeverGoesOnUntilItIsRemoved) {
    ShapeLayer ants;
    BasicAnimation march = animation("lineDashPhase", 0.0, 10.0, 2);
    march.repeatCount = BasicAnimation::forever;
    ants.animations().add(march, "PhaseShift");
    ants.animations().finish(1e6);
    EXPECT_TRUE(ants.animations().isRunning());
    EXPECT_FALSE(ants.animations().hasEnding());
    EXPECT_EQ(ants.presentation(100 + 2001).lineDashPhase, 5);
    ants.animations().remove("PhaseShift");
    EXPECT_EQ(ants.presentation(100 + 2001).lineDashPhase, 0);
}

TEST_F(LayerAnimationsTest, TheCompletionComesOnceAtTheEnd) {
    layer->animations().add(fade(), "fade");
    layer->animations().finish(100.9);
    EXPECT_TRUE(completions.empty());
    EXPECT_FALSE(layer->animations().isEmpty());
    layer->animations().finish(101);
    layer->animations().finish(102);
    EXPECT_THAT(completions, ElementsAre(true));
    EXPECT_TRUE(layer->animations().isEmpty());
}

TEST_F(LayerAnimationsTest, AnAnimationThatStaysKeepsItsEndValueAndCompletesOnce) {
    BasicAnimation a = fade();
    a.removedOnCompletion = false;
    layer->animations().add(a, "fade");
    layer->animations().finish(101);
    layer->animations().finish(102);
    EXPECT_THAT(completions, ElementsAre(true));
    EXPECT_EQ(layer->presentation(200).opacity, 0.8);
    EXPECT_FALSE(layer->animations().isEmpty());
    EXPECT_FALSE(layer->animations().isRunning());
    layer->animations().remove("fade");
    EXPECT_THAT(completions, ElementsAre(true));
    EXPECT_EQ(layer->presentation(200).opacity, 1);
}

TEST_F(LayerAnimationsTest, RemovedOrReplacedBeforeItsEndItIsNotFinished) {
    layer->animations().add(fade(), "fade");
    layer->animations().add(fade(), "fade");
    EXPECT_THAT(completions, ElementsAre(false));
    layer->animations().remove("fade");
    EXPECT_THAT(completions, ElementsAre(false, false));
    layer->animations().add(fade(), "one");
    layer->animations().add(fade(), "two");
    layer->animations().removeAll();
    EXPECT_THAT(completions, ElementsAre(false, false, false, false));
    layer->animations().remove("never added");
}

TEST_F(LayerAnimationsTest, ACompletionMayAddAnAnimationOrDropTheLayer) {
    const auto root = std::make_shared<Layer>();
    root->tree().add(layer);
    BasicAnimation first = animation("opacity", 0.0, 1.0);
    Layer* raw = layer.get();
    first.completion = [&, raw](bool) {
        raw->animations().add(fade(), "next");
        raw->tree().removeFromSuperlayer();
    };
    layer->animations().add(first, "first");
    layer.reset(); // the tree holds it alone
    raw->animations().finish(101);
    EXPECT_TRUE(root->tree().sublayers().empty());
}

TEST_F(LayerAnimationsTest, EndingMarksTheTreeAsChanged) {
    struct : LayerTreeObserver {
        int changes = 0;
        void layerTreeDidChange() override { ++changes; }
    } observer;
    layer->tree().setObserver(&observer);
    layer->animations().add(fade(), "fade");
    EXPECT_EQ(observer.changes, 1);
    layer->animations().finish(100.5);
    EXPECT_EQ(observer.changes, 1);
    layer->animations().finish(101);
    EXPECT_EQ(observer.changes, 2);
}

TEST_F(LayerAnimationsTest, ChangesAreImmediateOutsideATransaction) {
    layer->setOpacity(0.2);
    EXPECT_TRUE(layer->animations().isEmpty());
    EXPECT_EQ(layer->presentation().opacity, 0.2);
}

TEST_F(LayerAnimationsTest, ChangesGlideInsideATransaction) {
    {
        const auto glide = Transaction::animated(0.5, TimingFunction::linear);
        layer->setFrame({100, 0, 20, 10});
        layer->setOpacity(0);
        layer->look().setBackgroundColor(Color::white(1));
        layer->look().setCornerRadius(4);
        layer->setTransform(AffineTransform::scale(3, 3));
    }
    EXPECT_EQ(layer->frame(), (Rect{100, 0, 20, 10}));
    EXPECT_EQ(layer->presentation().frame({0.5, 0.5}), (Rect{0, 0, 10, 10}));
    time.advance(0.25);
    const PresentedLayer half = layer->presentation();
    EXPECT_EQ(half.frame({0.5, 0.5}), (Rect{50, 0, 15, 10}));
    EXPECT_EQ(half.opacity, 0.5);
    EXPECT_EQ(half.backgroundColor, Color::white(0.5f, 0.5f));
    EXPECT_EQ(half.cornerRadius, 2);
    EXPECT_EQ(half.transform, AffineTransform::scale(2, 2));
    EXPECT_EQ(layer->animations().find("opacity")->duration, 0.5);
    time.advance(0.25);
    EXPECT_EQ(layer->presentation().frame({0.5, 0.5}), (Rect{100, 0, 20, 10}));
}

TEST_F(LayerAnimationsTest, AGlideStartsFromWhatIsPresented) {
    const auto glide = Transaction::animated(1, TimingFunction::linear);
    layer->setOpacity(0);
    time.advance(0.5);
    layer->setOpacity(1);
    EXPECT_EQ(layer->presentation().opacity, 0.5);
    time.advance(0.5);
    EXPECT_EQ(layer->presentation().opacity, 0.75);
}

TEST_F(LayerAnimationsTest, SettingTheSameEndAgainDoesNotStartAGlideAnew) {
    const auto glide = Transaction::animated(1, TimingFunction::linear);
    layer->setOpacity(0);
    time.advance(0.5);
    layer->setOpacity(0);
    time.advance(0.25);
    EXPECT_EQ(layer->presentation().opacity, 0.25);
}

TEST_F(LayerAnimationsTest, AnImmediateChangeEndsAGlide) {
    {
        const auto glide = Transaction::animated(1);
        layer->setOpacity(0);
        layer->setPosition({50, 50});
    }
    time.advance(0.5);
    const auto still = Transaction::disablingActions();
    layer->setOpacity(0); // also when the value is the glide's end
    layer->setPosition({7, 7});
    EXPECT_EQ(layer->presentation().opacity, 0);
    EXPECT_EQ(layer->presentation().position, (Point{7, 7}));
    EXPECT_TRUE(layer->animations().isEmpty());
}

TEST_F(LayerAnimationsTest, AnImmediateChangeLeavesExplicitAnimationsAlone) {
    layer->animations().add(fade(), "opacity");
    layer->setOpacity(0.3);
    EXPECT_NE(layer->animations().find("opacity"), nullptr);
    EXPECT_TRUE(completions.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
