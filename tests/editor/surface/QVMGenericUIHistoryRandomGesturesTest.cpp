#include "editor/surface/HistoryGestureFixture.h"

#include <gmock/gmock.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

// Gestures at random with rests in them, undo and redo between, against two plain lists of what was to be seen.
TEST_F(QVMGenericUIHistoryGestures, AgreesWithASimpleModelOverRandomGestures) {
    struct Seen {
        std::vector<float> values;
        std::uint32_t side, preset;
        bool isSameState(const Seen& other) const { return values == other.values && side == other.side; }
    };
    const auto present = [this] { return Seen{memoized(), ui_->abState(), ui_->currentPreset()}; };
    std::mt19937 random(11);
    const auto rest = [&] { frames(0.05 * static_cast<double>(random() % 20)); };
    std::vector<Seen> done = {present()}, undone;
    const std::vector<std::uint32_t> sliders = {gain, tiltLow, tiltHigh, output, 9, 10};

    for (int step = 0; step < 150; ++step) {
        const std::uint32_t pid = sliders[random() % sliders.size()];
        const Point start = handleOf(pid);
        const std::size_t before = steps();
        bool isGesture = true;
        switch (random() % 8) {
        case 0:
        case 1: { // a drag, let go of with a modifier now and then
            const std::uint32_t modifier = random() % 4 ? 0 : EventModifier::option;
            Point at = start;
            down(at);
            for (int moves = 0; moves < 4; ++moves) {
                at = start + Point{double(random() % 160) - 80, double(random() % 100) - 50};
                drag(at);
                rest();
                ASSERT_EQ(steps(), before) << "step " << step;
            }
            up(at, modifier);
            break;
        }
        case 2: // a reset, held or not
            down(start, EventModifier::option);
            rest();
            ASSERT_EQ(steps(), before) << "step " << step;
            up(start, EventModifier::option);
            break;
        case 3: { // a held key
            ui_->bringParameterControlIntoFocus(&control(pid));
            const char32_t arrow = random() % 2 ? Key::left : Key::right;
            holdKey(arrow, static_cast<int>(random() % 10));
            ASSERT_EQ(steps(), before) << "step " << step;
            keyGoesUp(arrow);
            break;
        }
        case 4: // the next preset
            click(ui_->presetBar()->coordinates().toWindow(Point{320, 15}));
            break;
        case 5: // the other side
            click(middleOf(random() % 2 ? ui_->presetBar()->ab().b() : ui_->presetBar()->ab().arrow()));
            break;
        case 6:
            isGesture = false;
            undo();
            if (done.size() > 1) {
                undone.push_back(done.back());
                done.pop_back();
            }
            break;
        default:
            isGesture = false;
            redo();
            if (!undone.empty()) {
                done.push_back(undone.back());
                undone.pop_back();
            }
        }
        if (isGesture) {
            frames(1.1);
            const bool isValueChange = present().values != done.back().values;
            if (isValueChange) {
                done.push_back(present());
                undone.clear();
                ASSERT_EQ(steps(), done.size()) << "step " << step;
            } else if (present().isSameState(done.back())) {
                done.back() = present(); // it may go by another preset
            } else {
                // A flip between equal sides is seen in the history with the next change.
                click(middleOf(ui_->presetBar()->ab().b()));
                frames(1.1);
                done.back() = present();
            }
        }
        ASSERT_EQ(memoized(), done.back().values) << "step " << step;
        ASSERT_EQ(ui_->abState(), done.back().side) << "step " << step;
        ASSERT_EQ(ui_->currentPreset(), done.back().preset) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->undo().buttonEnabled(), done.size() > 1) << "step " << step;
        ASSERT_EQ(ui_->presetBar()->redo().buttonEnabled(), !undone.empty()) << "step " << step;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
