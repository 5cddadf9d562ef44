#include "host/HostViewFixture.h"

namespace QVM_NAMESPACE {
namespace {

using Factory = HostView;

TEST_F(Factory, TellsVersionAndDescription) {
    const QVM0015_CocoaViewFactory2 factory;
    EXPECT_EQ(factory.interfaceVersion(), 131073U);
    EXPECT_STREQ(factory.description(), "Cocoa View 2");
}

TEST_F(Factory, AnyRequestedSizeGivesAView480By320) {
    for (const Size size : {Size{0, 0}, Size{480, 320}, Size{5000, 1}, Size{-3, -3}}) {
        const auto made = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&unit, size);
        EXPECT_EQ(made->frame(), (Rect{0, 0, 480, 320}));
        EXPECT_EQ(made->audioUnit(), &unit);
    }
}

TEST_F(Factory, TheEditorFillsTheViewAndIsItsOnlySubview) {
    bind();
    ASSERT_EQ(view->subviews().size(), 1U);
    EXPECT_EQ(view->subviews().front().get(), &view->ui());
    EXPECT_EQ(view->ui().frame(), view->bounds());
}

TEST_F(Factory, ANullUnitGivesAViewThatWorksAndSaysSo) {
    auto made = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(nullptr, {});
    EXPECT_EQ(made->frame(), (Rect{0, 0, 480, 320}));
    EXPECT_EQ(made->valueForParameterID(1), 0.0F);
    made->ui().notifyParameterUpdatedTo(pidTiltGain, 3);
    EXPECT_EQ(takeTags().back(), "native ui set");
    made.reset();
    EXPECT_FALSE(logged.empty());
}

TEST_F(Factory, TwoViewsOfOneUnitLiveAndDieApart) {
    bind();
    auto second = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&unit, {});
    view.reset();
    second->ui().notifyParameterUpdatedTo(pidTiltGain, 3);
    EXPECT_EQ(unit.values[1], 3.0F);
    time.advance(1);
    EXPECT_TRUE(takeTags().empty());
}

} // namespace
} // namespace QVM_NAMESPACE
