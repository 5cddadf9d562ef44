#include "viz/sketches/QVMSketchGLLayer.h"

#include "SketchFixture.h"
#include "platform/runloop/RunLoop.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// Layers live on the main thread, and here that is the one that runs the tests.
class MainThreadEnvironment final : public testing::Environment {
    void SetUp() override { RunLoop::main().becomeMainThread(); }
};
const auto* const mainThread = testing::AddGlobalTestEnvironment(new MainThreadEnvironment);

// Tells when it goes.
class MortalSketch final : public PBGLSketchAbstract {
public:
    explicit MortalSketch(bool& alive) : alive_(alive) { alive_ = true; }
    ~MortalSketch() override { alive_ = false; }
    void init(PBGLCanvas canvas, float, unsigned) override { canvases.push_back(canvas); }
    void glDraw(PBGLCanvas, DrawingSurface&) override {}
    std::vector<PBGLCanvas> canvases;

private:
    bool& alive_;
};

std::shared_ptr<QVMSketchGLLayer> makeLayer(const PBSketch& sketch, VizRef vizRef = nullptr) {
    auto layer = std::make_shared<QVMSketchGLLayer>();
    layer->setFrame({0, 0, sketch.outer.w, sketch.outer.h});
    layer->look().setContentsScale(2);
    if (vizRef) layer->useVizRef(std::move(vizRef));
    layer->setSampleRateMaxFramesSketchParamCountChanInChanOut(48000, 512, sketch, 24, 1, 2);
    return layer;
}

bool isTransparent(const QVMSketchGLLayer& layer) {
    const std::vector<std::uint32_t>& pixels = layer.contents()->pixels;
    EXPECT_FALSE(pixels.empty());
    return std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel == 0; });
}

TEST(QVMSketchGLLayer, MakesTheDrawingObjectAndCountsItself) {
    const auto layer = makeLayer(PB_Sketches[0]);
    const PBGLSketchAbstract* object = layer->getVizRef().get();
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->refCount, 1u);
    EXPECT_EQ(object->chanIn, 1u);
    EXPECT_EQ(object->chanOut, 2u);
    EXPECT_EQ(object->sampleRate, 48000);
    EXPECT_EQ(object->paramCount(), 24u);
    EXPECT_EQ(object->parameterStates().size(), 24u);
    EXPECT_EQ(layer->getVizRefParameterStates(), object->parameterStates().data());
    EXPECT_FALSE(layer->isInterpolating());
    EXPECT_EQ(layer->getNumericMeterFormat(), "");
    EXPECT_EQ(layer->getNumericMeterSuffix(), "");
    EXPECT_EQ(static_cast<const QVM0015GLSketch*>(object)->numPoints(), 108);
}

TEST(QVMSketchGLLayer, BuildsItsCanvasFromItsSketchAndSize) {
    bool alive = false;
    auto object = std::make_shared<MortalSketch>(alive);
    const auto layer = makeLayer(PB_Sketches[1], object);
    ASSERT_EQ(object->canvases.size(), 1u);
    const PBGLCanvas& canvas = object->canvases[0];
    EXPECT_EQ(canvas.sid, 1u);
    EXPECT_EQ(canvas.sketch, PB_Sketches[1]);
    EXPECT_EQ(canvas.parameter, PB_Parameters[pidOutputGain]);
    EXPECT_EQ(canvas.width, 97);
    EXPECT_EQ(canvas.height, 217);
    EXPECT_EQ(canvas.scale, 2);
}

TEST(QVMSketchGLLayer, EverySetUpCountsAndOnlyTheEndOfTheLayerTakesOneBack) {
    bool alive = false;
    auto object = std::make_shared<MortalSketch>(alive);
    auto layer = makeLayer(PB_Sketches[0], object);
    layer->setSampleRateMaxFramesSketchParamCountChanInChanOut(48000, 512, PB_Sketches[0], 24, 1, 2);
    EXPECT_EQ(object->refCount, 2u);
    EXPECT_EQ(object->canvases.size(), 2u);
    layer.reset();
    ASSERT_TRUE(alive);
    EXPECT_EQ(object->refCount, 1u);
}

TEST(QVMSketchGLLayer, TheObjectOutlivesTheFirstOfTwoLayers) {
    bool alive = false;
    auto object = std::make_shared<MortalSketch>(alive);
    auto first = makeLayer(PB_Sketches[0], object);
    auto second = makeLayer(PB_Sketches[1], first->getVizRef());
    EXPECT_EQ(object->refCount, 2u);
    const std::weak_ptr<MortalSketch> watched = object;
    object.reset();
    first.reset();
    ASSERT_TRUE(alive);
    EXPECT_EQ(watched.lock()->refCount, 1u);
    second.reset();
    EXPECT_FALSE(alive);
}

