// How what the slider shows answers the pointer and the values, and what a change costs.
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

constexpr Rect kLying = {0, 0, 274, 54}, kUpright = {0, 0, 97, 217};

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
    VirtualTime time;
    CountingBackend backend;
    LayerRenderer renderer{backend};
};

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

TEST_F(QVMVerticalSliderLayersTest, TheFocusBorderTravelsAroundTheHandleAndMeetsNoNumberOfItsScale) {
    QVMVerticalSlider slider(kLying, *GetParameter(pidTiltGain));
    EXPECT_EQ(slider.highlight()->tree().superlayer(), slider.readoutBulb().get());
    EXPECT_EQ(slider.highlight()->frame(), (Rect{-4, -3, 84, 32}));
    EXPECT_DOUBLE_EQ(slider.highlight()->rounding(), 16);
    for (const std::uint32_t pid : {pidTiltGain, pidOutputGain}) {
        const QVMVerticalSlider scaled(pid == pidTiltGain ? kLying : kUpright, *GetParameter(pid));
        const Rect border = scaled.highlight()->frame().insetBy(-1, -1); // with half its line
        const Rect handle = scaled.readoutBulb()->frame();
        ASSERT_FALSE(scaled.cueRects().empty());
        for (const std::shared_ptr<Layer>& part : scaled.layer()->tree().sublayers()) {
            if (part->name() != "scale") continue;
            for (const std::shared_ptr<Layer>& mark : part->tree().sublayers()) {
                if (!dynamic_cast<const TextLayer*>(mark.get())) continue;
                // Capitals fill the middle three fifths of a line.
                const Rect letters = mark->frame().insetBy(0, mark->frame().height / 5);
                if (scaled.horizontal())
                    EXPECT_LT(letters.maxY(), handle.y + border.minY()) << mark->name();
                else
                    EXPECT_GT(letters.minX(), handle.x + border.maxX()) << mark->name();
            }
        }
    }
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
