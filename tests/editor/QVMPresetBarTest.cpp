#include "editor/QVMPresetBar.h"

#include "controls/QVMSymbolButton.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(QVMPresetBar, ItsButtonsAreTwentySevenPointsWideAndApart) {
    QVMPresetBar bar({0, 0, 418, 30}, "Slantwise");
    EXPECT_EQ(bar.undo().frame().width, 27);
    EXPECT_EQ(bar.redo().frame().width, 27);
    EXPECT_FALSE(bar.undo().frame().intersects(bar.redo().frame()));
    EXPECT_TRUE(bar.bounds().contains(bar.undo().frame()));
    EXPECT_TRUE(bar.bounds().contains(bar.redo().frame()));
}

TEST(QVMPresetBar, IsCleanAtFirst) {
    QVMPresetBar bar({0, 0, 418, 30}, "Slantwise");
    EXPECT_FALSE(bar.dirty());
    bar.setDirty(true);
    EXPECT_TRUE(bar.dirty());
}

} // namespace
} // namespace QVM_NAMESPACE
