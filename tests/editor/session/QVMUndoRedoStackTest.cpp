#include "editor/session/QVMUndoRedoStack.h"

#include <gtest/gtest.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

QVMSnapshot snapshot(float value, std::uint32_t abState = 0) {
    return {{{0, value}}, abState};
}

QVMUndoRedoStack makeStack() {
    return QVMUndoRedoStack(100, [](const QVMSnapshot& a, const QVMSnapshot& b) { return a == b; });
}

TEST(QVMUndoRedoStack, IsEmptyAtFirst) {
    const QVMUndoRedoStack stack = makeStack();
    EXPECT_EQ(stack.insertionPoint(), 0);
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.canRedo());
    EXPECT_EQ(stack.currentValues(), nullptr);
}

TEST(QVMUndoRedoStack, CannotUndoPastTheFirstSnapshot) {
    QVMUndoRedoStack stack = makeStack();
    stack.pushNew(snapshot(1));
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.undo());
    EXPECT_EQ(stack.insertionPoint(), 1);
}

TEST(QVMUndoRedoStack, DropsASnapshotEqualToTheTop) {
    QVMUndoRedoStack stack = makeStack();
    stack.pushNew(snapshot(1));
    stack.pushNew(snapshot(1));
    EXPECT_EQ(stack.stack().size(), 1u);
    stack.pushNew(snapshot(1, 1));
    EXPECT_EQ(stack.stack().size(), 2u);
}

TEST(QVMUndoRedoStack, UndoesAndRedoesInOrder) {
    QVMUndoRedoStack stack = makeStack();
    for (const float value : {1.0f, 2.0f, 3.0f})
        stack.pushNew(snapshot(value));
    EXPECT_EQ(stack.undo(), snapshot(2));
    EXPECT_EQ(stack.undo(), snapshot(1));
    EXPECT_EQ(stack.undo(), std::nullopt);
    EXPECT_EQ(stack.redo(), snapshot(2));
    EXPECT_EQ(stack.redo(), snapshot(3));
    EXPECT_EQ(stack.redo(), std::nullopt);
    EXPECT_EQ(*stack.currentValues(), snapshot(3));
}

TEST(QVMUndoRedoStack, ANewSnapshotAfterUndoForgetsWhatWasUndone) {
    QVMUndoRedoStack stack = makeStack();
    for (const float value : {1.0f, 2.0f, 3.0f})
        stack.pushNew(snapshot(value));
    stack.undo();
    stack.undo();
    stack.pushNew(snapshot(4));
    EXPECT_FALSE(stack.canRedo());
    EXPECT_EQ(stack.stack(), (std::vector{snapshot(1), snapshot(4)}));
}

TEST(QVMUndoRedoStack, IsNeverTrimmed) {
    QVMUndoRedoStack stack = makeStack();
    for (int i = 0; i < 250; ++i)
        stack.pushNew(snapshot(static_cast<float>(i)));
    EXPECT_EQ(stack.stack().size(), 250u);
}

TEST(QVMUndoRedoStack, AnUndoBeforeTheFirstSnapshotDoesNoHarm) {
    QVMUndoRedoStack stack = makeStack();
    EXPECT_FALSE(stack.undo());
    EXPECT_EQ(stack.currentValues(), nullptr);
    stack.pushNew(snapshot(1));
    EXPECT_EQ(*stack.currentValues(), snapshot(1));
    EXPECT_EQ(stack.insertionPoint(), 1);
}

TEST(QVMUndoRedoStack, AMarkThatIsPutBeforeTheFirstSnapshotStandsAtZero) {
    QVMUndoRedoStack stack = makeStack();
    stack.pushNew(snapshot(1));
    stack.setInsertionPoint(-5);
    EXPECT_EQ(stack.insertionPoint(), 0);
    EXPECT_EQ(stack.redo(), snapshot(1));
    stack.setInsertionPoint(0);
    stack.pushNew(snapshot(2));
    EXPECT_EQ(stack.stack(), std::vector{snapshot(2)}) << "and all behind it is undone";
}

