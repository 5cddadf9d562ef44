// Views that share the main sketch's drawing object.
#include "ParameterSketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using QVMAuxiliarySketchTest = ParameterSketchFixture;

TEST_F(QVMAuxiliarySketchTest, SharesItsObjectWithTheAuxiliaryViews) {
    QVMAuxiliarySketch& meter = addMeter();
    EXPECT_EQ(meter.glSketch()->getVizRef(), view.getVizRef());
    EXPECT_EQ(object().refCount, 2u);
    EXPECT_NE(object().levelMeter(), nullptr);
    EXPECT_THAT(view.auxiliarySketches(), ElementsAre(&meter));
}

TEST_F(QVMAuxiliarySketchTest, TheObjectSurvivesTheMainView) {
    QVMAuxiliarySketch& meter = addMeter();
    view.removeFromSuperview().reset();
    const PBGLSketchAbstract* left = meter.glSketch()->getVizRef().get();
    EXPECT_EQ(left->refCount, 1u);
    EXPECT_EQ(left->paramCount(), 24u);
}

TEST_F(QVMAuxiliarySketchTest, TheObjectGoesWithTheLastOfTheViews) {
    QVMAuxiliarySketch& meter = addMeter();
    const std::weak_ptr<PBGLSketchAbstract> watched = view.getVizRef();
    view.removeFromSuperview().reset();
    EXPECT_FALSE(watched.expired());
    meter.removeFromSuperview().reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(QVMAuxiliarySketchTest, AnAuxiliaryViewThatGoesLeavesTheList) {
    QVMAuxiliarySketch& meter = addMeter();
    meter.removeFromSuperview().reset();
    EXPECT_THAT(view.auxiliarySketches(), IsEmpty());
    EXPECT_EQ(object().refCount, 1u);
    frame();
}

TEST_F(QVMAuxiliarySketchTest, AnAuxiliaryViewCanNotBeClicked) {
    addMeter();
    EXPECT_EQ(window.hitTest({370, 100}), window.contentView());
}

} // namespace
} // namespace QVM_NAMESPACE
