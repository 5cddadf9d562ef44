// The editor with its preset bar, and what can be asked of both about the current preset.
#pragma once

#include "editor/EditorFixture.h"

#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetControl.h"

#include <gmock/gmock.h>

#include <string>

namespace QVM_NAMESPACE {

class PresetsFixture : public EditorFixture {
protected:
    void settle() { frames(1); }
    bool dirty() { return ui_->presetBar()->dirty(); }
    QVMPresetControl& name() {
        return dynamic_cast<QVMPresetControl&>(*ui_->presetBar()->presetControl()->primaryControl());
    }
    std::string shownName() { return name().value()->string().string(); }
    // A new editor on the unit as it is, as when a host closes the old one and opens it again.
    void reopen(const std::string& presetName) {
        build(QVMConfig::inlinedConfig());
        ui_->lastSavedPresetWasNamed(presetName);
        settle();
    }
};

} // namespace QVM_NAMESPACE
