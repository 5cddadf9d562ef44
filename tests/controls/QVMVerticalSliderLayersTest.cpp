// What the slider shows: where its layers stand, how it answers the pointer, and what a change costs.
#include "controls/QVMFocusBorder.h"
#include "controls/QVMVerticalSlider.h"

#include "controls/Gestures.h"
#include "platform/layer/LayerDump.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect kLying = {0, 0, 274, 54}, kUpright = {0, 0, 97, 217}, kMember = {0, 0, 274, 34};

// Makes no pixels: what is asked for is all that counts.
class CountingBackend final : public RasterBackend {
public:
    std::shared_ptr<Raster> rasterise(const Layer&, const PresentedLayer&, const Rect&, double) override {
        return std::make_shared<Raster>();
    }
};

class QVMVerticalSliderLayersTest : public testing::Test {
protected:
    // Renders the slider until nothing changes any more.
    void settle(QVMVerticalSlider& slider) {
        slider.setFloatValue(slider.floatValue());
        renderer.setRootLayer(slider.layer());
        renderer.update(time.now());
        time.advance(1);
        renderer.update(time.now());
    }
    const RenderStatistics& frameAfter(double seconds) {
        time.advance(seconds);
        return renderer.update(time.now());
    }
    static std::vector<std::string> marks(const QVMVerticalSlider& slider) {
        std::vector<std::string> texts;
        for (const std::shared_ptr<Layer>& part : slider.layer()->tree().sublayers()) {
            if (part->name() != "scale") continue;
            for (const std::shared_ptr<Layer>& layer : part->tree().sublayers())
                if (const auto* text = dynamic_cast<const TextLayer*>(layer.get()))
                    texts.push_back(text->string().string());
        }
        return texts;
    }
    VirtualTime time;
    CountingBackend backend;
    LayerRenderer renderer{backend};
};

TEST_F(QVMVerticalSliderLayersTest, WhatIsInTheTrackCoversTheSliderAndShowsInTheTrackBelowTheHandle) {
    QVMVerticalSlider slider(kUpright, *GetParameter(pidOutputGain));
    View& inTrack = slider.addInTrack(std::make_unique<View>());
    const Layer& window = *inTrack.layer()->tree().superlayer();
    const auto covers = [&] { return inTrack.coordinates().toWindow(inTrack.bounds()) == slider.frame(); };
    EXPECT_TRUE(covers());
    EXPECT_EQ(window.frame(), slider.trackRect());
    EXPECT_TRUE(window.masksToBounds());
    const auto& layers = slider.layer()->tree().sublayers();
    const auto indexOf = [&](const Layer& layer) {
        return std::find_if(layers.begin(), layers.end(), [&](const auto& l) { return l.get() == &layer; });
    };
    EXPECT_EQ(indexOf(window), indexOf(*slider.background()) + 1);
    EXPECT_LT(indexOf(window), indexOf(*slider.readoutBulb()));
    slider.setFrame({10, 20, 97, 300});
    EXPECT_TRUE(covers());
    EXPECT_EQ(window.frame(), slider.trackRect());
    EXPECT_EQ(slider.hitTest({58, 150}), &slider);
}

TEST_F(QVMVerticalSliderLayersTest, TheLyingTrackSpansTheExtentsAndItsHandleIsCentredOnIt) {
    const QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    EXPECT_EQ(slider.trackRect(), (Rect{11, 26, 252, 14})); // 21 points below the top, y up
    EXPECT_EQ(slider.background()->frame(), slider.trackRect());
    EXPECT_DOUBLE_EQ(slider.readoutBulb()->position().y, 33);
    EXPECT_EQ(slider.readoutBulb()->bounds().size(), (Size{76, 26}));
}

TEST_F(QVMVerticalSliderLayersTest, TheUprightTrackStandsOnWholePointsInTheMiddle) {
    const QVMVerticalSlider slider(kUpright, *GetParameter(pidOutputGain));
    EXPECT_EQ(slider.trackRect(), (Rect{41, 19, 14, 179}));
    EXPECT_DOUBLE_EQ(slider.readoutBulb()->position().x, 48);
}

