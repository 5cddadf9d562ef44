#include "editor/surface/NoticeView.h"

#include "platform/layer/TextLayer.h"
#include "platform/layer/TextMetrics.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class NoticeViewTest : public testing::Test {
protected:
    NoticeViewTest() { notice_.placeIn({0, 30, 418, 290}); }
    const TextLayer& text(std::size_t index) const {
        return dynamic_cast<const TextLayer&>(*notice_.layer()->tree().sublayers().at(index));
    }

    VirtualTime time_;
    NoticeView notice_;
};

TEST_F(NoticeViewTest, SaysWhatAndWhyInTheMiddleOfItsPlace) {
    EXPECT_TRUE(notice_.isHidden());
    notice_.show("Not pasted", "it is not a web address");
    EXPECT_FALSE(notice_.isHidden());
    EXPECT_EQ(text(0).string().string(), "NOT PASTED");
    EXPECT_EQ(text(1).string().string(), "it is not a web address");
    EXPECT_NEAR(notice_.frame().center().x, 209, 0.5);
    EXPECT_GT(notice_.frame().y, 30);
    EXPECT_GE(notice_.frame().width, sizeOf(text(1).string()).width);
}

TEST_F(NoticeViewTest, GoesWhenItsTimeIsOver) {
    notice_.show("Not pasted", "first");
    time_.advance(NoticeView::shownSeconds - 0.1);
    EXPECT_EQ(notice_.alpha(), 1);
    time_.advance(0.2);
    EXPECT_EQ(notice_.alpha(), 0); // on its way there
    EXPECT_FALSE(notice_.isHidden());
    time_.advance(NoticeView::fadeSeconds);
    EXPECT_TRUE(notice_.isHidden());
}

TEST_F(NoticeViewTest, ASecondOneHasItsWholeTimeAlsoInTheMiddleOfTheFade) {
    notice_.show("Not pasted", "first");
    time_.advance(NoticeView::shownSeconds + NoticeView::fadeSeconds / 2);
    notice_.show("Not pasted", "second");
    EXPECT_EQ(notice_.alpha(), 1);
    EXPECT_EQ(notice_.layer()->presentation().opacity, 1);
    time_.advance(NoticeView::shownSeconds - 0.1);
    EXPECT_FALSE(notice_.isHidden());
    EXPECT_EQ(notice_.alpha(), 1);
    EXPECT_EQ(notice_.why(), "second");
}

TEST_F(NoticeViewTest, IsNeverWiderThanItsPlace) {
    notice_.placeIn({0, 0, 200, 200});
    notice_.show("Not pasted", std::string(200, 'm'));
    EXPECT_GE(notice_.frame().x, 0);
    EXPECT_LE(notice_.frame().maxX(), 200);
    EXPECT_LT(sizeOf(text(1).string()).width, 200) << "nor is its text";
    EXPECT_EQ(notice_.why().size(), 200u);
}

TEST_F(NoticeViewTest, WhatIsLongerThanALineGoesOnBelowAndStaysLonger) {
    notice_.show("Deleted", "one line");
    const double oneLine = notice_.frame().height;
    notice_.placeIn({0, 0, 200, 200});
    notice_.show("Not opened", "The manual is /usr/share/doc/slantwise/manual/OutputGain.html");
    EXPECT_GT(notice_.frame().height, oneLine);
    EXPECT_LE(text(2).frame().maxY(), notice_.frame().height);
    EXPECT_EQ(text(1).string().string() + text(2).string().string() + text(3).string().string(), notice_.why());
    time_.advance(NoticeView::shownSeconds + 1);
    EXPECT_EQ(notice_.alpha(), 1);
    notice_.show("Deleted", "one line");
    EXPECT_EQ(notice_.frame().height, oneLine);
    EXPECT_EQ(text(2).string().string(), "");
}

TEST_F(NoticeViewTest, ColoursFollowTheTheme) {
    notice_.show("Not pasted", "why");
    const Color light = text(1).string().runs.front().color;
    QVMUITheme::toggleThemeForWindow(nullptr);
    notice_.themeUpdated();
    EXPECT_NE(text(1).string().runs.front().color, light);
    QVMUITheme::toggleThemeForWindow(nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
