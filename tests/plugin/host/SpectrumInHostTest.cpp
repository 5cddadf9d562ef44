// The spectrum behind the small curve: chosen with the pointer, seen to move with the sound, and remembered.
#include "plugin/host/InHost.h"
#include "plugin/host/Jalv.h"

#include <utility>

namespace QVM_NAMESPACE {
namespace {

constexpr std::size_t fewPixels = 20;
constexpr int someChanges = 3, manyLooks = 4;

// Whether a picture looks different, which becomes the last one.
bool hasChanged(Picture& last, const Picture& now) {
    return std::exchange(last, now).differingPixels(now) > fewPixels;
}
// Once it has come, and while nothing moves in it. To be asked again and again.
class CurveAtRest {
public:
    bool isSo(const Picture& now) {
        looks_ = hasChanged(last_, now) || now.countOf(0xFFFFFF, 8) <= 2 * fewPixels ? 0 : looks_ + 1;
        return looks_ >= manyLooks;
    }

private:
    Picture last_;
    int looks_ = 0;
};

class SpectrumInHost : public InHost {
protected:
    bool curveComesToRest() {
        return comesTrue([this, curve = CurveAtRest()]() mutable { return curve.isSo(pictureOf(curveBox)); });
    }
    // How often the curve's box looks different while sound comes and goes, until the meter has done so some times.
    int changesWhileTheMeterMoves() {
        int changes = 0, ofMeter = 0;
        EXPECT_TRUE(comesTrue([&, curve = pictureOf(curveBox), meter = pictureOf(meterTrack)]() mutable {
            plugin_.setAmplitude(std::exchange(isLoud_, !isLoud_) ? 0.01f : 0.9f);
            changes += hasChanged(curve, pictureOf(curveBox));
            ofMeter += hasChanged(meter, pictureOf(meterTrack));
            return ofMeter >= someChanges;
        })) << "the meter moves";
        return changes;
    }
    bool comesToMove() {
        return comesTrue([this] { return changesWhileTheMeterMoves() >= someChanges; });
    }

private:
    bool isLoud_ = false;
};

TEST_P(SpectrumInHost, MovesWithTheSoundInTheNextEditorTooUntilItIsOff) {
    open();
    pointAt(beside);
    ASSERT_TRUE(curveComesToRest());
    const Picture without = pictureOf(curveBox);
    EXPECT_EQ(changesWhileTheMeterMoves(), 0) << "before it is chosen";
    ASSERT_TRUE(chooseByPointer({"Spectrum", "Input and output"}));
    pointAt(beside);
    EXPECT_TRUE(comesToMove());

    plugin_.closeEditor();
    plugin_.setAmplitude(0);
    open();
    ASSERT_TRUE(curveComesToRest());
    EXPECT_TRUE(comesToMove()) << "in the next editor";
    ASSERT_TRUE(chooseByPointer({"Spectrum", "Off"}));
    pointAt(beside);
    // What was drawn with the window around it may round otherwise at the box's edge.
    EXPECT_TRUE(comesTrue([&] { return pictureOf(curveBox).differingPixels(without) <= fewPixels; }));
    EXPECT_EQ(changesWhileTheMeterMoves(), 0) << "once it is off";
}

INSTANTIATE_TEST_SUITE_P(Vst3, SpectrumInHost, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, SpectrumInHost, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

class JalvSpectrum : public Jalv {};

TEST_F(JalvSpectrum, MovesWithTheSound) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    ASSERT_NO_FATAL_FAILURE(playSounds());
    const auto curve = [this] { return pictureOf(EditorMap::curveBox); };
    pointBeside();
    ASSERT_TRUE(comesTrue([&, still = CurveAtRest()]() mutable { return still.isSo(curve()); })) << "without it";
    ASSERT_TRUE(chooseByPointer({"Spectrum", "Output"}));
    pointBeside();
    EXPECT_TRUE(comesTrue([&, last = curve(), changes = 0]() mutable {
        changes += hasChanged(last, curve());
        return changes >= 2 * someChanges;
    }));
}

} // namespace
} // namespace QVM_NAMESPACE
