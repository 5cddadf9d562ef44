#include "editor/surface/ListThumb.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class ListThumbTest : public testing::Test {
protected:
    Rect frame() const { return view_.tree().sublayers().front()->frame(); }
    bool isHidden() const { return view_.tree().sublayers().front()->isHidden(); }

    Layer view_;
    ListThumb thumb_{view_};
};

TEST_F(ListThumbTest, IsAsLongAsWhatIsSeenOfTheListAndWhereThatIs) {
    thumb_.place({100, 206}, 412, 0);
    EXPECT_EQ(frame(), (Rect{94, 3, 3, 100}));
    thumb_.place({100, 206}, 412, 103);
    EXPECT_EQ(frame(), (Rect{94, 53, 3, 100}));
    thumb_.place({100, 206}, 412, 206);
    EXPECT_EQ(frame(), (Rect{94, 103, 3, 100}));
    thumb_.place({100, 206}, 1e6, 0);
    EXPECT_EQ(frame().height, 24) << "it can be grasped";
}

TEST_F(ListThumbTest, IsHiddenWhereAllIsSeenAndTakesNoPress) {
    EXPECT_TRUE(isHidden());
    thumb_.place({100, 206}, 206, 0);
    EXPECT_TRUE(isHidden());
    EXPECT_FALSE(thumb_.press({95, 50}));
    EXPECT_FALSE(thumb_.drag({95, 60}));
}

TEST_F(ListThumbTest, GoesWithThePointerFromWhereItWasGrasped) {
    thumb_.place({100, 206}, 412, 0);
    EXPECT_FALSE(thumb_.press({80, 50})) << "beside the edge";
    EXPECT_EQ(thumb_.press({95, 23}), 0);
    EXPECT_EQ(thumb_.drag({20, 73}), 103);
    thumb_.letGo();
    EXPECT_FALSE(thumb_.drag({95, 83}));
}

TEST_F(ListThumbTest, APressBesideItTakesItsMiddleThere) {
    thumb_.place({100, 206}, 412, 0);
    EXPECT_EQ(thumb_.press({95, 153}), 206);
}

} // namespace
} // namespace QVM_NAMESPACE
