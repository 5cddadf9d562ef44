#include "editor/surface/QVMClumpView.h"

#include "controls/QVMParameterControl.h"
#include "description/Description.h"
#include "platform/layer/LayerDump.h"
#include "platform/layer/TextLayer.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;
using testing::Not;

class QVMClumpViewTest : public testing::Test {
protected:
    std::unique_ptr<QVMClumpView> make(std::uint32_t cid) {
        QVMClump& clump = *GetClump(cid);
        return std::make_unique<QVMClumpView>(Rect{clump.frame.x, clump.frame.y, clump.frame.width, clump.frame.height},
                                              clump);
    }
    QVMParameterControl& addControl(QVMClumpView& view, std::uint32_t pid) {
        const QVMRect& f = GetParameter(pid)->frame;
        return view.addSubview(
            std::make_unique<QVMParameterControl>(Rect{f.x, f.y, f.width, f.height}, Rect{}, GetParameter(pid), 0.0f));
    }
    VirtualTime time_;
};

TEST_F(QVMClumpViewTest, FiveControlsDimInARipple) {
    const std::vector<double> expected = {0, 0.02, 0.04, 0.06, 0.08};
    EXPECT_THAT(QVMClumpView::rippleDelays(5, 0), testing::Pointwise(testing::DoubleEq(), expected));
    EXPECT_THAT(QVMClumpView::rippleDelays(2, 0.1),
                testing::ElementsAre(testing::DoubleEq(0.1), testing::DoubleEq(0.12)));
}

TEST_F(QVMClumpViewTest, DimmingHoldsEveryControlUnderOneKeyAndFadesTheView) {
    auto view = make(1);
    for (const std::uint32_t pid : {1u, 2u, 3u})
        addControl(*view, pid);
    view->setDimmedDelayPriority(true, 0, 5);
    EXPECT_TRUE(view->dimmed());
    EXPECT_EQ(view->alpha(), 0.5);
    ASSERT_EQ(view->parameterControls().size(), 3u);
    for (const QVMParameterControl* control : view->parameterControls())
        EXPECT_EQ(control->dimHolds(), (std::map<std::string, unsigned>{{"Clump", 5u}}));
    view->setDimmedDelayPriority(false, 0, 5);
    EXPECT_FALSE(view->dimmed());
    EXPECT_EQ(view->alpha(), 1);
    for (const QVMParameterControl* control : view->parameterControls())
        EXPECT_FALSE(control->isDimmed());
}

TEST_F(QVMClumpViewTest, EachControlIsSeenToDimLaterThanTheOneBefore) {
    auto view = make(1);
    for (const std::uint32_t pid : {1u, 2u, 3u})
        addControl(*view, pid);
    const auto seen = [&](std::size_t i) { return view->parameterControls().at(i)->layer()->presentation().opacity; };
    view->setDimmedDelayPriority(true, 0, 0);
    EXPECT_EQ(view->parameterControls().back()->alpha(), 0.2); // it is dimmed at once, and seen to be so later
    time_.advance(0.03);
    EXPECT_LT(seen(0), seen(1));
    EXPECT_LT(seen(1), 1);
    EXPECT_EQ(seen(2), 1); // not yet
    time_.advance(0.3);
    for (const std::size_t i : {0u, 1u, 2u})
        EXPECT_EQ(seen(i), 0.2);
    view->setDimmedDelayPriority(false, 0, 0);
    time_.advance(0.03);
    EXPECT_GT(seen(0), seen(1));
    EXPECT_EQ(seen(2), 0.2);
    time_.advance(0.3);
    EXPECT_EQ(seen(2), 1);
}

