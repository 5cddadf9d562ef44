#include "platform/layer/LayerDump.h"

#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(LayerDumpTest, APlainLayerIsShort) {
    Layer layer;
    layer.setFrame({0.1 + 0.2, 2, 30, 40});
    EXPECT_EQ(dumpLayerTree(layer), "Layer (0.3 2 30 40)\n");
}

TEST(LayerDumpTest, ShowsTheTreeAndWhatIsNotAtItsDefault) {
    const auto root = std::make_shared<Layer>();
    root->setName("root");
    root->setFrame({0, 0, 480, 320});
    root->look().setBackgroundColor({1, 0.5f, 0, 1});
    root->setMasksToBounds(true);
    const auto shape = std::make_shared<ShapeLayer>(YAxis::up);
    shape->setName("focus");
    shape->setFrame({1, 2, 3, 4});
    shape->setPath(Path::rect({0, 0, 3, 4}));
    shape->setStrokeColor(Color::white(1));
    shape->setLineWidth(2);
    shape->setLineDashPattern({3, 2.5});
    shape->setOpacity(0.25);
    const auto text = std::make_shared<TextLayer>();
    text->setString({"12.5 dB", Font{"HelveticaNeue", 10}, {}});
    text->setHidden(true);
    text->look().setCornerRadius(3);
    text->look().setBorder(1, Color::white(0, 0.5f));
    text->setTransform(AffineTransform::translation(1, -2));
    root->tree().add(shape);
    shape->tree().add(text);
    EXPECT_EQ(dumpLayerTree(*root),
              "Layer root (0 0 480 320) masks background #ff8000ff\n"
              "  ShapeLayer focus (1 2 3 4) opacity 0.25 y-up path 5 (0 0 3 4) line 2 dashes 3,2.5\n"
              "    TextLayer (0 0 0 0) hidden transform 1 0 0 1 1 -2 corner 3 border 1 #00000080"
              " \"12.5 dB\"\n");
}

TEST(LayerDumpTest, ShowsPicturesAndMotion) {
    VirtualTime time;
    Layer layer;
    auto image = std::make_shared<Image>();
    *image = {8, 6, std::vector<std::uint32_t>(48)};
    layer.setBounds({0, 5, 10, 10});
    layer.look().setContents(image);
    layer.look().setContentsTint(Color::white(1));
    layer.look().setBackgroundPattern(image);
    layer.look().setShadow({Color::white(0), 4, {}, 0.5f});
    BasicAnimation fade;
    fade.keyPath = "opacity";
    layer.animations().add(fade, "fade");
    EXPECT_EQ(dumpLayerTree(layer),
              "Layer (-5 -5 10 10) from 0,5 animating pattern shadow 4 contents 8x6 tint #ffffffff\n");
}

} // namespace
} // namespace QVM_NAMESPACE
