#include "controls/SliderLayers.h"

#include "controls/Gestures.h"
#include "description/Description.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr Rect kLying = {0, 0, 274, 54}, kUpright = {0, 0, 97, 217}, kMember = {0, 0, 274, 34};

// A view with a slider's layers and nothing of a slider's behaviour.
class Bench final : public View {
public:
    Bench(const Rect& frame, std::uint32_t pid) : View(frame, YAxis::up), parameter(*GetParameter(pid)) { layOut(); }
    void layOut() {
        layers.layOut([this](float value) {
            return std::round(layers.axis().positionAt(parameter.percentageFromFloatValue(value)));
        });
    }
    void viewDidChangeBackingProperties() override { layOut(); }

    std::vector<std::string> marks() const {
        std::vector<std::string> texts;
        for (const std::shared_ptr<Layer>& part : layer()->tree().sublayers()) {
            if (part->name() != "scale") continue;
            for (const std::shared_ptr<Layer>& mark : part->tree().sublayers())
                if (const auto* text = dynamic_cast<const TextLayer*>(mark.get()))
                    texts.push_back(text->string().string());
        }
        return texts;
    }
    std::ptrdiff_t heightOf(const Layer& part) const {
        const auto& all = layer()->tree().sublayers();
        return std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.get() == &part; }) -
               all.begin();
    }

    const QVMParameter& parameter;
    SliderLayers layers{*this, parameter};
};

View& add(Bench& bench) {
    auto view = std::make_unique<View>();
    View& added = *view;
    bench.layers.addInTrack(std::move(view));
    return added;
}

TEST(SliderLayersTest, TheHandlesWayFollowsTheSizeOfTheViewAndOfTheHandle) {
    Bench lying(kLying, pidTiltGain), upright(kUpright, pidOutputGain);
    EXPECT_DOUBLE_EQ(lying.layers.axis().lowest, 18); // the handle's 76 points less 58
    EXPECT_DOUBLE_EQ(lying.layers.axis().highest, 256);
    EXPECT_DOUBLE_EQ(upright.layers.axis().lowest, 38);
    EXPECT_DOUBLE_EQ(upright.layers.axis().highest, 179);
    upright.setFrame({0, 0, 97, 300});
    EXPECT_DOUBLE_EQ(upright.layers.axis().highest, 179) << "not before it is calculated";
    upright.layers.calculateExtents();
    EXPECT_DOUBLE_EQ(upright.layers.axis().highest, 262);
}

TEST(SliderLayersTest, TheLyingTrackSpansTheWayAndItsHandleIsCentredOnIt) {
    Bench bench(kLying, pidTiltGain);
    bench.layers.moveHandle(137, Animate::no);
    EXPECT_EQ(bench.layers.trackRect(), (Rect{11, 26, 252, 14})); // 21 points below the top, y up
    EXPECT_EQ(bench.layers.background()->frame(), bench.layers.trackRect());
    EXPECT_EQ(bench.layers.bulb().bulb()->position(), (Point{137, 33}));
    EXPECT_EQ(bench.layers.bulb().bulb()->bounds().size(), (Size{76, 26}));
}

TEST(SliderLayersTest, AnUprightTrackWithAScaleStandsOnWholePointsLeftOfTheMarks) {
    Bench bench(kUpright, pidOutputGain);
    bench.layers.moveHandle(100, Animate::no);
    EXPECT_EQ(bench.layers.trackRect(), (Rect{29, 31, 15, 155}));
    EXPECT_EQ(bench.layers.bulb().bulb()->position(), (Point{36.5, 100}));
    // So that the handle hides none of them.
    for (const QVMCueRect& cue : bench.layers.cueRects())
        EXPECT_GE(cue.rect.minX(), bench.layers.bulb().bulb()->frame().maxX());
}

