#include "editor/surface/KeysDrawer.h"

#include "editor/RenderedEditorFixture.h"

#include "description/tables/GestureTable.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/layer/TextLayer.h"
#include "platform/layer/TextMetrics.h"

#include <gmock/gmock.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;

class KeysDrawerTest : public RenderedEditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        drawAll();
    }
    void open() {
        toggleKeysDrawer(*ui_);
        drawFor(1);
    }
    KeysDrawer& drawer() const {
        for (const auto& each : ui_->subviews())
            if (auto* found = dynamic_cast<KeysDrawer*>(each.get())) return *found;
        throw std::logic_error("no list of keys");
    }
    std::vector<const TextLayer*> texts() const {
        std::vector<const TextLayer*> found;
        for (const auto& layer : drawer().layer()->tree().sublayers())
            if (const auto* text = dynamic_cast<const TextLayer*>(layer.get())) found.push_back(text);
        return found;
    }
    bool press(std::uint16_t code) { return window_.sendEvent(pressedKey(0, code)); }
};

TEST_F(KeysDrawerTest, ListsEveryRowOfTheTableInsideItsBounds) {
    open();
    std::vector<std::string> shown;
    for (const TextLayer* text : texts()) {
        shown.push_back(text->string().string());
        EXPECT_TRUE(drawer().bounds().contains(text->frame())) << shown.back();
        EXPECT_LE(sizeOf(text->string()).width, text->frame().width) << shown.back();
    }
    for (const tables::GestureRow& row : tables::Gestures()) {
        EXPECT_THAT(shown, Contains(row.call));
        EXPECT_THAT(shown, Contains(row.does));
    }
    EXPECT_EQ(shown.size(), 2 * tables::Gestures().size() + 2) << "and two headings";
}

TEST_F(KeysDrawerTest, RowsDoNotOverlap) {
    open();
    double bottom = 0;
    for (const TextLayer* text : texts()) {
        if (text->frame().minX() > 20) continue; // beside another
        EXPECT_GE(text->frame().minY(), bottom - 0.001);
        bottom = text->frame().maxY();
    }
}

// Half a point would set one row lower than its neighbours.
TEST_F(KeysDrawerTest, RowsStandOnWholePoints) {
    open();
    for (const TextLayer* text : texts()) {
        EXPECT_EQ(text->frame().y, std::floor(text->frame().y)) << text->string().string();
        EXPECT_EQ(text->frame().height, std::floor(text->frame().height)) << text->string().string();
    }
}

TEST_F(KeysDrawerTest, CoversTheControlsUntilEscape) {
    open();
    EXPECT_TRUE(areKeysShown(*ui_));
    EXPECT_TRUE(ui_->wantsKeys()) << "or a host would not let Escape through";
    EXPECT_TRUE(press(Key::codeEscape));
    drawFor(1);
    EXPECT_FALSE(areKeysShown(*ui_));
    EXPECT_FALSE(ui_->wantsKeys());
    EXPECT_FALSE(control(pidTiltGain).isHidden());
}

TEST_F(KeysDrawerTest, ClosesWithAClickAndWhenAskedForAgain) {
    open();
    click({200, 150});
    drawFor(1);
    EXPECT_FALSE(areKeysShown(*ui_));
    open();
    EXPECT_TRUE(areKeysShown(*ui_));
    open();
    EXPECT_FALSE(areKeysShown(*ui_));
}

TEST_F(KeysDrawerTest, NoControlBehindItGetsTheKeyboard) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    open();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    press(Key::codeTab);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
}

TEST_F(KeysDrawerTest, OneDrawerIsOpenAtATime) {
    open();
    ui_->togglePresetsDrawer();
    drawFor(1);
    EXPECT_FALSE(areKeysShown(*ui_));
    EXPECT_TRUE(ui_->presetDrawer()->visible());
    open();
    EXPECT_TRUE(areKeysShown(*ui_));
    EXPECT_FALSE(ui_->presetDrawer()->visible());
}

TEST_F(KeysDrawerTest, HasNoPlaceInTheCompactForm) {
    ui_->requestFrame(QVMAltFrameCompact);
    open();
    EXPECT_FALSE(areKeysShown(*ui_));
    ui_->requestFrame(QVMAltFrameNormal);
    open();
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_FALSE(areKeysShown(*ui_));
}

TEST_F(KeysDrawerTest, FollowsTheTheme) {
    open();
    const Color before = texts()[1]->string().runs.front().color;
    ui_->toggleUITheme();
    EXPECT_NE(texts()[1]->string().runs.front().color, before);
}

} // namespace
} // namespace QVM_NAMESPACE
