#include "editor/surface/QVMPresetBar.h"

#include "controls/QVMSymbolButton.h"
#include "description/Description.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMPresetControl.h"
#include "theme/Colors.h"
#include "theme/QVMPalette.h"
#include "theme/ScopedTheme.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class QVMPresetBarTest : public testing::Test {
protected:
    QVMPresetControl& name() { return dynamic_cast<QVMPresetControl&>(*bar_.presetControl()->primaryControl()); }

    QVMPresetBar bar_{{0, 0, 418, 30}, GetPresets()};
};

TEST_F(QVMPresetBarTest, ItsButtonsAreTwentySevenPointsWideAndApart) {
    EXPECT_EQ(bar_.undo().frame().width, 27);
    EXPECT_EQ(bar_.redo().frame().width, 27);
    EXPECT_FALSE(bar_.undo().frame().intersects(bar_.redo().frame()));
    EXPECT_TRUE(bar_.bounds().contains(bar_.undo().frame()));
    EXPECT_TRUE(bar_.bounds().contains(bar_.redo().frame()));
}

TEST_F(QVMPresetBarTest, ItsChildrenStandWhereTheLayoutSays) {
    EXPECT_EQ(bar_.presetControl()->frame(), (Rect{89, 0, 240, 30}));
    EXPECT_EQ(bar_.ab().frame(), (Rect{359, 0, 62, 30}));
}

TEST_F(QVMPresetBarTest, IsCleanAtFirstAndDrawsTheNameOfAChangedPresetAsInaccurate) {
    EXPECT_FALSE(bar_.dirty());
    EXPECT_FALSE(name().inaccurate());
    EXPECT_EQ(name().value()->opacity(), 1);
    bar_.setDirty(true);
    EXPECT_TRUE(bar_.dirty());
    EXPECT_TRUE(name().inaccurate());
    EXPECT_LT(name().value()->opacity(), 1);
    bar_.setDirty(false);
    EXPECT_FALSE(name().inaccurate());
    EXPECT_EQ(name().value()->opacity(), 1);
}

TEST_F(QVMPresetBarTest, TheNameStaysLegibleWhenItIsInaccurate) {
    bar_.setDirty(true);
    const auto opacity = static_cast<float>(name().value()->opacity());
    for (const QVMUITheme* theme : {&QVMUITheme::light(), &QVMUITheme::dark()}) {
        const Color bar = theme->palette.sidePanel, seen = composite(theme->textColor.withAlpha(opacity), bar);
        EXPECT_GE(contrastRatio(seen, bar), minimumTextContrast);
    }
}

TEST_F(QVMPresetBarTest, ToolsThatCannotBeUsedAreStillSeen) {
    for (const QVMUITheme* theme : {&QVMUITheme::light(), &QVMUITheme::dark()}) {
        const ScopedTheme inForce(*theme);
        bar_.themeUpdated();
        for (QVMSymbolButton* const tool : {&bar_.undo(), &bar_.redo()}) {
            tool->setButtonEnabled(false);
            const Color bar = theme->palette.sidePanel;
            const Color resting = composite(tool->restingGlyph()->string().runs.front().color, bar);
            const auto opacity = static_cast<float>(tool->glyph()->opacity());
            const double ratio = contrastRatio(composite(tool->color().withAlpha(opacity), resting), bar);
            EXPECT_GE(ratio, 2);
            EXPECT_LT(ratio, 2.5) << "and told from those that can";
        }
    }
}

TEST_F(QVMPresetBarTest, SettingTheSameDirtyStateAgainTouchesNothing) {
    bar_.setDirty(true);
    name().setInaccurate(false);
    bar_.setDirty(true);
    EXPECT_FALSE(name().inaccurate());
}

TEST(QVMPresetBarWithoutPresets, HasTheOtherButtonsAllTheSame) {
    QVMPresetBar bar({0, 0, 418, 30}, nullptr);
    EXPECT_EQ(bar.presetControl(), nullptr);
    bar.setDirty(true);
    EXPECT_TRUE(bar.dirty());
    EXPECT_EQ(bar.undo().frame().width, 27);
}

} // namespace
} // namespace QVM_NAMESPACE