TEST_F(QVMClumpViewTest, FiveControlsFadeFiftiethsOfASecondApart) {
    auto view = make(1);
    const std::vector<std::uint32_t> pids = {1, 2, 3, 9, 10};
    for (const std::uint32_t pid : pids)
        addControl(*view, pid);
    const auto delayOf = [&](std::size_t i) {
        const BasicAnimation* fade = view->parameterControls().at(i)->layer()->animations().find("dimRipple");
        return fade ? fade->beginDelay : 0;
    };
    view->setDimmedDelayPriority(true, 0, 5);
    for (std::size_t i = 0; i < pids.size(); ++i)
        EXPECT_DOUBLE_EQ(delayOf(i), 0.02 * static_cast<double>(i)) << i;
    time_.advance(1);
    view->setDimmedDelayPriority(false, 0.1, 5);
    for (std::size_t i = 0; i < pids.size(); ++i)
        EXPECT_DOUBLE_EQ(delayOf(i), 0.1 + 0.02 * static_cast<double>(i)) << i;
}

TEST_F(QVMClumpViewTest, TheFadeGlides) {
    auto view = make(1);
    view->setDimmedDelayPriority(true, 0, 0);
    time_.advance(0.1);
    const double onTheWay = view->layer()->presentation().opacity;
    EXPECT_GT(onTheWay, 0.5);
    EXPECT_LT(onTheWay, 1);
}

TEST_F(QVMClumpViewTest, DrawsItsHeadingFromThePictureAndItsTaggedLabels) {
    const std::string dump = dumpLayerTree(*make(1)->layer());
    EXPECT_THAT(dump, HasSubstr("label:TILT"));
    EXPECT_THAT(dump, HasSubstr("label:GAIN"));
    EXPECT_THAT(dump, HasSubstr("label:RANGE"));
}

TEST_F(QVMClumpViewTest, DrawsTheLabelsOfItsParameters) {
    EXPECT_THAT(dumpLayerTree(*make(2)->layer()), HasSubstr("label:Loudness"));
    EXPECT_THAT(dumpLayerTree(*make(4)->layer()), HasSubstr("label:Slope"));
}

TEST_F(QVMClumpViewTest, LabelsSideBySideAreHeadingsOverThoseOfTheParameters) {
    const auto sizeOf = [](const QVMClumpView& view, const std::string& label) -> double {
        for (const auto& sublayer : view.layer()->tree().sublayers())
            if (const auto* text = dynamic_cast<const TextLayer*>(sublayer.get()); text && text->name() == label)
                return text->string().runs.front().font.pointSize;
        return 0;
    };
    const auto advanced = make(4), tilt = make(1);
    EXPECT_EQ(sizeOf(*advanced, "label:LOW"), 12);
    EXPECT_EQ(sizeOf(*advanced, "label:HIGH"), 12);
    EXPECT_EQ(sizeOf(*tilt, "label:RANGE"), 10) << "they stand one above the other";
}

TEST_F(QVMClumpViewTest, PartsItsColumnsWithALine) {
    EXPECT_THAT(dumpLayerTree(*make(4)->layer()), HasSubstr("interiorBorder"));
    EXPECT_THAT(dumpLayerTree(*make(1)->layer()), Not(HasSubstr("interiorBorder")));
}

TEST_F(QVMClumpViewTest, AnOutlineIsDrawnOnlyForAClumpThatNamesEdges) {
    EXPECT_THAT(dumpLayerTree(*make(1)->layer()), Not(HasSubstr("outline")));
    QVMClump outlined = *GetClump(1);
    outlined.edges = {"left"};
    outlined.inset = {{"left", 10}, {"top", 5}};
    const QVMClumpView view({0, 0, 100, 50}, outlined);
    EXPECT_THAT(dumpLayerTree(*view.layer()), HasSubstr("outline"));
    EXPECT_EQ(view.useableRect(), (Rect{10, 5, 90, 45}));
    EXPECT_TRUE(view.useableRect().contains(view.newRoundedBorderRect()));
}

TEST_F(QVMClumpViewTest, ClicksBesideItsControlsPassThrough) {
    auto view = make(1);
    QVMParameterControl& gain = addControl(*view, 1);
    EXPECT_EQ(view->hitTest({300, 10}), nullptr);
    View* hit = view->hitTest(gain.frame().center());
    ASSERT_NE(hit, nullptr);
    EXPECT_TRUE(hit->isDescendantOf(gain));
}

} // namespace
} // namespace QVM_NAMESPACE
