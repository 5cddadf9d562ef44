#include "editor/session/EditorHistory.h"

#include "editor/session/ABComparison.h"
#include "editor/session/PresetSession.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr std::uint64_t capacity = 100; // snapshots
constexpr double snapshotDelay = 0.5;   // seconds

// Two snapshots are the same when the later one has every value of the earlier one.
bool countAsSame(const QVMSnapshot& previous, const QVMSnapshot& next) {
    const auto kept = [&next](const auto& entry) {
        const auto found = next.values.find(entry.first);
        return found != next.values.end() && found->second == entry.second;
    };
    return std::all_of(previous.values.begin(), previous.values.end(), kept) && previous.abState == next.abState;
}

} // namespace

EditorHistory::EditorHistory(EditorValues& values, PresetSession& presets, ABComparison& comparison,
                             SessionSurface& surface)
    : values_(values), presets_(presets), comparison_(comparison), surface_(surface), stack_(capacity, countAsSame) {}

void EditorHistory::scheduleSnapshot() {
    snapshotCall_.cancel();
    if (!stack_.locks()) snapshotCall_.schedule(snapshotDelay, [this] { takeSnapshot(); });
}

// Nothing in the middle of a gesture is a state to come back to: not one value of it, nor what it does to others.
void EditorHistory::takeSnapshot() {
    if (surface_.isGestureUnderWay()) return scheduleSnapshot();
    stack_.pushNew(presentSnapshot());
    surface_.historyDidChange();
}

QVMSnapshot EditorHistory::presentSnapshot() const {
    QVMSnapshot snapshot;
    for (std::uint32_t pid = 0; pid < values_.count(); ++pid)
        snapshot.values[pid] = values_.memoized(pid);
    snapshot.abState = comparison_.active();
    snapshot.preset = presets_.current();
    return snapshot;
}

void EditorHistory::apply(const std::optional<QVMSnapshot>& snapshot) {
    surface_.historyDidChange();
    if (!snapshot) return;
    stack_.setLocks(true);
    for (const auto& [pid, value] : snapshot->values)
        values_.send(pid, value);
    comparison_.setActive(snapshot->abState);
    if (snapshot->preset != presets_.current()) presets_.switchTo(snapshot->preset);
    stack_.setLocks(false);
}

} // namespace QVM_NAMESPACE
