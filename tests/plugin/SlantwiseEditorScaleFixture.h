// An editor on a desktop whose window grants every size, or answers with one of its own.
#pragma once

#include "plugin/SlantwiseEditorFixture.h"
#include "toolkit/FakePeer.h"

#include <memory>
#include <optional>
#include <utility>

namespace QVM_NAMESPACE {

// A wrapper in a host that grants every size, or has an answer of its own and gives it within the question.
class GrantingWindow final : public FakeDesktopWindow {
public:
    using FakeDesktopWindow::FakeDesktopWindow;
    std::optional<Size> answer;

private:
    void childBoundsChanged(juce::Component* child) override {
        if (const auto given = std::exchange(answer, std::nullopt))
            child->setSize(int(given->width), int(given->height));
        setSize(child->getWidth(), child->getHeight());
        if (getPeer()) peer().bounds = getLocalBounds();
    }
};

class SlantwiseEditorScaleFixture : public SlantwiseEditorFixture {
protected:
    void TearDown() override {
        desktop_.reset();
        editor_.reset();
        runPostedMessages();
    }
    // Puts the editor on a desktop of one pixel a point, or more.
    FakePeer& show(double device = 1) {
        desktop_ = std::make_unique<GrantingWindow>(*editor_);
        desktop_->peer().scale = device;
        draw();
        return desktop_->peer();
    }
    void draw() {
        time_.advance(1);
        runPostedMessages();
        desktop_->peer().vBlank();
        desktop_->peer().paintAll();
    }
    EditorScale& scale() { return editor_->view().ui().scale(); }
    Size frame() const { return {double(editor_->getWidth()), double(editor_->getHeight())}; }
    // Where the view stands in the editor.
    juce::Rectangle<int> place() const { return editor_->getChildComponent(0)->getBoundsInParent(); }

    std::unique_ptr<GrantingWindow> desktop_;
};

} // namespace QVM_NAMESPACE
