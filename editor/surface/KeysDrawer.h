// The list of keys and gestures, over the controls until it is clicked or Escape is pressed. Main thread only.
#pragma once

#include "editor/surface/QVMDrawerView.h"

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI;
class TextLayer;

class KeysDrawer final : public QVMDrawerView {
public:
    KeysDrawer(const Rect& frame, const QVMConfig& config);

    void themeUpdated() override;
    void mouseDown(const Event& event) override;

private:
    enum class Column { heading, call, does };
    struct Text {
        Column column;
        std::string text;
        std::shared_ptr<TextLayer> layer;
    };
    void add(Column column, std::string text, double y, double height);

    std::vector<Text> texts_;
    std::vector<std::shared_ptr<Layer>> rules_; // below the headings
};

// Opens or closes the list, which is made when it is first asked for. There is no room for it in the compact form.
void toggleKeysDrawer(QVMGenericUI& ui);
bool areKeysShown(const QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
