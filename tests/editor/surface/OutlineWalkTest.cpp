#include "editor/surface/OutlineWalk.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

OutlineWalk from(OutlineWalk::Goal selected) {
    return {{{4, "Air"}, {7, "bass"}, {9, "Bright"}, {2, ""}}, selected};
}

TEST(OutlineWalk, StepsStopAtTheEnds) {
    EXPECT_EQ(from(4).by(2), 9u);
    EXPECT_EQ(from(4).by(-1), 4u);
    EXPECT_EQ(from(9).by(5), 2u);
    EXPECT_EQ(from(std::nullopt).by(1), 4u);
    EXPECT_EQ(from(99).by(-1), 2u);
}

TEST(OutlineWalk, GoesToItsEnds) {
    EXPECT_EQ(from(7).toFirst(), 4u);
    EXPECT_EQ(from(7).toLast(), 2u);
}

TEST(OutlineWalk, ALetterGoesRoundAndComesBackToTheOnlyOne) {
    EXPECT_EQ(from(4).toLetter(U'b'), 7u);
    EXPECT_EQ(from(7).toLetter(U'B'), 9u);
    EXPECT_EQ(from(9).toLetter(U'b'), 7u);
    EXPECT_EQ(from(4).toLetter(U'a'), 4u);
    EXPECT_EQ(from(std::nullopt).toLetter(U'a'), 4u);
    EXPECT_EQ(from(2).toLetter(U'a'), 4u);
    EXPECT_EQ(from(4).toLetter(U'x'), std::nullopt);
}

TEST(OutlineWalk, ALetterIsAWholeCharacterOfTheName) {
    const OutlineWalk walk{{{1, "Äther"}, {2, "Über"}}, 1};
    EXPECT_EQ(walk.toLetter(U'Ü'), 2u);
    EXPECT_EQ(walk.toLetter(U'Ã'), std::nullopt); // the first byte of both
}

TEST(OutlineWalk, LeadsNowhereInAnEmptyList) {
    const OutlineWalk empty{{}, 3};
    EXPECT_EQ(empty.by(1), std::nullopt);
    EXPECT_EQ(empty.toFirst(), std::nullopt);
    EXPECT_EQ(empty.toLast(), std::nullopt);
    EXPECT_EQ(empty.toLetter(U'a'), std::nullopt);
}

} // namespace
} // namespace QVM_NAMESPACE
