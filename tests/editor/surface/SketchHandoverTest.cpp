#include "editor/surface/SketchHandover.h"

#include "editor/EditorFixture.h"

#include "viz/sketches/PBGLSketchAbstract.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class SketchHandoverTest : public EditorFixture {
protected:
    // Of an editor with pictures.
    StatesAre states(SketchHandover& handover) {
        return handover.sketchHasUpdatedParameterStates(*ui_->sketch(), nullptr);
    }
};

TEST_F(SketchHandoverTest, TheUnitIsGivenTheObjectOnceAndThenTheStatesAreTheUnits) {
    SketchHandover handover(*ui_, {2, 2});
    delegate_.vizRef = nullptr;
    EXPECT_EQ(states(handover), StatesAre::drawnOnly);
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
    EXPECT_EQ(delegate_.vizRef, &ui_->sketch()->getVizRef()->sharedState);
    EXPECT_EQ(states(handover), StatesAre::theUnits);
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
}

TEST_F(SketchHandoverTest, TheStatesAreOnlyDrawnWhileThereIsNoDelegate) {
    SketchHandover handover(*ui_, {2, 2});
    ASSERT_EQ(states(handover), StatesAre::theUnits);
    ui_->setDelegate(nullptr);
    EXPECT_EQ(states(handover), StatesAre::drawnOnly);
}

TEST_F(SketchHandoverTest, ThePicturesAreMadeOnceForWhatTheUnitProcesses) {
    delegate_.sampleRate = 96000;
    build(QVMConfig::inlinedConfig());
    SketchHandover handover(*ui_, {1, 2});
    ASSERT_EQ(ui_->sketch(), nullptr);
    handover.addSketches();
    QVMParameterSketch* const made = ui_->sketch();
    ASSERT_NE(made, nullptr);
    const PBGLSketchAbstract& object = *made->getVizRef();
    EXPECT_EQ(object.sampleRate, 96000);
    EXPECT_EQ(object.chanIn, 1u);
    EXPECT_EQ(object.chanOut, 2u);
    handover.addSketches();
    EXPECT_EQ(ui_->sketch(), made);
    ui_->setDelegate(nullptr);
    window_.takeContentView().reset();
    ui_ = nullptr;
}

TEST_F(SketchHandoverTest, AnEditorWithoutAPlaceForThemGetsNone) {
    QVMGenericUI bare(Rect{0, 0, 480, 320}, QVMConfig::inlinedConfig(), 2, 2);
    SketchHandover handover(bare, {2, 2});
    handover.addSketches();
    EXPECT_EQ(bare.sketch(), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