TEST(SliderLayersTest, AnUprightHandleAtTheTopLeavesRoomForItsBorderBelowAHeading) {
    const Bench bench(kUpright, pidOutputGain);
    constexpr double headingBottom = 19, border = 5; // points below the top; what the border reaches beyond the handle
    const double top = kUpright.height - bench.layers.axis().highest - ReadoutBulb::height / 2;
    EXPECT_GT(top - border, headingBottom);
}

TEST(SliderLayersTest, AHandleOnItsTrackPointsAtItsScaleFromWhereItsValueIs) {
    const Bench lying(kLying, pidTiltGain), upright(kUpright, pidOutputGain);
    const Rect down = lying.layers.bulb().background()->path().bounds();
    EXPECT_EQ(lying.layers.bulb().pointer(), BulbPointer::shortDown);
    EXPECT_DOUBLE_EQ(down.minY(), -ReadoutBulb::shortPointerLength);
    EXPECT_EQ(upright.layers.bulb().pointer(), BulbPointer::shortRight);
    EXPECT_DOUBLE_EQ(upright.layers.bulb().background()->path().bounds().maxX(),
                     upright.layers.bulb().width() + ReadoutBulb::shortPointerLength);
}

TEST(SliderLayersTest, AGainFillsItsTrackFromZeroToItsHandle) {
    Bench bench(kLying, pidTiltGain);
    const Layer& fill = *bench.layers.fill();
    bench.layers.moveHandle(200, Animate::no);
    EXPECT_EQ(fill.frame(), (Rect{137, 26, 63, 14}));
    bench.layers.moveHandle(100, Animate::no);
    EXPECT_EQ(fill.frame(), (Rect{100, 26, 37, 14}));
    bench.layers.moveHandle(137, Animate::no);
    EXPECT_EQ(fill.frame().width, 0);
    EXPECT_GT(bench.heightOf(fill), bench.heightOf(*bench.layers.background()));
    EXPECT_LT(bench.heightOf(fill), bench.heightOf(*bench.layers.bulb().bulb()));
    EXPECT_TRUE(Bench(kUpright, pidOutputGain).layers.fill()->isHidden()) << "goes farther down than up";
    EXPECT_TRUE(Bench(kMember, pidTiltRangeLow).layers.fill()->isHidden());
}

TEST(SliderLayersTest, MembersHangAboveAndBelowTheirBandAndPointAtIt) {
    Bench low(kMember, pidTiltRangeLow), high(kMember, pidTiltRangeHigh);
    low.layers.moveHandle(100, Animate::no);
    high.layers.moveHandle(200, Animate::no);
    EXPECT_TRUE(low.layers.background()->isHidden());
    EXPECT_EQ(low.layers.bulb().bulb()->frame().minY(), 6); // from 2 to 28 below the top
    EXPECT_EQ(high.layers.bulb().bulb()->frame().minY(), 0);
    EXPECT_DOUBLE_EQ(low.layers.bulb().background()->path().bounds().minY(), -5);
    EXPECT_DOUBLE_EQ(high.layers.bulb().background()->path().bounds().maxY(), 31);
    EXPECT_TRUE(low.layers.isOnHandle({100, 3}));
    EXPECT_FALSE(low.layers.isOnHandle({110, 3}));
    EXPECT_TRUE(high.layers.isOnHandle({200, 29}));
    EXPECT_THAT(low.marks(), IsEmpty());
    EXPECT_THAT(low.layers.cueRects(), IsEmpty());
}

TEST(SliderLayersTest, AGlidingHandleIsAtItsEndAndOnTheWayThere) {
    VirtualTime time;
    Bench bench(kLying, pidTiltGain);
    bench.layers.moveHandle(100, Animate::no);
    EXPECT_FALSE(bench.layers.isHandleGliding());
    bench.layers.moveHandle(200, Animate::yes);
    EXPECT_DOUBLE_EQ(bench.layers.handlePosition(), 200);
    EXPECT_TRUE(bench.layers.isHandleGliding());
    time.advance(SliderLayers::glideSeconds + 0.01);
    EXPECT_FALSE(bench.layers.isHandleGliding());
}

