#include "tools/gallery/GalleryOptions.h"

#include "tools/gallery/Pages.h"
#include "tools/gallery/TestSignal.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

GalleryOptions parsed(const std::vector<std::string>& arguments) {
    return std::get<GalleryOptions>(parseGalleryOptions(arguments));
}

std::string mistake(const std::vector<std::string>& arguments) {
    const auto result = parseGalleryOptions(arguments);
    const auto* error = std::get_if<GalleryOptionsError>(&result);
    return error ? error->message : "";
}

TEST(GalleryOptions, WithoutArgumentsItStartsOnTheFirstPageInTheLight) {
    const GalleryOptions options = parsed({});
    EXPECT_EQ(options.page, 0u);
    EXPECT_EQ(options.theme, GalleryOptions::Theme::light);
    EXPECT_EQ(options.scale, 0);
    EXPECT_EQ(options.signal, "noise");
    EXPECT_TRUE(options.screenshotFile.empty());
    EXPECT_FALSE(options.printEvents);
}

TEST(GalleryOptions, TakesEveryOption) {
    const GalleryOptions options =
        parsed({"--page", "numbers", "--theme", "dark", "--scale", "1.5", "--signal", "wide", "--screenshot", "a.png",
                "--after", "2", "--quit-after", "3", "--events", "some.wav"});
    EXPECT_EQ(options.page, *galleryPageNamed("Numbers"));
    EXPECT_EQ(options.theme, GalleryOptions::Theme::dark);
    EXPECT_EQ(options.scale, 1.5);
    EXPECT_EQ(options.signal, "wide");
    EXPECT_EQ(options.screenshotFile, "a.png");
    EXPECT_EQ(options.afterSeconds, 2);
    EXPECT_EQ(options.quitAfterSeconds, 3);
    EXPECT_TRUE(options.printEvents);
    EXPECT_EQ(options.audioFile, "some.wav");
}

TEST(GalleryOptions, SaysWhatIsWrong) {
    EXPECT_EQ(mistake({"--page"}), "--page needs a value");
    EXPECT_EQ(mistake({"--page", "Slider"}), "there is no page named \"Slider\"; the nearest is \"Sliders\"");
    EXPECT_EQ(mistake({"--signal", "square"}), "there is no signal named \"square\"; the nearest is \"sine\"");
    EXPECT_EQ(mistake({"--scale", "9"}), "--scale takes a number from 0.5 to 4, not \"9\"");
    EXPECT_EQ(mistake({"--theme", "blue"}), "--theme takes light or dark, not \"blue\"");
    EXPECT_EQ(mistake({"one.wav", "two.wav"}), "unknown argument \"two.wav\" (--help lists the options)");
}

TEST(GalleryOptions, TakesShortHelpAndEqualsSignsAndDashedFiles) {
    EXPECT_TRUE(parsed({"-h"}).showHelp);
    EXPECT_EQ(parsed({"--scale=2"}).scale, 2);
    EXPECT_EQ(parsed({"--", "-a.wav"}).audioFile, "-a.wav");
}

TEST(GalleryOptions, TheHelpNamesEverySignal) {
    for (const std::string_view name : testSignalNames())
        EXPECT_NE(galleryHelpText("slantwise-gallery").find(name), std::string::npos) << name;
}

} // namespace
} // namespace QVM_NAMESPACE
