// Controls in a plain view, with a focus and no editor: pids 0 (of the master clump), 1, 2 and 7, and 14 in a drawer.
#pragma once

#include "editor/keyboard/EditorFocus.h"
#include "editor/keyboard/KeyboardSurface.h"
#include "editor/session/SessionFixture.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class FocusFixture : public SessionFixture, protected FocusSurface, protected KeyboardSurface {
protected:
    FocusFixture() {
        drawer_ = &root_.addSubview(std::make_unique<View>(Rect{400, 0, 200, 300}));
        drawer_->setHidden(true);
        for (const std::uint32_t pid : {0u, 1u, 2u, 7u})
            add(root_, pid);
        add(*drawer_, 14);
    }

    void add(View& container, std::uint32_t pid) {
        const QVMParameter* parameter = config_->parameterForPid(pid);
        controls_.push_back(&container.addSubview(
            std::make_unique<QVMParameterControl>(Rect{0, 0, 60, 100}, Rect{}, parameter, parameter->initialValue)));
    }
    QVMParameterControl& control(std::uint32_t pid) { return *parameterControlWithPid(pid); }

    // FocusSurface
    const std::vector<QVMParameterControl*>& parameterControls() const override { return controls_; }
    QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const override {
        for (QVMParameterControl* each : controls_)
            if (each->parameter()->codesafeName == codesafeName) return each;
        return nullptr;
    }
    const View* closedDrawer() const override { return drawerIsOpen_ ? nullptr : drawer_; }
    void openClosedDrawer() override { told_.push_back("open drawer"); }
    void focusWillMove() override { told_.push_back("will move"); }
    void focusDidMove(FocusableControl* control) override {
        const auto* moved = dynamic_cast<const QVMParameterControl*>(control);
        told_.push_back("did move " + (moved ? std::to_string(moved->parameter()->pid) : "away"));
    }
    // KeyboardSurface
    QVMParameterControl* parameterControlWithPid(std::uint32_t pid) const override {
        for (QVMParameterControl* each : controls_)
            if (each->parameter()->pid == pid) return each;
        return nullptr;
    }
    void resetInitialValues() override { told_.push_back("reset"); }
    bool hideAllDrawers() override {
        told_.push_back("hide drawers");
        return hidesDrawers_;
    }
    bool togglePresetsDrawer() override {
        told_.push_back("presets");
        return true;
    }
    void toggleDoubleWide() override { told_.push_back("double wide"); }
    void stepScale(int direction) override { told_.push_back("scale " + std::to_string(direction)); }
    void toggleFrame() override { told_.push_back("frame"); }
    void toggleUITheme() override { told_.push_back("theme"); }
    void hideAllControls() override { told_.push_back("hide controls"); }
    void freakout() override { told_.push_back("freak out"); }

    View root_{Rect{0, 0, 600, 300}};
    View* drawer_ = nullptr;
    bool drawerIsOpen_ = false, hidesDrawers_ = false;
    std::vector<QVMParameterControl*> controls_;
    std::vector<std::string> told_;
    EditorFocus focus_{*config_, values(), root_, *this};
};

} // namespace QVM_NAMESPACE
