// A small tree and a renderer on made-up pixels, for the tests of what the renderer draws, animates and aligns.
#pragma once

#include "platform/renderer/AddedLayer.h"
#include "platform/renderer/FakePixels.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {

struct LayerRendererFixture : testing::Test {
    VirtualTime time;
    FakeBackend backend;
    LayerRenderer renderer{backend};
    std::shared_ptr<Layer> root = std::make_shared<Layer>(), box, button;
    std::shared_ptr<TextLayer> label = std::make_shared<TextLayer>();

    LayerRendererFixture() {
        root->setFrame({0, 0, 200, 100});
        root->look().setBackgroundColor(Color::white(0.2f));
        box = added(*root, "box", {10, 10, 80, 60});
        button = added(*box, "button", {5, 5, 20, 10});
        button->look().setCornerRadius(3);
        label->setName("label");
        label->setFrame({100, 10, 60, 20});
        label->setString({"1.0", Font{"HelveticaNeue", 8}, Color::white(1)});
        root->tree().add(label);
        renderer.setRootLayer(root);
    }
    const RenderStatistics& update() { return renderer.update(time.now()); }
    std::vector<std::string> composeCalls(const Rect& clip = {0, 0, 400, 400}) {
        FakePicture picture(400, 400);
        FakeTarget target(picture, clip);
        renderer.compose(target, clip);
        EXPECT_TRUE(target.isBalanced());
        return target.calls;
    }
};

} // namespace QVM_NAMESPACE
