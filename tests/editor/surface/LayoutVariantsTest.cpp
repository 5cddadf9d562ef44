#include "editor/surface/LayoutVariants.h"

#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Beside the editor's own, so that the delegate's answer does not come here: nothing is assumed but what is told.
class LayoutVariantsTest : public EditorFixture {
protected:
    LayoutVariants& variants() {
        if (!variants_) variants_ = std::make_unique<LayoutVariants>(*ui_);
        return *variants_;
    }
    std::unique_ptr<LayoutVariants> variants_;
};

TEST_F(LayoutVariantsTest, AskingForAVariantAssumesNothing) {
    variants().request(QVMAltFrameDoubleWide);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 1", "save state 1"));
    EXPECT_EQ(variants().current(), QVMAltFrameNormal);
}

TEST_F(LayoutVariantsTest, AnAssumedVariantIsLaidOutAndKept) {
    variants().assume(QVMAltFrameDoubleWide, false);
    EXPECT_EQ(variants().current(), QVMAltFrameDoubleWide);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 680, 320}));
    EXPECT_TRUE(ui_->powerBox()->gear()->selected());
    EXPECT_THAT(delegate_.calls, ElementsAre("save state 1"));
}

TEST_F(LayoutVariantsTest, EachToggleAsksForItsVariantAndFromThereForTheNormalOne) {
    const auto asked = [&](auto toggle) {
        delegate_.calls.clear();
        toggle();
        return delegate_.calls.empty() ? "" : delegate_.calls.front();
    };
    const auto compact = [&] { variants().toggleCompact(); };
    const auto wide = [&] { variants().toggleDoubleWide(); };
    EXPECT_EQ(asked(compact), "frame 2");
    EXPECT_EQ(asked(wide), "frame 1");
    variants().assume(QVMAltFrameCompact, false);
    EXPECT_EQ(asked(compact), "frame 0");
    EXPECT_EQ(asked(wide), "frame 1");
    variants().assume(QVMAltFrameDoubleWide, false);
    EXPECT_EQ(asked(compact), "frame 0");
    EXPECT_EQ(asked(wide), "frame 0");
}

TEST_F(LayoutVariantsTest, AnOpenPresetsDrawerClosesHalfASecondBeforeTheCompactFormIsAskedFor) {
    ui_->togglePresetsDrawer();
    time_.advance(1);
    delegate_.calls.clear();
    variants().toggleCompact();
    time_.advance(0.49);
    EXPECT_THAT(delegate_.calls, IsEmpty());
    time_.advance(0.02);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 2", "save state 2"));
}

TEST_F(LayoutVariantsTest, AVariantThatWasKeptIsAskedForUnlessItIsThereOrUnknown) {
    variants().restore(QVMAltFrameNormal);
    variants().restore(3);
    variants().restore(0xFFFFFFFF);
    EXPECT_THAT(delegate_.calls, IsEmpty());
    variants().restore(QVMAltFrameCompact);
    EXPECT_THAT(delegate_.calls, ElementsAre("frame 2", "save state 2"));
}

TEST_F(LayoutVariantsTest, TheDrawersPlaceCountsWhereItIsOpen) {
    variants().setDrawerPlace(DrawerPlace::over);
    EXPECT_TRUE(ui_->advClumpsView()->isHidden());
    variants().assume(QVMAltFrameDoubleWide, false);
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{218, 0, 200, 320}));
    variants().setDrawerPlace(DrawerPlace::beside);
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{480, 0, 200, 320}));
}

TEST_F(LayoutVariantsTest, WithoutADelegateNothingIsAskedAndWhatIsToldIsLaidOut) {
    ui_->setDelegate(nullptr);
    variants().toggleCompact();
    variants().toggleDoubleWide();
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 480, 320}));
    variants().assume(QVMAltFrameCompact, false);
    EXPECT_EQ(ui_->frame(), (Rect{0, 0, 200, 200}));
}

} // namespace
} // namespace QVM_NAMESPACE
