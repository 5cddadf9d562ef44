#include "editor/surface/QVMClumpsView.h"

#include "platform/view/Window.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class QVMClumpsViewTest : public testing::Test {
protected:
    static std::vector<const Layer*> layersNamed(const QVMClumpsView& view, const std::string& name) {
        std::vector<const Layer*> found;
        for (const auto& sublayer : view.layer()->tree().sublayers())
            if (sublayer->name() == name) found.push_back(sublayer.get());
        return found;
    }

    const std::shared_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    const Rect frame_ = {0, 30, 418, 290};
};

TEST_F(QVMClumpsViewTest, APanelLiesUnderEachClump) {
    const QVMClumpsView view(frame_, *config_);
    ASSERT_EQ(layersNamed(view, "panel:Tilt").size(), 1u);
    EXPECT_EQ(layersNamed(view, "panel:Tilt").front()->frame(), (Rect{0, 0, 321, 174}));
    EXPECT_EQ(layersNamed(view, "panel:Output").front()->look().backgroundColor(), QVMPalette::light().sidePanel);
    EXPECT_FALSE(view.layer()->look().backgroundPattern()) << "only drawers have one";
    EXPECT_FALSE(view.advanced());
}

TEST_F(QVMClumpsViewTest, LinesPartThePanels) {
    const QVMClumpsView view(frame_, *config_);
    const auto dividers = layersNamed(view, "divider");
    ASSERT_EQ(dividers.size(), 3u);
    EXPECT_EQ(dividers[1]->frame(), (Rect{0, 174, 321, 1})); // between tilt and filter
    EXPECT_EQ(dividers[1]->look().backgroundColor(), QVMUITheme::light().interiorBorderColor);
}

TEST_F(QVMClumpsViewTest, InsetsCutThePanelsAndLeaveTheLines) {
    QVMClumpsView view(frame_, *config_);
    view.setInset({{"left", 10}, {"top", 5}});
    EXPECT_EQ(layersNamed(view, "panel:Tilt").front()->frame(), (Rect{10, 5, 311, 169}));
    EXPECT_EQ(layersNamed(view, "divider")[1]->frame(), (Rect{0, 174, 321, 1}));
    view.setInset({});
    EXPECT_EQ(layersNamed(view, "panel:Tilt").front()->frame(), (Rect{0, 0, 321, 174}));
}

TEST_F(QVMClumpsViewTest, TheAdvancedAreaIsADrawersGroundWithAHeaderAndABanner) {
    const QVMClumpsView view({480, 0, 200, 320}, *config_, ClumpsArea::advanced);
    EXPECT_TRUE(view.advanced());
    EXPECT_EQ(view.layer()->look().backgroundColor(), QVMPalette::light().drawer);
    EXPECT_EQ(view.layer()->look().backgroundPattern(), QVMUITheme::light().backgroundPattern);
    ASSERT_EQ(view.layer()->tree().sublayers().size(), 2u); // the header and the banner in it
    const Layer* header = layersNamed(view, "header").front();
    EXPECT_EQ(header->frame(), (Rect{0, 0, 200, 30}));
    EXPECT_EQ(header->look().backgroundColor(), QVMPalette::light().sidePanel);
    EXPECT_TRUE(layersNamed(view, "divider").empty()) << "a line along the area's own edge parts nothing";
    const Layer& banner = *layersNamed(view, "label:").front();
    EXPECT_EQ(banner.frame(), (Rect{0, 0, 200, 30}));
    const Image& picture = *banner.contents();
    const auto isClear = [&picture](int x) {
        for (int y = 0; y < picture.height; ++y)
            if (picture.pixels[static_cast<std::size_t>(y * picture.width + x)] >> 24) return false;
        return true;
    };
    const int edge = picture.width * 9 / 200; // nine points
    for (int x = 0; x < edge; ++x)
        ASSERT_TRUE(isClear(picture.width - 1 - x)) << "what is drawn ends inside";
}

TEST_F(QVMClumpsViewTest, ALineAroundItIsDrawnOnlyWhenItIsWanted) {
    QVMClumpsView view(frame_, *config_);
    EXPECT_EQ(view.layer()->look().borderWidth(), 0);
    view.setDrawOutsideBorder(true);
    EXPECT_TRUE(view.drawOutsideBorder());
    EXPECT_EQ(view.layer()->look().borderWidth(), 1);
}

TEST_F(QVMClumpsViewTest, FollowsTheTheme) {
    Window window;
    QVMClumpsView& view = window.setContentView(std::make_unique<QVMClumpsView>(frame_, *config_));
    QVMUITheme::toggleThemeForWindow(&window);
    EXPECT_EQ(view.layer()->look().backgroundColor(), QVMUITheme::dark().backgroundColor);
    EXPECT_EQ(layersNamed(view, "panel:Tilt").front()->look().backgroundColor(), QVMUITheme::dark().backgroundColor);
    EXPECT_EQ(layersNamed(view, "panel:Output").front()->look().backgroundColor(), QVMPalette::dark().sidePanel);
    EXPECT_EQ(layersNamed(view, "divider").front()->look().backgroundColor(), QVMUITheme::dark().interiorBorderColor);
    QVMUITheme::toggleThemeForWindow(&window);
    EXPECT_EQ(view.layer()->look().backgroundColor(), QVMUITheme::light().backgroundColor);
}

} // namespace
} // namespace QVM_NAMESPACE