TEST(QVMUndoRedoStack, AReplacedValueIsReplacedInEachSnapshotThatHasIt) {
    QVMUndoRedoStack stack = makeStack();
    for (const float value : {10.0f, 3.0f, 10.0f})
        stack.pushNew(snapshot(value));
    stack.replaceValue(0, 10, 0);
    stack.replaceValue(1, 3, 0);
    EXPECT_EQ(stack.stack(), (std::vector<QVMSnapshot>{snapshot(0), snapshot(3), snapshot(0)}));
    EXPECT_EQ(stack.insertionPoint(), 3);
}

// One state, whatever preset it goes by.
QVMUndoRedoStack makeStackOfStates() {
    return QVMUndoRedoStack(100, [](const QVMSnapshot& a, const QVMSnapshot& b) { return a.values == b.values; });
}

TEST(QVMUndoRedoStack, TheSameStateMayGoByAnotherPreset) {
    QVMUndoRedoStack stack = makeStackOfStates();
    stack.adoptPreset({{{0, 1}}, 0, 5}); // there is none yet
    EXPECT_TRUE(stack.stack().empty());
    stack.pushNew({{{0, 1}}, 0, 2});
    stack.pushNew({{{0, 2}}, 0, 3});
    stack.pushNew({{{0, 2}}, 0, 4});
    EXPECT_EQ(stack.currentValues()->preset, 3u) << "what counts as the same is dropped whole";
    stack.adoptPreset({{{0, 2}}, 0, 4});
    stack.adoptPreset({{{0, 9}}, 0, 7});
    EXPECT_EQ(stack.currentValues()->preset, 4u);
    EXPECT_EQ(stack.undo()->preset, 2u);
    stack.adoptPreset({{{0, 1}}, 0, 6});
    EXPECT_EQ(stack.redo()->preset, 4u);
    EXPECT_EQ(stack.undo()->preset, 6u);
}

TEST(QVMUndoRedoStack, AMarkThatIsPutBeyondTheLastSnapshotStandsThere) {
    QVMUndoRedoStack stack = makeStack();
    stack.pushNew(snapshot(1));
    stack.pushNew(snapshot(2));
    stack.setInsertionPoint(99);
    EXPECT_EQ(stack.insertionPoint(), 2);
    EXPECT_EQ(stack.undo(), snapshot(1));
}

// A history as two plain lists: what is done and what was undone.
struct Model {
    std::vector<QVMSnapshot> done, undone;
    void push(const QVMSnapshot& next) {
        if (!done.empty() && done.back() == next) return;
        done.push_back(next);
        undone.clear();
    }
    std::optional<QVMSnapshot> undo() {
        if (done.size() < 2) return std::nullopt;
        undone.push_back(done.back());
        done.pop_back();
        return done.back();
    }
    std::optional<QVMSnapshot> redo() {
        if (undone.empty()) return std::nullopt;
        done.push_back(undone.back());
        undone.pop_back();
        return done.back();
    }
};

TEST(QVMUndoRedoStack, AgreesWithASimpleModelOverRandomOperations) {
    for (unsigned seed = 1; seed <= 50; ++seed) {
        std::mt19937 random(seed);
        QVMUndoRedoStack stack = makeStack();
        Model model;
        stack.pushNew(snapshot(0)); // the editor's initial state is always there
        model.push(snapshot(0));
        for (int step = 0; step < 400; ++step) {
            switch (random() % 4) {
            case 0:
            case 1: {
                const QVMSnapshot next = snapshot(static_cast<float>(random() % 4), random() % 2);
                stack.pushNew(next);
                model.push(next);
                break;
            }
            case 2:
                ASSERT_EQ(stack.undo(), model.undo()) << "seed " << seed << " step " << step;
                break;
            default:
                ASSERT_EQ(stack.redo(), model.redo()) << "seed " << seed << " step " << step;
                break;
            }
            ASSERT_EQ(stack.canUndo(), model.done.size() > 1) << "seed " << seed << " step " << step;
            ASSERT_EQ(stack.canRedo(), !model.undone.empty()) << "seed " << seed << " step " << step;
            ASSERT_EQ(stack.insertionPoint(), static_cast<std::int64_t>(model.done.size()));
            ASSERT_EQ(*stack.currentValues(), model.done.back());
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
