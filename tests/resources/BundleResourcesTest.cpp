#include "resources/BundleResources.h"

#include "resources/DecodedPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace QVM_NAMESPACE {
namespace {

// The first bytes of a file, as text.
std::string head(std::span<const std::byte> bytes, std::size_t count) {
    return {reinterpret_cast<const char*>(bytes.data()), std::min(count, bytes.size())};
}

TEST(BundleResources, CarriesTheFontsOfTheInterface) {
    const BundleResources& resources = BundleResources::current();
    EXPECT_EQ(head(resources.find("QVM-Icons-Regular", "otf"), 4), "OTTO");
    for (const char* face : {"Roboto-Medium", "Roboto-Italic", "RobotoCondensed-Bold"})
        EXPECT_EQ(head(resources.find(face, "ttf"), 4), std::string("\0\1\0\0", 4)) << face;
}

TEST(BundleResources, CarriesTheBackgroundPictures) {
    using tests::decodePng;
    const BundleResources& resources = BundleResources::current();
    const auto light = decodePng(resources.find("noised-ottoman", "png"));
    EXPECT_EQ(light.width, 128);
    EXPECT_EQ(light.height, 128);
    const auto dark = decodePng(resources.find("noise_dark", "png"));
    EXPECT_EQ(dark.width, 128);
    EXPECT_EQ(dark.height, 128);
    EXPECT_EQ(decodePng(resources.find("screenshot", "png")).width, 240);
    EXPECT_EQ(decodePng(resources.find("app-icon", "png")).width, 256);
    EXPECT_EQ(head(resources.find("noised-ottoman-single-res", "jpg"), 3), "\xFF\xD8\xFF");
}

TEST(BundleResources, PatternsAreOpaqueQuietAndNotBlank) {
    for (const char* name : {"noised-ottoman", "noise_dark"}) {
        const auto picture = tests::decodePng(BundleResources::current().find(name, "png"));
        ASSERT_FALSE(picture.pixels.empty()) << name;
        int least = 255, most = 0;
        for (const tests::Rgba& pixel : picture.pixels) {
            EXPECT_EQ(pixel.alpha, 255);
            least = std::min<int>(least, pixel.green);
            most = std::max<int>(most, pixel.green);
        }
        EXPECT_GT(most, least) << name;
        EXPECT_LE(most - least, 10) << name;
    }
}

TEST(BundleResources, AFileIsFoundByItsExactNameAndExtensionOnly) {
    const BundleResources& resources = BundleResources::current();
    EXPECT_TRUE(resources.find("QVM-Icons-Regular", "ttf").empty());
    EXPECT_TRUE(resources.find("qvm-icons-regular", "otf").empty());
    EXPECT_TRUE(resources.find("QVM-Icons-Regular.otf", "").empty());
    EXPECT_TRUE(resources.find("noised-ottoman", "jpg").empty());
    EXPECT_TRUE(resources.find("", "").empty());
}

TEST(BundleResources, ASetOfOnesOwnGivesItsOwnBytes) {
    const std::array<std::byte, 2> bytes{std::byte{1}, std::byte{2}};
    const BundleResources resources({{"name", "ext", bytes}});
    EXPECT_EQ(resources.find("name", "ext").data(), bytes.data());
    EXPECT_EQ(resources.find("name", "ext").size(), bytes.size());
    EXPECT_TRUE(resources.find("Roboto-Medium", "ttf").empty());
}

} // namespace
} // namespace QVM_NAMESPACE
