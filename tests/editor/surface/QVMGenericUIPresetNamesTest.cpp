#include "editor/surface/PresetsFixture.h"

#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetsDrawer.h"

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::IsEmpty;

class QVMGenericUIPresetNames : public PresetsFixture {};

// Who hears of a preset may ask where the keyboard is.
class FocusWitness final : public RecordingDelegate {
public:
    void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI& ui, const std::string&, std::uint32_t) override {
        ++announcements;
        isNameFocused = ui.presetBar()->presetControl()->focused();
    }
    int announcements = 0;
    bool isNameFocused = false;
};

TEST_F(QVMGenericUIPresetNames, TheNameHasTheKeyboardWhenAPresetIsAnnouncedUnlessTheListIsOpen) {
    FocusWitness witness;
    ui_->setDelegate(&witness);
    ui_->requestPresetNamed("Cellphone");
    EXPECT_TRUE(witness.isNameFocused);
    ui_->togglePresetsDrawer();
    settle();
    ui_->requestPresetNamed("Default");
    EXPECT_FALSE(witness.isNameFocused);
    EXPECT_EQ(witness.announcements, 2);
    ui_->setDelegate(&delegate_);
}

TEST_F(QVMGenericUIPresetNames, AnIndexThatNoPresetHasIsNamedSoAndIsDirtyWhateverTheValues) {
    ui_->lastSavedPresetWasKeyed(23);
    EXPECT_EQ(shownName(), "N/A");
    settle();
    EXPECT_TRUE(dirty());
    delegate_.calls.clear();
    delegate_.sent.clear();
    ui_->presetUpdated();
    EXPECT_THAT(delegate_.sent, IsEmpty());
    EXPECT_THAT(delegate_.calls, Contains("preset N/A 23"));
}

TEST_F(QVMGenericUIPresetNames, AnOpenListMarksThePresetThatIsNamedFromElsewhere) {
    ui_->togglePresetsDrawer();
    ui_->lastSavedPresetWasKeyed(8);
    EXPECT_EQ(ui_->presetDrawer()->outline().selection(), 8u);
}

TEST_F(QVMGenericUIPresetNames, AProductWithoutPresetsHasNoneToName) {
    auto config = QVMConfig::inlinedConfig();
    config->presets = nullptr;
    open(std::move(config));
    ui_->lastSavedPresetWasKeyed(8);
    ui_->lastSavedPresetWasNamed("Air");
    settle();
    EXPECT_EQ(ui_->currentPreset(), 0u);
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIPresetNames, ASavedNameThatNoPresetHasIsShownAsSuch) {
    ui_->lastSavedPresetWasNamed("Air");
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(shownName(), "Air");
    ui_->lastSavedPresetWasNamed("Nothing of the kind");
    EXPECT_EQ(ui_->currentPreset(), QVMPresetCount);
    EXPECT_EQ(shownName(), "N/A");
    settle();
    EXPECT_TRUE(dirty());
    EXPECT_THAT(delegate_.sent, IsEmpty());
}

TEST_F(QVMGenericUIPresetNames, ANameThatNoPresetHasCannotBeChosen) {
    ui_->requestPresetNamed("Air");
    userSets(pidTiltGain, 5);
    settle();
    delegate_.calls.clear();
    ui_->requestPresetNamed("Nothing of the kind");
    EXPECT_EQ(ui_->currentPreset(), 8u);
    EXPECT_EQ(memoized(pidTiltGain), 5) << "nor is the current one applied again";
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMGenericUIPresetNames, AnArrowInTheBarAppliesTheNextPresetAndTakesTheFocus) {
    const Point rightArrow = ui_->presetBar()->coordinates().toWindow(Point{320, 15});
    click(rightArrow);
    EXPECT_EQ(ui_->currentPreset(), 1u);
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_EQ(ui_->focusedControl(), ui_->presetBar()->presetControl());
    EXPECT_TRUE(ui_->presetBar()->presetControl()->focused());
    EXPECT_THAT(delegate_.calls, Contains("preset Brighter 1"));
}

TEST_F(QVMGenericUIPresetNames, AClickOnTheNameOpensTheListAndSetsNothingWhateverModifierIsHeld) {
    ui_->requestPresetNamed("Air");
    settle();
    const std::vector<float> before = memoized();
    for (const std::uint32_t modifier : {0u, EventModifier::option, EventModifier::command, EventModifier::shift}) {
        delegate_.sent.clear();
        const bool wasOpen = ui_->presetDrawer()->visible();
        click(middleOf(name()), modifier);
        settle();
        EXPECT_NE(ui_->presetDrawer()->visible(), wasOpen) << modifier;
        EXPECT_THAT(delegate_.sent, IsEmpty()) << modifier;
        EXPECT_EQ(ui_->currentPreset(), 8u) << modifier;
        EXPECT_EQ(memoized(), before) << modifier;
    }
}

TEST_F(QVMGenericUIPresetNames, AnArrowWithAltStepsToTheNextPresetAndNotToTheFirst) {
    ui_->requestPresetNamed("Air");
    settle();
    click(ui_->presetBar()->coordinates().toWindow(Point{320, 15}), EventModifier::option);
    EXPECT_EQ(ui_->currentPreset(), 9u);
}

} // namespace
} // namespace QVM_NAMESPACE
