#include "editor/EditorFixture.h"

#include "description/Presets.h"
#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::Not;

class QVMPresetsDrawerTest : public EditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        drawer_ = ui_->presetDrawer();
        ASSERT_TRUE(drawer_);
    }
    void clickOnRow(std::uint32_t preset) {
        drawer_->outline().select(preset); // brings it into view
        const Rect row = drawer_->outline().frameOfLeaf(preset);
        click(drawer_->outline().coordinates().toWindow(row.center()));
        settle();
    }
    void openDrawer() {
        click(middleOf(*ui_->presetBar()->presetControl()));
        settle();
    }
    void settle() {
        frame();
        time_.advance(1);
        finishAnimations(*ui_->layer());
    }
    void finishAnimations(Layer& layer) {
        layer.animations().finish(RunLoop::main().now());
        for (const auto& sublayer : layer.tree().sublayers())
            finishAnimations(*sublayer);
    }
    bool arrowKey(char32_t arrow) { return window_.sendEvent(pressedKey(arrow, 0, EventModifier::numericPad)); }

    QVMPresetsDrawer* drawer_ = nullptr;
};

TEST_F(QVMPresetsDrawerTest, HasTheFactoryPresetsBySection) {
    std::vector<std::string> titles;
    std::uint32_t next = 0;
    for (const QVMPresetSection& section : drawer_->sections()) {
        titles.push_back(section.section);
        for (const QVMPresetEntry& preset : section.presets)
            EXPECT_EQ(preset.presetID, next++);
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"General", "Filter Only", "Mics", "Speakers"}));
    EXPECT_EQ(next, QVMPresetCount);
}

TEST_F(QVMPresetsDrawerTest, ShowsANoteForEachPresetThatHasOne) {
    std::size_t notes = 0;
    for (const OutlineItem& section : drawer_->outline().items())
        for (const OutlineItem& item : section.children)
            if (!item.note.empty()) ++notes;
    EXPECT_EQ(notes, 9u);
    EXPECT_EQ(drawer_->outline().items()[3].children.front().note, "Vintage 12\u201d guitar cab");
}

TEST_F(QVMPresetsDrawerTest, ATapOnTheNameOpensAndClosesIt) {
    EXPECT_FALSE(drawer_->visible());
    openDrawer();
    EXPECT_TRUE(drawer_->visible());
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    openDrawer();
    EXPECT_FALSE(drawer_->visible());
    EXPECT_EQ(ui_->focusedControl(), ui_->presetBar()->presetControl());
}

TEST_F(QVMPresetsDrawerTest, ChoosingInTheListSetsTheControlAndFiresItsAction) {
    openDrawer();
    delegate_.calls.clear();
    clickOnRow(22);
    EXPECT_EQ(ui_->presetBar()->presetControl()->floatValue(), 22);
    EXPECT_THAT(delegate_.calls, Contains("preset Cellphone 22"));
    EXPECT_EQ(memoized(pidTiltGain), 7);
    EXPECT_TRUE(drawer_->visible());
    EXPECT_EQ(ui_->focusedControl(), nullptr); // the list keeps the keys
}

TEST_F(QVMPresetsDrawerTest, TheListMarksThePresetThatIsChosenElsewhere) {
    openDrawer();
    EXPECT_EQ(drawer_->outline().selection(), 0u);
    ui_->requestPresetNamed("Grotbox");
    EXPECT_EQ(drawer_->outline().selection(), 21u);
    EXPECT_TRUE(drawer_->outline().bounds().contains(drawer_->outline().frameOfLeaf(21)));
}

TEST_F(QVMPresetsDrawerTest, ArrowKeysChooseTheNextPresetWhileItIsOpen) {
    openDrawer();
    EXPECT_TRUE(arrowKey(Key::down));
    EXPECT_TRUE(arrowKey(Key::down));
    EXPECT_EQ(ui_->currentPreset(), 2u);
    EXPECT_EQ(memoized(pidTiltGain), -6);
    EXPECT_TRUE(arrowKey(Key::up));
    EXPECT_EQ(ui_->currentPreset(), 1u);
    openDrawer(); // closes it
    arrowKey(Key::left);
    EXPECT_EQ(ui_->currentPreset(), 0u); // now they are the preset control's
}

