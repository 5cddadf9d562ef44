#include "preferences/PreferenceText.h"

#include <gmock/gmock.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;

TEST(PreferenceText, IsALineEach) {
    EXPECT_THAT(
        preferencesIn("theme = 1\nscale=1.5\n\t spectrum =  2\r\nlast.one = -3e2"),
        Optional(ElementsAre(Pair("last.one", -300), Pair("scale", 1.5), Pair("spectrum", 2), Pair("theme", 1))));
    EXPECT_THAT(preferencesIn(""), Optional(IsEmpty()));
}

TEST(PreferenceText, WhatIsNoPreferenceIsPassedOver) {
    EXPECT_THAT(
        preferencesIn("# remark\n\n=\nscale =\n= 2\nscale 2\nsc ale = 2\nscale = two\nscale = nan\nscale = inf\n"
                      "scale = 2 2\nsk\xC3\xA4la = 2\ntheme = 1"),
        Optional(ElementsAre(Pair("theme", 1))));
    EXPECT_THAT(preferencesIn("scale = 1\nscale = 2"), Optional(ElementsAre(Pair("scale", 2))))
        << "the last one counts";
}

TEST(PreferenceText, WhatIsNoTextHasNone) {
    EXPECT_EQ(preferencesIn(std::string_view("scale = 1\n\0", 11)), std::nullopt);
    EXPECT_EQ(preferencesIn("scale = 1\n\xFF"), std::nullopt);
    EXPECT_EQ(preferencesIn("\x7F\x45LF\x02"), std::nullopt);
}

TEST(PreferenceText, OneIsWrittenInItsPlaceAndTheRestStays) {
    const std::string before = "# of a later version\ntheme = 1\nshape = round\nscale = 1\nscale = 3";
    EXPECT_EQ(textWithPreference(before, "scale", 1.25),
              "# of a later version\ntheme = 1\nshape = round\nscale = 1.25\n");
    EXPECT_EQ(textWithPreference(before, "spectrum", 2), before + "\nspectrum = 2\n");
    EXPECT_EQ(textWithPreference("", "scale", 0.1), "scale = 0.1\n");
}

TEST(PreferenceText, WhatCannotBeReadBackIsNotWritten) {
    EXPECT_EQ(textWithPreference("a = 1\n", "a b", 2), "a = 1\n");
    EXPECT_EQ(textWithPreference("a = 1\n", "", 2), "a = 1\n");
    EXPECT_EQ(textWithPreference("a = 1\n", "a\n", 2), "a = 1\n");
    EXPECT_EQ(textWithPreference("a = 1\n", "a", std::nan("")), "a = 1\n");
}

} // namespace
} // namespace QVM_NAMESPACE
