// What the renderer makes of running animations.
#include "platform/layer/Transaction.h"
#include "platform/renderer/LayerRendererFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct LayerRendererAnimationTest : LayerRendererFixture {
    // Dashes that move on by 10 points a turn, for ever.
    std::shared_ptr<ShapeLayer> addMarchingAnts(BasicAnimation march) {
        const auto ants = std::make_shared<ShapeLayer>();
        ants->setName("ants");
        ants->setFrame({100, 50, 20, 20});
        ants->setPath(Path::rect({0, 0, 20, 20}));
        root->tree().add(ants);
        march.keyPath = "lineDashPhase";
        march.toValue = 10.0;
        march.repeatCount = BasicAnimation::forever;
        ants->animations().add(march, "PhaseShift");
        return ants;
    }
};

TEST_F(LayerRendererAnimationTest, AScalePulseReusesTheRaster) {
    update();
    BasicAnimation pulse;
    pulse.keyPath = "transform.scale";
    pulse.fromValue = 1.0;
    pulse.toValue = 1.2;
    pulse.duration = 0.09;
    pulse.autoreverses = true;
    button->animations().add(pulse, "pulse");
    int frames = 0;
    update();
    while (renderer.isAnimating()) {
        time.advance(1.0 / 60);
        const RenderStatistics& s = update();
        EXPECT_THAT(s.rasterised, IsEmpty());
        EXPECT_EQ(s.damage.size(), 1u);
        for (const Rect& r : s.damage)
            EXPECT_TRUE((Rect{12, 13, 26, 14}).contains(r)) << r.x << ' ' << r.width;
        ++frames;
    }
    EXPECT_EQ(frames, 11); // 0.18 s
    EXPECT_THAT(update().damage, IsEmpty());
}

TEST_F(LayerRendererAnimationTest, ADashPhaseIsPartOfTheLook) {
    const auto ants = addMarchingAnts(BasicAnimation());
    update();
    time.advance(0.05);
    EXPECT_THAT(update().rasterised, ElementsAre("ants"));
    EXPECT_TRUE(renderer.isAnimating());
    ants->setOpacity(0); // marches on unseen: no frames for that
    update();
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(LayerRendererAnimationTest, DashesMarchByQuartersOfAPixelAndFramesInBetweenDrawNothing) {
    BasicAnimation march;
    march.duration = 2;
    march.timing = TimingFunction::linear;
    addMarchingAnts(march);
    for (const double scale : {1.0, 2.0}) {
        renderer.setScale(scale);
        update();
        int rasters = 0, drawings = 0;
        for (int i = 0; i < 120; ++i) { // 5 points a second at 60 Hz, for 10 points
            time.advance(1.0 / 60);
            const RenderStatistics& s = update();
            rasters += static_cast<int>(s.rasterised.size());
            drawings += s.damage.empty() ? 0 : 1;
        }
        EXPECT_NEAR(rasters, 40 * scale, 1);
        EXPECT_EQ(drawings, rasters);
        EXPECT_TRUE(renderer.isAnimating());
    }
}

TEST_F(LayerRendererAnimationTest, AFadeInFromNothingIsAnimated) {
    button->setOpacity(0);
    update();
    {
        const auto glide = Transaction::animated(0.1);
        button->setOpacity(1);
    }
    update();
    EXPECT_TRUE(renderer.isAnimating());
    time.advance(0.05);
    EXPECT_THAT(update().damage, ElementsAre(Rect{15, 15, 20, 10}));
    time.advance(0.05);
    update();
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(LayerRendererAnimationTest, CompletionsRunEvenForWhatIsHiddenAndMayChangeTheTree) {
    box->setHidden(true);
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.toValue = 0.0;
    fade.duration = 0.1;
    int asked = 0;
    fade.completion = [this](bool) { box->tree().removeFromSuperlayer(); };
    button->animations().add(fade, "fadeOut");
    update();
    EXPECT_TRUE(renderer.isAnimating());
    renderer.setChangeHandler([&] { ++asked; });
    time.advance(0.1);
    update();
    EXPECT_EQ(box->tree().superlayer(), nullptr);
    EXPECT_FALSE(renderer.isAnimating());
    EXPECT_EQ(asked, 0); // it was part of this update
}

TEST_F(LayerRendererAnimationTest, WhatNobodySeesMarchesWithoutFrames) {
    BasicAnimation march;
    march.duration = 1;
    const auto ants = addMarchingAnts(march);
    update();
    EXPECT_TRUE(renderer.isAnimating());
    ants->setHidden(true);
    update();
    EXPECT_FALSE(renderer.isAnimating());
    ants->setHidden(false);
    root->setHidden(true);
    update();
    EXPECT_FALSE(renderer.isAnimating());
    root->setHidden(false);
    update();
    EXPECT_TRUE(renderer.isAnimating());
}

} // namespace
} // namespace QVM_NAMESPACE