TEST_F(QVMVerticalSliderLayersTest, MembersHangAboveAndBelowTheirBandAndPointAtIt) {
    const QVMVerticalSlider low(kMember, *GetParameter(pidTiltRangeLow)),
        high(kMember, *GetParameter(pidTiltRangeHigh));
    EXPECT_TRUE(low.background()->isHidden());
    EXPECT_EQ(low.readoutBulb()->frame().minY(), 6); // from 2 to 28 below the top
    EXPECT_EQ(high.readoutBulb()->frame().minY(), 0);
    EXPECT_DOUBLE_EQ(low.readoutBg()->path().bounds().minY(), -5);
    EXPECT_DOUBLE_EQ(high.readoutBg()->path().bounds().maxY(), 31);
    const double x = low.handleValue();
    EXPECT_TRUE(low.isOnHandle({x, 3}));
    EXPECT_FALSE(low.isOnHandle({x + 10, 3}));
    EXPECT_TRUE(high.isOnHandle({high.handleValue(), 29}));
    EXPECT_THAT(marks(low), IsEmpty());
    EXPECT_THAT(low.cueRects(), IsEmpty());
}

TEST_F(QVMVerticalSliderLayersTest, TheGainsMarksAreItsCuePositions) {
    EXPECT_THAT(marks(QVMVerticalSlider(kLying, *GetParameter(pidTiltGain))),
                testing::UnorderedElementsAre("-18", "-12", "-6", "0", "+6", "+12", "+18"));
}

TEST_F(QVMVerticalSliderLayersTest, MarksThatWouldCollideAreLeftOutAndTheBottomOneIsNamed) {
    const QVMVerticalSlider slider(kUpright, *GetParameter(pidOutputGain));
    EXPECT_THAT(marks(slider), testing::UnorderedElementsAre("+12", "+6", "0", "-12", "-24", "-36", "-48", "-Inf"));
    for (const QVMCueRect& one : slider.cueRects()) {
        EXPECT_GT(one.rect.x, slider.trackRect().midX());
        for (const QVMCueRect& other : slider.cueRects())
            EXPECT_TRUE(&one == &other || !one.rect.intersects(other.rect)) << one.value << ' ' << other.value;
    }
}

TEST_F(QVMVerticalSliderLayersTest, MovingTheHandleRasterisesNothing) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    settle(slider);
    slider.readoutBulb()->setPosition({100, 33});
    const RenderStatistics& frame = frameAfter(0.01);
    EXPECT_THAT(frame.rasterised, IsEmpty());
    EXPECT_FALSE(frame.damage.empty());
}

TEST_F(QVMVerticalSliderLayersTest, AnotherValueRasterisesTheReadoutAlone) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    settle(slider);
    slider.setFloatValue(6);
    EXPECT_THAT(frameAfter(0.02).rasterised, ElementsAre("readout"));
    EXPECT_THAT(frameAfter(0.02).rasterised, IsEmpty()); // it glides on
    EXPECT_FALSE(renderer.update(time.now() + 0.02).damage.empty());
    time.advance(1);
    renderer.update(time.now());
    EXPECT_THAT(frameAfter(0.02).damage, IsEmpty());
    EXPECT_FALSE(renderer.isAnimating());
}

TEST_F(QVMVerticalSliderLayersTest, ADragRasterisesTheReadoutAndAnEqualValueNothing) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    settle(slider);
    press(slider, {137, 33});
    EXPECT_THAT(frameAfter(0.01).rasterised, ElementsAre("readoutBg")); // pressed
    drag(slider, {180, 33});
    EXPECT_THAT(frameAfter(0.01).rasterised, ElementsAre("readout"));
    drag(slider, {180, 33});
    EXPECT_THAT(frameAfter(0.01).rasterised, IsEmpty());
}

TEST_F(QVMVerticalSliderLayersTest, HoveringRasterisesTheHandlesBackgroundAlone) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    settle(slider);
    slider.mouseMoved(eventAt(EventType::mouseMoved, slider, {137, 33}));
    EXPECT_THAT(frameAfter(0.01).rasterised, ElementsAre("readoutBg"));
    slider.mouseMoved(eventAt(EventType::mouseMoved, slider, {138, 33}));
    EXPECT_THAT(frameAfter(0.01).rasterised, IsEmpty());
    slider.mouseExited(eventAt(EventType::mouseExited, slider, {-5, 0}));
    EXPECT_THAT(frameAfter(0.01).rasterised, ElementsAre("readoutBg"));
}

TEST_F(QVMVerticalSliderLayersTest, ThePointerIsAHandOverTheHandleAndTheMarksOnly) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    const auto cursorAt = [&](Point point) {
        slider.mouseMoved(eventAt(EventType::mouseMoved, slider, point));
        return slider.cursor();
    };
    EXPECT_EQ(cursorAt({137, 33}), Cursor::pointingHand);
    EXPECT_EQ(cursorAt({60, 33}), Cursor::arrow);
    EXPECT_EQ(cursorAt(slider.cueRects().front().rect.center()), Cursor::pointingHand);
    slider.setPreventInteraction(true);
    EXPECT_EQ(cursorAt({137, 33}), Cursor::arrow);
}

