#include "editor/RenderedEditorFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

// What is drawn again for a change, and that nothing is without one.
class QVMGenericUIDamage : public RenderedEditorFixture {
protected:
    QVMParameterSketch& sketch() { return *ui_->sketch(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*sketch().getVizRef()); }
    QVMVerticalSlider& gainSlider() {
        return dynamic_cast<QVMVerticalSlider&>(*control(pidOutputGain).primaryControl());
    }
    // What the opening set in motion has come to rest.
    void drawAtRest() {
        frames(1);
        drawAll();
    }
};

TEST_F(QVMGenericUIDamage, ALevelDamagesTheTrackOnly) {
    drawAtRest();
    object().levelMeter()->channel(0).level = -6;
    const RenderStatistics& statistics = drawFrame();
    EXPECT_THAT(statistics.rasterised, ElementsAre("sketch"));
    const Rect track = gainSlider().coordinates().toWindow(gainSlider().layers().trackRect());
    ASSERT_FALSE(statistics.damage.empty());
    for (const Rect& damaged : statistics.damage)
        EXPECT_TRUE(track.contains(damaged));
}

TEST_F(QVMGenericUIDamage, AGlideDamagesTheCurveAndTheHandleOnly) {
    drawAtRest();
    delegate_.unit[1] = 6;
    const RenderStatistics& statistics = drawFrame();
    EXPECT_THAT(statistics.rasterised, Contains("sketch"));
    const Rect gain = control(pidTiltGain).coordinates().toWindow(control(pidTiltGain).bounds());
    const Rect curve = sketch().coordinates().toWindow(sketch().bounds());
    for (const Rect& damaged : statistics.damage)
        EXPECT_TRUE(curve.contains(damaged) || gain.insetBy(-8, -8).contains(damaged));
}

TEST_F(QVMGenericUIDamage, ADragOfTheTiltGainRedrawsItsSliderAndTheCurveAndNothingElse) {
    auto& slider = dynamic_cast<QVMVerticalSlider&>(*control(pidTiltGain).primaryControl());
    Point at = slider.coordinates().toWindow(slider.readoutBulb()->position());
    window_.sendEvent(mouseEvent(EventType::mouseDown, at));
    drawAtRest(); // the focus has come
    const Rect gain = control(pidTiltGain).coordinates().toWindow(control(pidTiltGain).bounds()).insetBy(-8, -8);
    const Rect curve = sketch().coordinates().toWindow(sketch().bounds());
    int inSlider = 0, inCurve = 0;
    for (int step = 0; step < 20; ++step) {
        at.x += 4;
        window_.sendEvent(mouseEvent(EventType::mouseDragged, at));
        for (const Rect& damaged : drawFrame().damage) {
            inSlider += gain.contains(damaged);
            inCurve += curve.contains(damaged);
            EXPECT_TRUE(gain.contains(damaged) || curve.contains(damaged)) << damaged.x << ", " << damaged.y;
        }
    }
    EXPECT_GE(inSlider, 15);
    EXPECT_GE(inCurve, 15);
    EXPECT_GT(memoized(pidTiltGain), 3);
}

TEST_F(QVMGenericUIDamage, AnIdleEditorRasterisesAndComposesNothing) {
    drawAtRest();
    for (int i = 0; i < 10; ++i) {
        const RenderStatistics& statistics = drawFrame();
        EXPECT_THAT(statistics.rasterised, IsEmpty());
        EXPECT_THAT(statistics.damage, IsEmpty());
    }
    EXPECT_FALSE(renderer_.isAnimating());
}

TEST_F(QVMGenericUIDamage, AChangedValueRasterisesItsOwnReadoutAndTheCurveOnly) {
    drawAtRest();
    hostSets(pidOutputGain, -6);
    std::vector<std::string> rasterised;
    for (int i = 0; i < 30; ++i) {
        time_.advance(frameSeconds);
        for (const std::string& name : renderer_.update(time_.now()).rasterised)
            rasterised.push_back(name);
    }
    // Once each for the one frame, while the handle glides on.
    EXPECT_THAT(rasterised, UnorderedElementsAre("readout", "sketch"));
}

TEST_F(QVMGenericUIDamage, TheAdvancedDrawersPicturesWaitUntilItIsOpen) {
    const auto drawn = [this] { return renderer_.update(time_.now()).rasterised; };
    renderer_.setRootLayer(ui_->layer());
    EXPECT_THAT(drawn(),
                AllOf(Contains("label:TILT"), Not(Contains("label:ADV FILTER")), Not(Contains("label:Slope"))));
    ui_->gearTapped();
    EXPECT_THAT(drawn(), AllOf(Contains("label:ADV FILTER"), Contains("label:Slope")));
}

} // namespace
} // namespace QVM_NAMESPACE