TEST(SliderLayersTest, TheGainsMarksAreItsCuePositions) {
    EXPECT_THAT(Bench(kLying, pidTiltGain).marks(),
                UnorderedElementsAre("\u221218", "\u221212", "\u22126", "0", "+6", "+12", "+18"));
}

TEST(SliderLayersTest, MarksThatWouldCollideAreLeftOutAndTheBottomOneIsNamed) {
    const Bench bench(kUpright, pidOutputGain);
    EXPECT_THAT(bench.marks(),
                UnorderedElementsAre("+12", "+6", "0", "\u221212", "\u221224", "\u221236", "\u221248", "-Inf"));
    for (const QVMCueRect& one : bench.layers.cueRects()) {
        EXPECT_GT(one.rect.x, bench.layers.trackRect().midX());
        for (const QVMCueRect& other : bench.layers.cueRects())
            EXPECT_TRUE(&one == &other || !one.rect.intersects(other.rect)) << one.value << ' ' << other.value;
    }
}

TEST(SliderLayersTest, AMarkIsFoundInItsRectangleAndNowhereElse) {
    const Bench bench(kLying, pidTiltGain);
    for (const QVMCueRect& cue : bench.layers.cueRects())
        EXPECT_EQ(bench.layers.cueAt(cue.rect.center()), &cue);
    EXPECT_EQ(bench.layers.cueAt(bench.layers.trackRect().center()), nullptr);
}

TEST(SliderLayersTest, WhatIsInTheTrackCoversTheViewAndShowsInTheTrackBelowTheHandle) {
    Bench bench(kUpright, pidOutputGain);
    View& inTrack = add(bench);
    const Layer& window = *inTrack.layer()->tree().superlayer();
    const auto covers = [&] { return inTrack.coordinates().toWindow(inTrack.bounds()) == bench.frame(); };
    EXPECT_TRUE(covers());
    EXPECT_EQ(window.frame(), bench.layers.trackRect());
    EXPECT_TRUE(window.masksToBounds());
    EXPECT_EQ(bench.heightOf(window), bench.heightOf(*bench.layers.background()) + 1);
    EXPECT_LT(bench.heightOf(window), bench.heightOf(*bench.layers.bulb().bulb()));
    bench.setFrame({10, 20, 97, 300});
    bench.layOut();
    EXPECT_TRUE(covers());
    EXPECT_EQ(window.frame(), bench.layers.trackRect());
    EXPECT_EQ(bench.hitTest({58, 150}), &bench);
}

TEST(SliderLayersTest, LinesLieOnWholePixelsAtEveryScale) {
    Window window;
    Bench& bench = window.setContentView(std::make_unique<Bench>(kLying, pidTiltGain));
    const auto& parts = bench.layer()->tree().sublayers();
    const auto& scaleLayer =
        *std::find_if(parts.begin(), parts.end(), [](const auto& part) { return part->name() == "scale"; });
    for (const double scale : {1.0, 2.0, 3.0}) {
        window.setBackingScaleFactor(scale);
        const auto& lines = dynamic_cast<const ShapeLayer&>(*scaleLayer->tree().sublayers().at(0));
        const double x = lines.path().elements().at(0).end.x * scale;
        EXPECT_DOUBLE_EQ(x, std::round(x)) << scale;
    }
}

TEST(SliderLayersTest, EveryValueOfEverySliderFitsItsHandleUnshrunken) {
    for (const std::uint32_t pid : {1u, 2u, 3u, 7u, 9u, 10u}) {
        const QVMParameter& parameter = *GetParameter(pid);
        Bench bench(parameter.horizontal ? kMember : kUpright, pid);
        for (int i = 0; i <= 1000; ++i) {
            bench.layers.showValue(parameter.normalizedFloatValueFromPercent(static_cast<float>(i) / 1000, 1));
            const AttributedString& shown = bench.layers.bulb().text()->string();
            ASSERT_DOUBLE_EQ(shown.runs[0].font.pointSize, 16) << pid << ' ' << shown.string();
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