TEST_F(QVMVerticalSliderLayersTest, TheFocusBorderTravelsFourPointsAroundTheHandle) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    EXPECT_EQ(slider.highlight()->tree().superlayer(), slider.readoutBulb().get());
    EXPECT_EQ(slider.highlight()->frame(), (Rect{-4, -4, 84, 34}));
    EXPECT_DOUBLE_EQ(slider.highlight()->rounding(), 17);
}

TEST_F(QVMVerticalSliderLayersTest, TheHandleIsAsWideAsItsWidestValueNeeds) {
    const QVMParameter wide = parameterLike(pidTiltGain, [](QVMParameter& p) { p.stringValues = {}; });
    const QVMVerticalSlider usual(kLying, wide);
    EXPECT_DOUBLE_EQ(usual.readoutBulb()->bounds().width, 76);
    AttributedString text =
        QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize("a value that is far too long", "", 16);
    text = usual.potentiallyShrunkenVersionOfString(text);
    EXPECT_LT(text.runs[0].font.pointSize, 16);
    const AttributedString fits = QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize("1.0", "dB", 16);
    EXPECT_EQ(usual.potentiallyShrunkenVersionOfString(fits), fits);
}

TEST_F(QVMVerticalSliderLayersTest, EveryValueOfEverySliderFitsItsHandleUnshrunken) {
    for (const std::uint32_t pid : {1u, 2u, 3u, 7u, 9u, 10u}) {
        const QVMParameter& parameter = *GetParameter(pid);
        QVMVerticalSlider slider(parameter.horizontal ? kMember : kUpright, parameter);
        for (int i = 0; i <= 1000; ++i) {
            slider.setFloatValue(parameter.normalizedFloatValueFromPercent(static_cast<float>(i) / 1000, 1));
            ASSERT_DOUBLE_EQ(slider.readout()->string().runs[0].font.pointSize, 16)
                << pid << ' ' << slider.readout()->string().string();
        }
    }
}

TEST_F(QVMVerticalSliderLayersTest, TheFocusBorderHasTheParametersColourInBothThemes) {
    const QVMVerticalSlider slider(kUpright, *GetParameter(pidOutputGain));
    const Color stroke = QVMCGColor(GetParameter(pidOutputGain)->color).withAlpha(0.7f);
    EXPECT_EQ(slider.highlight()->strokeColor(), stroke);
    const DarkTheme dark;
    EXPECT_EQ(slider.highlight()->strokeColor(), stroke);
}

TEST_F(QVMVerticalSliderLayersTest, ATypedFieldHasABorderAndACaret) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    slider.setDisplayingTransientBufferValue(true);
    slider.displayTransientBufferValue(QVMVerticalSlider::formattedReadoutStringForValueSuffixFontSize(
        "-1", "", slider.transientStringPreferredFontSize()));
    EXPECT_FALSE(slider.readoutBorder()->isHidden());
    EXPECT_EQ(slider.readout()->string().string(), "-1");
    slider.discardTransientBufferValue();
    EXPECT_TRUE(slider.readoutBorder()->isHidden());
    EXPECT_EQ(slider.readout()->string().string(), "0.0\uE803");
}

TEST_F(QVMVerticalSliderLayersTest, LinesLieOnWholePixelsAtEveryScale) {
    Window window;
    QVMVerticalSlider& slider =
        window.setContentView(std::make_unique<QVMVerticalSlider>(kLying, *GetParameter(pidTiltGain)));
    for (const double scale : {1.0, 2.0, 3.0}) {
        window.setBackingScaleFactor(scale);
        const auto& scaleLayer = slider.layer()->tree().sublayers().at(1);
        const auto& lines = dynamic_cast<const ShapeLayer&>(*scaleLayer->tree().sublayers().at(0));
        const double x = lines.path().elements().at(0).end.x * scale;
        EXPECT_DOUBLE_EQ(x, std::round(x)) << scale;
    }
}

TEST_F(QVMVerticalSliderLayersTest, TheHandleStandsAboveTheScaleAndTheScaleAboveTheTrack) {
    const QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    const std::string dump = dumpLayerTree(*slider.layer());
    std::size_t last = 0;
    for (const char* name : {"track", "scale", "tickmarks", "mark 0", "readoutBulb", "readoutBg", "readoutBorder",
                             "readout", "caret", "focusBorder"}) {
        const std::size_t found = dump.find(name, last);
        ASSERT_NE(found, std::string::npos) << name << '\n' << dump;
        last = found + 1;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
