#include "editor/session/QVMUndoRedoStack.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

QVMUndoRedoStack::QVMUndoRedoStack(std::uint64_t maxCapacity, Dedup dedup) : dedup_(std::move(dedup)) {
    stack_.reserve(maxCapacity);
}

void QVMUndoRedoStack::pushNew(QVMSnapshot snapshot) {
    const QVMSnapshot* current = currentValues();
    if (current && dedup_(*current, snapshot)) return;
    // An undo on an empty history leaves the mark at 1, beyond its end.
    insertionPoint_ = std::clamp<std::int64_t>(insertionPoint_, 0, static_cast<std::int64_t>(stack_.size()));
    stack_.resize(static_cast<std::size_t>(insertionPoint_));
    stack_.push_back(std::move(snapshot));
    ++insertionPoint_;
}

void QVMUndoRedoStack::replaceValue(std::uint32_t pid, float was, float is) {
    for (QVMSnapshot& snapshot : stack_) {
        const auto found = snapshot.values.find(pid);
        if (found != snapshot.values.end() && found->second == was) found->second = is;
    }
}

void QVMUndoRedoStack::adoptPreset(const QVMSnapshot& present) {
    const QVMSnapshot* current = currentValues();
    if (current && dedup_(*current, present))
        stack_[static_cast<std::size_t>(insertionPoint_ - 1)].preset = present.preset;
}

std::optional<QVMSnapshot> QVMUndoRedoStack::undo() {
    insertionPoint_ = insertionPoint_ < 2 ? 0 : insertionPoint_ - 1;
    if (insertionPoint_ > 0 && stack_.size() > 1) return *currentValues();
    insertionPoint_ = 1;
    return std::nullopt;
}

std::optional<QVMSnapshot> QVMUndoRedoStack::redo() {
    if (!canRedo()) return std::nullopt;
    return stack_[static_cast<std::size_t>(insertionPoint_++)];
}

const QVMSnapshot* QVMUndoRedoStack::currentValues() const {
    if (insertionPoint_ <= 0 || insertionPoint_ > static_cast<std::int64_t>(stack_.size())) return nullptr;
    return &stack_[static_cast<std::size_t>(insertionPoint_ - 1)];
}

} // namespace QVM_NAMESPACE
