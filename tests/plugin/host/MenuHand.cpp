#include "plugin/host/MenuHand.h"

#include "toolkit/ToolkitMenu.h"

#include <algorithm>

namespace QVM_NAMESPACE {

using slantwise_tests::Picture;

namespace {

constexpr int lineWidth = 1; // points, of the line around a menu

// Nothing in the box is new any more, also where another row of it becomes the marked one.
void cover(Picture& picture, const Picture::Box& box) {
    for (int y = box.y; y < box.y + box.height; ++y) {
        const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
        std::fill_n(row + box.x, box.width, EditorMap::menuColour);
    }
}

} // namespace

testing::AssertionResult MenuHand::choose(Point at, const std::vector<std::string>& titles) {
    const std::unique_ptr<Menu> menu = map_.menuAt(at);
    const Picture closed = reach_.picture();
    reach_.pointAt(at);
    reach_.click(3);
    std::string heading = menu->title;
    const Items* items = &menu->items;
    rowHeight_ = rowHeightOf(*menu, closed.height);
    Picture before = closed;
    for (const std::string& title : titles) {
        const auto row = std::ranges::find(*items, title, &MenuItem::title);
        if (row == items->end()) return testing::AssertionFailure() << "no row is called " << title;
        const auto box = opened(before, heightOf(heading, *items));
        if (!box) return testing::AssertionFailure() << "what has " << title << " in it does not open";
        cover(before, *box);
        const double top = box->y - lineWidth;
        reach_.pointAt({box->x + box->width / 2.0, top + middleOf(heading, *items, *row)});
        heading.clear();
        items = &row->submenu;
    }
    // What is chosen may show something in the same colour.
    const auto box = [&] { return reach_.picture().boxOfNew(EditorMap::menuColour, closed); };
    const auto open = box();
    reach_.click(1);
    const bool isClosed = reach_.comesTrue([&] { return box() != open; });
    return isClosed ? testing::AssertionSuccess() : testing::AssertionFailure() << "it does not close";
}

std::optional<Picture::Box> MenuHand::opened(const Picture& before, int height) {
    std::optional<Picture::Box> box;
    const bool isOpen = reach_.comesTrue([&] {
        const auto seen = reach_.picture().boxOfNew(EditorMap::menuColour, before);
        const bool isAtRest = seen && box == seen;
        box = seen;
        return isAtRest && seen->height + 2 * lineWidth == height;
    });
    return isOpen ? box : std::nullopt;
}

int MenuHand::heightOf(const std::string& heading, const Items& items) {
    int height = 2 * look_.getPopupMenuBorderSize() + headingHeight(heading);
    for (const MenuItem& item : items)
        height += rowHeight(item);
    return height;
}

// The toolkit makes it half as high again as a row.
int MenuHand::headingHeight(const std::string& heading) {
    MenuItem row;
    row.title = heading;
    return heading.empty() ? 0 : rowHeight(row) * 3 / 2;
}

int MenuHand::rowHeight(const MenuItem& item) {
    int width = 0, height = 0;
    look_.getIdealPopupMenuItemSizeWithOptions({}, item.isSeparator(), 0, width, height,
                                               juce::PopupMenu::Options().withStandardItemHeight(rowHeight_));
    return height;
}

int MenuHand::rowHeightOf(const Menu& menu, int editorHeight) {
    juce::Component editor;
    editor.setSize(1, editorHeight);
    return look_.rowHeightFor(toToolkit(menu, &editor, [] {}), juce::PopupMenu::Options().withParentComponent(&editor));
}

double MenuHand::middleOf(const std::string& heading, const Items& items, const MenuItem& row) {
    double top = look_.getPopupMenuBorderSize() + headingHeight(heading);
    for (const MenuItem* item = items.data(); item != &row; ++item)
        top += rowHeight(*item);
    return top + rowHeight(row) / 2.0;
}

} // namespace QVM_NAMESPACE
