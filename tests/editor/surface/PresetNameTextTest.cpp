#include "editor/surface/PresetNameText.h"

#include "resources/IconGlyphs.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const Font font = {"HelveticaNeue", 15};
const std::string arrow(icons::copyRight);

TEST(PresetNameText, ATypedArrowIsAGlyph) {
    const AttributedString text = presetNameText("White Noise -> Pink", font, Color::white(1));
    ASSERT_EQ(text.runs.size(), 3u);
    EXPECT_EQ(text.runs[0].text, "White Noise ");
    EXPECT_EQ(text.runs[1].text, arrow);
    EXPECT_NE(text.runs[1].font, font);
    EXPECT_EQ(text.runs[2].text, " Pink");
    EXPECT_EQ(text.runs[2].font, font);
    for (const TextRun& run : text.runs)
        EXPECT_EQ(run.color, Color::white(1));
}

TEST(PresetNameText, OthersAreAsTheyAre) {
    for (const char* name : {"", "Air", "a-b > c", "-"})
        EXPECT_EQ(presetNameText(name, font, Color::white(1)), AttributedString(name, font, Color::white(1))) << name;
    EXPECT_EQ(presetNameText("->a->", font, Color::white(1)).string(), arrow + "a" + arrow);
}

} // namespace
} // namespace QVM_NAMESPACE
