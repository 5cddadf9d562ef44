// A hand that chooses from an editor's context menu with the pointer: what rows the menu has it asks the editor of the
// map, and where the menu stands it sees on the screen.
#pragma once

#include "plugin/host/EditorMap.h"
#include "plugin/host/XScreen.h"

#include "geometry/Geometry.h"
#include "platform/view/Menu.h"
#include "toolkit/ToolkitLookAndFeel.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class MenuHand {
public:
    // What the test that it works for has of the editor. All in the editor's points, a pixel each.
    struct Reach {
        std::function<slantwise_tests::Picture()> picture; // of the whole editor
        std::function<void(Point)> pointAt;
        std::function<void(int button)> click;
        std::function<bool(const std::function<bool()>&)> comesTrue;
    };
    // The map is borrowed.
    MenuHand(EditorMap& map, Reach reach) : map_(map), reach_(std::move(reach)) {}

    // Opens the menu with the right button and chooses the last of the rows; those before it lead there.
    testing::AssertionResult choose(Point at, const std::vector<std::string>& titles);

private:
    using Items = std::vector<MenuItem>;

    // Waits for what opens over an earlier picture; absent when nothing of this height comes to rest there.
    std::optional<slantwise_tests::Picture::Box> opened(const slantwise_tests::Picture& before, int height);
    int heightOf(const std::string& heading, const Items& items);
    int headingHeight(const std::string& heading);
    int rowHeight(const MenuItem& item);
    int rowHeightOf(const Menu& menu, int editorHeight);
    // The middle of a row, in points below the top of its menu.
    double middleOf(const std::string& heading, const Items& items, const MenuItem& row);

    EditorMap& map_;
    Reach reach_;
    FaceLibrary faces_;
    ToolkitLookAndFeel look_{faces_};
    int rowHeight_ = 0; // of the menu that is chosen from, in points
};

} // namespace QVM_NAMESPACE