// However often it was set up: a share is a share.
TEST(QVMSketchGLLayer, TheObjectGoesWithTheLastLayerThoughOneWasSetUpTwice) {
    auto layer = makeLayer(PB_Sketches[0]);
    layer->setSampleRateMaxFramesSketchParamCountChanInChanOut(48000, 512, PB_Sketches[0], 24, 1, 2);
    const std::weak_ptr<PBGLSketchAbstract> watched = layer->getVizRef();
    EXPECT_EQ(watched.lock()->refCount, 2u);
    layer.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(QVMSketchGLLayer, ALayerThatWasNeverSetUpCountsNothing) {
    bool alive = false;
    const auto object = std::make_shared<MortalSketch>(alive);
    auto layer = std::make_shared<QVMSketchGLLayer>();
    layer->useVizRef(object);
    EXPECT_EQ(object->refCount, 0u);
    layer.reset();
    EXPECT_EQ(object->refCount, 0u);
}

TEST(QVMSketchGLLayer, IsTransparentUntilItsFirstFrameIsPrepared) {
    const auto layer = makeLayer(PB_Sketches[0]);
    EXPECT_FALSE(layer->canRender());
    EXPECT_TRUE(layer->shouldRender());
    EXPECT_TRUE(isTransparent(*layer));
    setSettings(static_cast<QVM0015GLSketch&>(*layer->getVizRef()), initialSettings());
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    EXPECT_TRUE(layer->canRender());
    EXPECT_FALSE(isTransparent(*layer));
}

TEST(QVMSketchGLLayer, IsTransparentWhileItShouldNotRender) {
    const auto layer = makeLayer(PB_Sketches[0]);
    setSettings(static_cast<QVM0015GLSketch&>(*layer->getVizRef()), initialSettings());
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    const std::uint64_t before = layer->look().version();
    layer->setShouldRender(false);
    EXPECT_NE(layer->look().version(), before);
    EXPECT_TRUE(isTransparent(*layer));
    layer->setShouldRender(true);
    EXPECT_FALSE(isTransparent(*layer));
}

TEST(QVMSketchGLLayer, ShowingWhatIsShownOrHidingWhatIsHiddenDrawsNothing) {
    const auto layer = makeLayer(PB_Sketches[0]);
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    for (const bool isShown : {true, false}) {
        layer->setShouldRender(isShown);
        const std::uint64_t drawn = layer->look().version();
        layer->setShouldRender(isShown);
        EXPECT_EQ(layer->look().version(), drawn) << isShown;
    }
}

TEST(QVMSketchGLLayer, IsPreparedOnlyForItsOwnKindOfSketch) {
    const auto curve = makeLayer(PB_Sketches[0]);
    const auto meter = makeLayer(PB_Sketches[1], curve->getVizRef());
    curve->prepareForDrawingWithDurationParameterSketch(1.0f / 60, false);
    meter->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    EXPECT_FALSE(curve->canRender());
    EXPECT_FALSE(meter->canRender());
    curve->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    meter->prepareForDrawingWithDurationParameterSketch(1.0f / 60, false);
    EXPECT_TRUE(curve->canRender());
    EXPECT_TRUE(meter->canRender());
}

TEST(QVMSketchGLLayer, AFrameThatLooksTheSameIsNotDrawnAgain) {
    const auto layer = makeLayer(PB_Sketches[1]);
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, false);
    const std::uint64_t drawn = layer->look().version();
    for (int frame = 0; frame < 100; ++frame)
        layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, false);
    EXPECT_EQ(layer->look().version(), drawn);
    static_cast<QVM0015GLSketch&>(*layer->getVizRef()).levelMeter()->channel(0).level = -6;
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, false);
    EXPECT_NE(layer->look().version(), drawn);
}

TEST(QVMSketchGLLayer, IsBuiltAnewWhenItsCanvasChangesAndOnlyThen) {
    const auto layer = makeLayer(PB_Sketches[0]);
    auto& object = static_cast<QVM0015GLSketch&>(*layer->getVizRef());
    setSettings(object, initialSettings());
    layer->prepareForDrawingWithDurationParameterSketch(1.0f / 60, true);
    const std::uint64_t version = layer->look().version();
    layer->canvasDidChange();
    EXPECT_EQ(layer->look().version(), version);
    layer->setFrame({0, 0, 200, 200});
    layer->canvasDidChange();
    EXPECT_EQ(object.numPoints(), 400);
    EXPECT_NE(layer->look().version(), version);
    EXPECT_FALSE(isTransparent(*layer));
    EXPECT_EQ(object.refCount, 1u);
    layer->look().setContentsScale(1);
    layer->canvasDidChange();
    EXPECT_EQ(object.numPoints(), 200);
    EXPECT_EQ(object.responseDisplay().kernel().size(), 3u);
}

TEST(QVMSketchGLLayer, TakesStatesWhole) {
    const auto layer = makeLayer(PB_Sketches[0]);
    std::vector<QVMParameterState> states(24);
    states[5].value = 1;
    states[5].auxValue = 2;
    states[5].displayValue = 3;
    states[5].interpolating = true;
    layer->addParameterStates(states.data());
    const QVMParameterState& state = layer->getVizRefParameterStates()[5];
    EXPECT_EQ(state.value, 1);
    EXPECT_EQ(state.auxValue, 2);
    EXPECT_EQ(state.displayValue, 3);
    EXPECT_TRUE(state.interpolating);
}

} // namespace
} // namespace QVM_NAMESPACE
