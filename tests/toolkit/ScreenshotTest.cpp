#include "toolkit/Screenshot.h"

#include "platform/renderer/RasterBackend.h"
#include "toolkit/Pictures.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

const Color red{1, 0, 0, 1};

class Noticed final : public LayerTreeObserver {
public:
    void layerTreeDidChange() override { ++changes; }
    int changes = 0;
};

class ScreenshotTest : public ::testing::Test {
protected:
    ScreenshotTest() {
        window.setContentView(std::make_unique<View>(Rect{0, 0, 40, 20}));
        window.contentView()->layer()->tree().add(plainLayer({10, 5, 10, 10}, red));
    }
    const juce::SharedResourcePointer<ToolkitRuntime> runtime;
    Window window;
};

TEST_F(ScreenshotTest, IsTheWindowAtTheAskedScale) {
    for (const int s : {1, 2, 3}) {
        const Image image = renderWindowToImage(window, s);
        EXPECT_EQ(image.width, 40 * s);
        EXPECT_EQ(image.height, 20 * s);
        EXPECT_TRUE(agrees(
            image,
            [s](int x, int y) { return x >= 10 * s && x < 20 * s && y >= 5 * s && y < 15 * s ? red : Color::clear(); },
            0));
    }
}

TEST_F(ScreenshotTest, WindowHasItsScaleAndObserverBackAndLooksAgain) {
    Noticed observer;
    window.setBackingScaleFactor(1.5);
    window.contentView()->layer()->tree().setObserver(&observer);
    const int before = observer.changes;
    renderWindowToImage(window, 2);
    EXPECT_EQ(window.backingScaleFactor(), 1.5);
    EXPECT_EQ(window.contentView()->layer()->tree().observer(), &observer);
    EXPECT_GT(observer.changes, before);
    window.contentView()->layer()->tree().setObserver(nullptr);
}

TEST_F(ScreenshotTest, WindowWithoutContentGivesNoPicture) {
    Window empty;
    EXPECT_TRUE(renderWindowToImage(empty, 1).isEmpty());
}

TEST_F(ScreenshotTest, PngReadsBackAsItWas) {
    const juce::TemporaryFile file(".png");
    const std::string path = file.getFile().getFullPathName().toStdString();
    const Image image = renderWindowToImage(window, 2);
    ASSERT_TRUE(writePng(image, path));
    ASSERT_TRUE(writePng(image, path)); // over the first one
    std::ifstream stream(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    const auto read = Image::fromPng(std::as_bytes(std::span(bytes)));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->pixels, image.pixels);
}

TEST_F(ScreenshotTest, UnwritablePngIsToldOf) {
    EXPECT_FALSE(writePng(renderWindowToImage(window, 1), "/no/such/folder/picture.png"));
    EXPECT_FALSE(writePng({}, "empty.png"));
}

} // namespace
} // namespace QVM_NAMESPACE
