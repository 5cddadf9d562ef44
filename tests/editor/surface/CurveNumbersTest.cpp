#include "editor/surface/CurveNumbers.h"

#include "editor/surface/CurveNumbersFixture.h"
#include "editor/surface/QVMPowerBox.h"
#include "platform/layer/TextLayer.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using CurveNumbersTest = CurveNumbersFixture;

TEST_F(CurveNumbersTest, TheSmallBoxHasNothingOfThem) {
    ui_->requestFrame(QVMAltFrameNormal);
    frames(1);
    EXPECT_THAT(shownLayers(), ElementsAre("parameterSketch", "sketch"));
    const Point middle = middleOf(*ui_->sketch());
    pointTo(middle);
    EXPECT_THAT(shownLayers(), ElementsAre("parameterSketch", "sketch"));
    EXPECT_EQ(window_.hitTest(middle), ui_->sketch());
}

TEST_F(CurveNumbersTest, TheCompactFormHasMarksBelowTheCurveAndCornersAboveIt) {
    const std::vector<std::string> names = shownLayers();
    const auto place = [&](const char* name) { return std::find(names.begin(), names.end(), name) - names.begin(); };
    EXPECT_LT(place("curveMark:0 dB"), place("sketch"));
    EXPECT_LT(place("curveMark:1k"), place("sketch"));
    EXPECT_LT(place("sketch"), place("corner:TiltRangeLow"));
    EXPECT_THAT(names, AllOf(Contains("corner:TiltRangeHigh"), Contains("corner:FilterRangeLow"),
                             Contains("corner:FilterRangeHigh"), Not(Contains("hairLine"))));
}

TEST_F(CurveNumbersTest, WithThePowerOffTheCornersAreFaint) {
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 1);
    hostSets(pidMasterOnOff, 0);
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 0.5);
    hostSets(pidMasterOnOff, 1);
    EXPECT_EQ(corner(pidTiltRangeLow).alpha(), 1);
}

TEST_F(CurveNumbersTest, TextsStandOutInBothThemes) {
    for (int theme = 0; theme < 2; ++theme) {
        const Color ground = ui_->powerBox()->sketchGround();
        pointTo({100, 150});
        int texts = 0;
        std::vector<const Layer*> open = {numbers().marks().layer().get(), readout().layer().get()};
        while (!open.empty()) {
            const Layer* layer = open.back();
            open.pop_back();
            for (const auto& sublayer : layer->tree().sublayers())
                open.push_back(sublayer.get());
            const auto* text = dynamic_cast<const TextLayer*>(layer);
            if (!text || text->string().isEmpty()) continue;
            const Layer* plate = layer->tree().superlayer();
            const Color below = plate->name() == "curvePlate" ? plate->look().backgroundColor() : ground;
            EXPECT_GE(contrastRatio(text->string().runs.front().color, below), 4.5) << layer->name();
            ++texts;
        }
        EXPECT_GE(texts, 9);
        ui_->toggleUITheme();
    }
}

} // namespace
} // namespace QVM_NAMESPACE
