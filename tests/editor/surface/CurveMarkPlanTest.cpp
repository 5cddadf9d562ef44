#include "editor/surface/CurveMarkPlan.h"

#include "viz/sketches/PBSketch.h"

#include <array>

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

QVMFreqResp displayOf(Size size, float axis, float reference) {
    PBGLCanvas canvas;
    canvas.width = static_cast<float>(size.width);
    canvas.height = static_cast<float>(size.height);
    canvas.scale = 1;
    QVMFreqResp display;
    display.init(canvas, 0.5f, {4, 24000}, {-axis, axis}, 1);
    display.referenceLevel = reference;
    return display;
}

std::vector<CurveMark> levelsOf(const QVMFreqResp& display, const Rect& keptFree) {
    std::vector<float> levels = display.gridLevels();
    levels.push_back(display.referenceLevel);
    return levelMarks(CurveScale(display), levels, display.referenceLevel, std::vector{keptFree});
}

std::vector<std::string> textsOf(const std::vector<CurveMark>& marks) {
    std::vector<std::string> texts;
    for (const CurveMark& mark : marks)
        texts.push_back(mark.text);
    return texts;
}

// As in the compact form.
Rect frameButtonIn(Size size) {
    return {size.width - 24, 6, 18, 18};
}

TEST(CurveMarkPlan, NothingTouchesAnythingAtAnySize) {
    int marksSeen = 0;
    for (double width = 160; width <= 700; width += 3) {
        for (const double height : {60.0, 120.0, 200.0, 450.0}) {
            for (const float gain : {0.0f, 4.5f, 9.0f, 18.0f}) {
                for (const float reference : {-gain, 0.0f, 2.25f, gain, 36.0f}) {
                    const Size size = {width, height};
                    const QVMFreqResp display = displayOf(size, std::max(7.5f, gain + 1.5f), reference);
                    std::vector<CurveMark> marks = frequencyMarks(CurveScale(display));
                    for (const CurveMark& mark : levelsOf(display, frameButtonIn(size)))
                        marks.push_back(mark);
                    for (std::size_t i = 0; i < marks.size(); ++i) {
                        const Rect& box = marks[i].box;
                        ASSERT_TRUE((Rect{0, 0, width, height}.contains(box))) << marks[i].text << " at " << width;
                        ASSERT_FALSE(box.intersects(frameButtonIn(size))) << marks[i].text << " at " << width;
                        for (std::size_t j = 0; j < i; ++j)
                            ASSERT_FALSE(box.insetBy(-1, -1).intersects(marks[j].box))
                                << marks[i].text << ", " << marks[j].text << " at " << width << " x " << height;
                    }
                    marksSeen += static_cast<int>(marks.size());
                }
            }
        }
    }
    EXPECT_GT(marksSeen, 50000); // in most places there are some
}

TEST(CurveMarkPlan, TheCompactFormHasTheDecadesAndTheLinesOfTheGrid) {
    const QVMFreqResp display = displayOf({200, 200}, 7.5f, 0);
    EXPECT_THAT(textsOf(frequencyMarks(CurveScale(display))), ElementsAre("10", "100", "1k", "10k"));
    EXPECT_THAT(textsOf(levelsOf(display, {})), ElementsAre("\u22126", "+6", "0 dB"));
}

TEST(CurveMarkPlan, WhereThereIsRoomThereAreMoreInEachDecade) {
    const std::vector<std::string> texts = textsOf(frequencyMarks(CurveScale(displayOf({480, 200}, 7.5f, 0))));
    EXPECT_THAT(texts, AllOf(Contains("20"), Contains("50"), Contains("500"), Contains("5k")));
    EXPECT_EQ(texts.size(), 11u);
}

