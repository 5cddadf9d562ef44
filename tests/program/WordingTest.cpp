#include "program/Wording.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(Wording, NamesWhatIsMeantAndWhatIsWrongWithIt) {
    EXPECT_EQ(cannotRead(quoted("a.wav"), "it is empty"), "cannot read \"a.wav\": it is empty");
    EXPECT_EQ(isDamaged("a.wav", "plays"), "\"a.wav\" is damaged, and plays as far as it can be read");
    EXPECT_EQ(takesNot("--theme", "light or dark", "grey"), "--theme takes light or dark, not \"grey\"");
    EXPECT_EQ(needsAValue("--play"), "--play needs a value");
    EXPECT_EQ(unknownArgument("-x"), "unknown argument \"-x\" (--help lists the options)");
}

} // namespace
} // namespace QVM_NAMESPACE
