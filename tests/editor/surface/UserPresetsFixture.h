// An editor with presets of the user's in memory, and the ways to them.
#pragma once

#include "editor/surface/PresetsFixture.h"

#include "editor/PressedKeys.h"
#include "editor/RecordingWorkspace.h"
#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Menu.h"
#include "presets/MemoryPresetStore.h"
#include "presets/PresetName.h"

namespace QVM_NAMESPACE {

class UserPresetsFixture : public PresetsFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        connect();
    }
    void connect() { ui_->session().presets().list().user().setStore(&store_); }
    void put(const std::string& name, float gain, const std::string& note = "") {
        store_.files[presetFileName(name)] = "Slantwise preset 1\nName: " + name + "\nNote: " + note +
                                             "\nSettings: https://a.example/s/2/?tg:" + std::to_string(gain) + "\n";
    }
    QVMPresetsDrawer& drawer() { return *ui_->presetDrawer(); }
    OutlineView& outline() { return drawer().outline(); }
    void open() {
        ui_->togglePresetsDrawer();
        settle();
    }
    const OutlineItem& lastSection() { return outline().items().back(); }
    std::vector<std::string> lastTitles() {
        std::vector<std::string> titles = {lastSection().title};
        for (const OutlineItem& item : lastSection().children)
            titles.push_back(item.title);
        return titles;
    }
    MenuItem menuItem(const std::string& beginning) {
        const auto menu = ui_->menuForKeyboard();
        for (const MenuItem& item : menu->items)
            if (item.title.starts_with(beginning)) return item;
        return {};
    }
    void choose(const std::string& beginning) {
        const MenuItem item = menuItem(beginning);
        ASSERT_TRUE(item.enabled && item.action) << beginning;
        item.action();
        settle();
    }
    void press(const Event& key) { EXPECT_TRUE(window_.sendEvent(key)); }
    void type(std::string_view text) {
        for (const Event& key : typedKeys(text))
            press(key);
    }
    // Through the menu and the keys.
    void save(const std::string& name) {
        choose("Save preset as...");
        type(name);
        press(pressedReturn());
        settle();
    }

    MemoryPresetStore store_;
    RecordingWorkspace workspace_;
};

} // namespace QVM_NAMESPACE
