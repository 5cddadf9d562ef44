// The editor in windows of the host's making: followed, fitted, and answered with another size.
#include "editor/surface/QVMClumpsView.h"
#include "plugin/SlantwiseEditorScaleFixture.h"
#include "preferences/PreferenceFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using SlantwiseEditorFrame = SlantwiseEditorScaleFixture;

TEST_F(SlantwiseEditorFrame, AFrameOfTheHostsIsFollowedAndRememberedWhereItHasTheShape) {
    editor_->setSize(600, 400);
    time_.advance(1);
    EXPECT_EQ(scale().current(), 1.25F);
    EXPECT_THAT(PreferenceFile::ofUser().read(), IsEmpty()) << "what the host has kept";
    time_.advance(1);
    editor_->setSize(960, 640);
    EXPECT_EQ(scale().current(), 2);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 960, 640));
    EXPECT_EQ(editor_->view().frame(), (Rect{0, 0, 960, 640}));
    time_.advance(1);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 2)));
    editor_->setSize(600, 500);
    EXPECT_EQ(scale().current(), 1.25F);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 50, 600, 400)) << "all of it, in the middle";
    time_.advance(1);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 2))) << "no size that anybody wanted";
}

TEST_F(SlantwiseEditorFrame, AFrameThatIsTooSmallOrTooLargeHasAllOfTheEditor) {
    editor_->setSize(240, 160);
    EXPECT_EQ(scale().current(), 0.75F);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 240, 160));
    editor_->setSize(2000, 1500);
    EXPECT_EQ(scale().current(), 3);
    EXPECT_EQ(place(), juce::Rectangle<int>(280, 270, 1440, 960));
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(0, 0), std::pair(3, 900), std::pair(480, 320)})
        editor_->setSize(width, height);
    EXPECT_EQ(scale().current(), 1);
    EXPECT_EQ(place(), juce::Rectangle<int>(0, 0, 480, 320));
}

TEST_F(SlantwiseEditorFrame, WhatComesAtOnceAfterAQuestionIsItsAnswer) {
    show();
    scale().choose(2);
    editor_->setSize(700, 500); // all that the host gives
    EXPECT_EQ(scale().current(), 2) << "what the user wants";
    EXPECT_NEAR(scale().shown(), 700.0 / 480, 0.01) << "and what there is";
    time_.advance(1);
    editor_->setSize(720, 480);
    EXPECT_EQ(scale().current(), 1.5F) << "the host's own doing";
}

TEST_F(SlantwiseEditorFrame, ToFitTheWindowIsToFollowEachOfItsSizes) {
    show();
    scale().choose(2);
    editor_->setSize(720, 480);
    scale().fitWindow();
    EXPECT_EQ(scale().current(), 1.5F);
    EXPECT_EQ(frame(), (Size{720, 480})) << "the window is not asked for another";
    editor_->setSize(1200, 800);
    EXPECT_EQ(scale().current(), 2.5F);
    EXPECT_THAT(PreferenceFile::ofUser().read(), ElementsAre(Pair("scale", 0)));
}

TEST_F(SlantwiseEditorFrame, OneThatFitsItsWindowShowsEachFormWholeInAnyWindowAndKeepsItsSize) {
    show();
    scale().fitWindow();
    time_.advance(1);
    editor_->setSize(400, 300); // no form has such a shape
    const float fitting = scale().current();
    EXPECT_NEAR(fitting, 400.0 / 480, 1e-4);
    QVMGenericUI& ui = editor_->view().ui();
    for (const std::int32_t form : {QVMAltFrameDoubleWide, QVMAltFrameNormal, QVMAltFrameCompact, QVMAltFrameNormal}) {
        time_.advance(1);
        ui.requestFrame(form);
        const Size content = EditorLayoutForAltFrame(form).editor.size();
        EXPECT_EQ(ui.altFrame(), form);
        EXPECT_EQ(editor_->view().bounds().size(), content) << form;
        EXPECT_NEAR(place().getWidth(), content.width * double{fitting}, 1) << form;
        EXPECT_NEAR(frame().width, content.width * double{fitting}, 1) << form;
        EXPECT_EQ(scale().current(), fitting) << form;
    }
}

TEST_F(SlantwiseEditorFrame, AnotherSizeThatIsGivenWithinTheQuestionHasTheFormThatWasAskedFor) {
    show();
    scale().fitWindow();
    QVMGenericUI& ui = editor_->view().ui();
    for (const auto& [form, given] :
         {std::pair(QVMAltFrameDoubleWide, Size{600, 300}), std::pair(QVMAltFrameNormal, Size{500, 300}),
          std::pair(QVMAltFrameCompact, Size{300, 260}), std::pair(QVMAltFrameNormal, Size{900, 420})}) {
        time_.advance(1);
        desktop_->answer = given;
        ui.requestFrame(form);
        const Size content = EditorLayoutForAltFrame(form).editor.size();
        const double fitting = std::min(given.width / content.width, given.height / content.height);
        EXPECT_EQ(frame(), given);
        EXPECT_EQ(ui.altFrame(), form);
        EXPECT_EQ(editor_->view().bounds().size(), content) << form;
        EXPECT_EQ(ui.frame().size(), content) << form;
        EXPECT_NEAR(double{scale().current()}, fitting, 1e-4) << form;
        EXPECT_NEAR(place().getWidth(), content.width * fitting, 1) << form;
        EXPECT_NEAR(place().getCentreX(), given.width / 2, 1) << "all of it, in the middle";
        EXPECT_NEAR(place().getCentreY(), given.height / 2, 1);
    }
}

TEST_F(SlantwiseEditorFrame, ADrawerThatGetsNoRoomIsOverTheControlsAndTheSizeStays) {
    scale().fitWindow();
    show();
    editor_->view().ui().requestFrame(QVMAltFrameDoubleWide);
    EXPECT_EQ(frame(), (Size{680, 320}));
    editor_->setSize(480, 320);
    EXPECT_EQ(scale().current(), 1);
    EXPECT_EQ(editor_->view().ui().advClumpsView()->frame().x, 218);
}

} // namespace
} // namespace QVM_NAMESPACE