TEST_F(QVMPresetsDrawerTest, HomeEndAndLettersMoveInTheList) {
    EXPECT_FALSE(drawer_->keyDown(pressedKey(U's'))) << "closed, it has no keys";
    openDrawer();
    EXPECT_TRUE(window_.sendEvent(pressedKey(0, Key::codeEnd)));
    EXPECT_EQ(ui_->currentPreset(), 22u);
    EXPECT_TRUE(window_.sendEvent(pressedKey(0, Key::codeHome)));
    EXPECT_EQ(ui_->currentPreset(), 0u);
    EXPECT_TRUE(window_.sendEvent(pressedKey(U's')));
    EXPECT_EQ(ui_->currentPreset(), 6u) << "Sharp";
    EXPECT_TRUE(window_.sendEvent(pressedKey(U's')));
    EXPECT_EQ(ui_->currentPreset(), 7u) << "Sub Love";
    EXPECT_FALSE(drawer_->keyDown(pressedKey(U's', 0, EventModifier::option))) << "the host's";
    EXPECT_FALSE(drawer_->keyDown(pressedKey(U'7', 0, EventModifier::numericPad)));
    EXPECT_EQ(ui_->currentPreset(), 7u);
}

TEST_F(QVMPresetsDrawerTest, EscapeAndReturnCloseIt) {
    for (const std::uint16_t code : {Key::codeEscape, Key::codeReturn}) {
        openDrawer();
        ASSERT_TRUE(drawer_->visible());
        EXPECT_TRUE(window_.sendEvent(pressedKey(0, code)));
        EXPECT_FALSE(drawer_->visible());
        settle();
    }
}

TEST_F(QVMPresetsDrawerTest, APressOnTheBackgroundClosesIt) {
    openDrawer();
    click({300, 200});
    settle();
    EXPECT_FALSE(drawer_->visible());
    EXPECT_EQ(memoized(pidTiltGain), 0);
}

TEST_F(QVMPresetsDrawerTest, ItsLineStandsAroundTheMiniature) {
    openDrawer();
    const Layer& miniature = *ui_->clumpsView()->layer();
    const Rect whole = ui_->clumpsView()->frame();
    const AffineTransform about = AffineTransform::translation(-whole.midX(), -whole.midY())
                                      .then(miniature.transform())
                                      .then(AffineTransform::translation(whole.midX(), whole.midY()));
    const Rect seen = about.apply(whole), expected = QVMPresetsDrawer::miniatureFrame.offsetBy(whole.x, whole.y);
    EXPECT_DOUBLE_EQ(seen.x, expected.x);
    EXPECT_DOUBLE_EQ(seen.y, expected.y);
    EXPECT_DOUBLE_EQ(seen.width, expected.width);
    EXPECT_DOUBLE_EQ(seen.height, expected.height);
    EXPECT_LE(drawer_->outline().frame().maxX(), QVMPresetsDrawer::miniatureFrame.minX());
}

TEST_F(QVMPresetsDrawerTest, WithRestrictionsThatExcludeTheChannelsAnItemIsMissing) {
    QVMPresetStructure presets{
        {{"General",
          {{"Anywhere", 0, {}, {}}, {"Mono only", 1, {}, {{1, 1}}}, {"Stereo or widening", 2, {}, {{1, 2}, {2, 2}}}}},
         {"Mono", {{"Also mono only", 3, {}, {{1, 1}}}}}}};
    QVMPresetsDrawer drawer({0, 30, 418, 290}, ui_->config(), presets);
    ASSERT_EQ(drawer.sections().size(), 1u);
    std::vector<std::string> names;
    for (const QVMPresetEntry& preset : drawer.sections().front().presets)
        names.push_back(preset.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Anywhere", "Stereo or widening"}));
    EXPECT_FALSE(drawer.itemValidForCurrentChannels(presets.sections.front().presets[1]));
}

} // namespace
} // namespace QVM_NAMESPACE
