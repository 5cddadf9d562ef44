#include "editor/session/EditorSession.h"

namespace QVM_NAMESPACE {

EditorSession::EditorSession(const QVMConfig& config, SessionSurface& surface)
    : surface_(surface), values_(config, surface, *this),
      presets_(config, values_, surface, [this] { history_.adoptPresentPreset(); }),
      comparison_(values_, presets_, surface), history_(values_, presets_, comparison_, surface),
      settings_(config, values_, surface) {}

void EditorSession::resetComparison(std::span<const float> values) {
    comparison_.reset(values);
    history_.scheduleSnapshot();
}

void EditorSession::restoreSide(std::uint32_t side, std::string_view settings) {
    if (comparison_.restore(side, settings)) history_.scheduleSnapshot();
}

void EditorSession::memoizedValueDidChange(std::uint32_t pid) {
    history_.scheduleSnapshot();
    surface_.valueDidChange(pid);
}

void EditorSession::valueWasReread(std::uint32_t pid, float read, float held) {
    comparison_.replaceValue(pid, read, held);
    history_.stack().replaceValue(pid, read, held);
}

void EditorSession::receivedValueWasAdopted(std::uint32_t) {
    presets_.scheduleDirtyCheck();
}

} // namespace QVM_NAMESPACE