TEST(CurveMarkPlan, AMarkStandsAtItsFrequencyAndOnItsLine) {
    const QVMFreqResp display = displayOf({400, 300}, 19.5f, -4);
    const CurveScale scale(display);
    for (const CurveMark& mark : frequencyMarks(scale))
        EXPECT_NEAR(mark.box.midX(), mark.at, 1) << mark.text;
    EXPECT_NEAR(scale.xOf(4), 0, 1e-6);
    EXPECT_NEAR(scale.xOf(24000), 400, 1e-3);
    EXPECT_NEAR(scale.xOf(std::sqrt(4.0 * 24000)), 200, 1e-3);
    EXPECT_NEAR(scale.hertzAt(scale.xOf(440)), 440, 1e-6);
    const std::vector<CurveMark> levels = levelsOf(display, {});
    EXPECT_THAT(textsOf(levels), AllOf(Contains("0 dB"), Contains("+18"), Contains("\u221212"), Not(Contains("+24"))));
    for (const CurveMark& mark : levels) {
        if (mark.text == "0 dB") {
            EXPECT_NEAR(mark.at, 300 * (19.5 + 4) / 39, 1e-3);
        } else if (mark.text == "+6") {
            EXPECT_NEAR(mark.at, 300 * (19.5 - 2) / 39, 1e-3);
        }
        EXPECT_LE(std::min(std::abs(mark.box.maxY() - mark.at), std::abs(mark.box.y - mark.at)), 3) << mark.text;
    }
}

TEST(CurveMarkPlan, LinesThatAreTooNearAreToldByEverySecondFromTheReference) {
    const std::vector<std::string> texts = textsOf(levelsOf(displayOf({200, 70}, 19.5f, 0), {}));
    EXPECT_THAT(texts, AllOf(Contains("0 dB"), Contains("+12"), Not(Contains("+6")), Not(Contains("\u22126"))));
}

TEST(CurveMarkPlan, ALevelMovesPastAllThatStandsInARowInWhateverOrderItIsNamed) {
    const QVMFreqResp display = displayOf({200, 200}, 7.5f, 0);
    const std::array levels = {0.0F};
    const Rect near = {20, 92.5, 12, 15}, far = {33, 92.5, 15, 15};
    for (const auto& boxes : {std::array{near, far}, std::array{far, near}}) {
        const std::vector<CurveMark> marks = levelMarks(CurveScale(display), levels, 0, boxes);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_EQ(marks[0].box.x, 48);
    }
}

TEST(CurveMarkPlan, ALevelMovesAsideForWhatStandsInItsPlaceAndNoFurther) {
    const QVMFreqResp display = displayOf({200, 200}, 7.5f, 0);
    const auto zeroBeside = [&](const Rect& other) {
        std::vector<CurveMark> marks = levelsOf(display, other);
        std::erase_if(marks, [](const CurveMark& mark) { return mark.text != "0 dB"; });
        return marks;
    };
    const std::vector<CurveMark> alone = zeroBeside({});
    ASSERT_EQ(alone.size(), 1U);
    const Rect disc = {29.5, 92.5, 15, 15};
    ASSERT_TRUE(disc.intersects(alone[0].box));
    const std::vector<CurveMark> beside = zeroBeside(disc);
    ASSERT_EQ(beside.size(), 1U) << "it is still told";
    EXPECT_EQ(beside[0].box.y, alone[0].box.y);
    EXPECT_EQ(beside[0].box.x, 45);
    EXPECT_EQ(zeroBeside({60, 92.5, 15, 15}), alone) << "it has gone by";
    const std::vector<CurveMark> below = zeroBeside({0, 85, 200, 14});
    ASSERT_EQ(below.size(), 1U);
    EXPECT_GT(below[0].box.y, 100) << "where there is nothing beside it";
}

TEST(CurveMarkPlan, WithoutACurveThereIsNone) {
    EXPECT_THAT(frequencyMarks(CurveScale()), IsEmpty());
    EXPECT_THAT(levelMarks(CurveScale(), {}, 0, {}), IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
