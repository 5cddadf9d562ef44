// The history of the whole editor: snapshots in a line, and a mark between what is done and what was undone.
//
// It is deliberately never trimmed; the capacity only says how much room to set aside. Main thread only.
#pragma once

#include "BuildNamespace.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace QVM_NAMESPACE {

// Every parameter's value by pid, and the A/B state and the preset of the moment.
struct QVMSnapshot {
    std::map<std::uint32_t, float> values; // shown domain
    std::uint32_t abState = 0;
    std::uint32_t preset = 0; // its index
    bool operator==(const QVMSnapshot&) const = default;
};

class QVMUndoRedoStack {
public:
    using Dedup = std::function<bool(const QVMSnapshot& previous, const QVMSnapshot& next)>;

    // `dedup` says whether a new snapshot counts as the same as the one before it.
    QVMUndoRedoStack(std::uint64_t maxCapacity, Dedup dedup);

    // Puts a snapshot behind the current one and forgets what was undone; one that counts as the same is dropped.
    void pushNew(QVMSnapshot snapshot);
    // In all snapshots: where the parameter is `was`, it is `is` from now on.
    void replaceValue(std::uint32_t pid, float was, float is);
    // The present state goes by another preset: that of `present`, which counts for nothing unless it is the same
    // state.
    void adoptPreset(const QVMSnapshot& present);
    // The snapshot to go back or forward to, and moves there; none at either end.
    std::optional<QVMSnapshot> undo();
    std::optional<QVMSnapshot> redo();
    bool canUndo() const { return insertionPoint_ >= 2 && stack_.size() > 1; }
    bool canRedo() const { return insertionPoint_ < static_cast<std::int64_t>(stack_.size()); }

    // The snapshot of the present state, null before the first. Valid until the stack changes.
    const QVMSnapshot* currentValues() const;
    const std::vector<QVMSnapshot>& stack() const { return stack_; }
    // How many snapshots are done; the present one is the last of them. It stays within the stack.
    std::int64_t insertionPoint() const { return insertionPoint_; }
    // While locked, the editor schedules no snapshots.
    bool locks() const { return locks_; }
    void setLocks(bool locks) { locks_ = locks; }

    // Named by the contract and not used in this product: moves the mark, within the stack.
    void setInsertionPoint(std::int64_t point) {
        insertionPoint_ = std::clamp<std::int64_t>(point, 0, static_cast<std::int64_t>(stack_.size()));
    }

private:
    std::vector<QVMSnapshot> stack_;
    Dedup dedup_;
    std::int64_t insertionPoint_ = 0;
    bool locks_ = false;
};

} // namespace QVM_NAMESPACE
