// Undo and redo of the whole editor: when a snapshot is taken, what is in it, and how one is put back.
//
// Main thread only.
#pragma once

#include "editor/session/EditorValues.h"
#include "editor/session/QVMUndoRedoStack.h"
#include "platform/runloop/DelayedCall.h"

#include <optional>

namespace QVM_NAMESPACE {

class ABComparison;
class PresetSession;

class EditorHistory {
public:
    // All borrowed.
    EditorHistory(EditorValues& values, PresetSession& presets, ABComparison& comparison, SessionSurface& surface);

    // A snapshot follows half a second after the last call, unless the stack is locked, and after the end of the
    // gesture that is under way then.
    void scheduleSnapshot();
    // One step back or forward; nothing at either end.
    void undo() { apply(stack_.undo()); }
    void redo() { apply(stack_.redo()); }
    // Puts a snapshot in place without recording that as a change. None changes nothing.
    void apply(const std::optional<QVMSnapshot>& snapshot);
    // A name that came with no other values is no step; with others it comes with their snapshot.
    void adoptPresentPreset() { stack_.adoptPreset(presentSnapshot()); }

    QVMUndoRedoStack& stack() { return stack_; }
    const QVMUndoRedoStack& stack() const { return stack_; }

private:
    QVMSnapshot presentSnapshot() const;
    void takeSnapshot();

    EditorValues& values_;
    PresetSession& presets_;
    ABComparison& comparison_;
    SessionSurface& surface_;
    QVMUndoRedoStack stack_;
    DelayedCall snapshotCall_;
};

} // namespace QVM_NAMESPACE
