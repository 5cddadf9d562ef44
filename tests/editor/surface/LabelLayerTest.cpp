#include "editor/surface/LabelLayer.h"

#include "description/Description.h"
#include "platform/layer/TextLayer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

LabelContent content(std::string image, std::string text) {
    return {std::move(image), std::move(text), {10, 20, 100, 15}, QVMLabelAlignment::left, {}};
}

TEST(LabelLayer, ShowsThePictureInTheGivenColour) {
    LabelLayer label(content(GetClump(1)->label, "TILT"));
    label.setColor({1, 0, 0, 1});
    EXPECT_TRUE(label.layer()->contents());
    EXPECT_EQ(label.layer()->look().contentsTint(), (Color{1, 0, 0, 1}));
}

TEST(LabelLayer, FallsBackToTextInCapitals) {
    for (const char* image : {"Loudness", "", "base64,Zm9v"}) {
        LabelLayer label(content(image, "Loudness"));
        label.setColor({1, 0, 0, 1});
        const auto* text = dynamic_cast<const TextLayer*>(label.layer().get());
        ASSERT_TRUE(text) << image;
        EXPECT_EQ(text->string().string(), "LOUDNESS");
        EXPECT_EQ(text->string().runs.front().color, (Color{1, 0, 0, 1}));
        EXPECT_EQ(text->frame(), (Rect{10, 20, 100, 15}));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
