#include "editor/surface/SizeMenu.h"

#include "editor/EditorFixture.h"
#include "editor/surface/EditorLayout.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class SizeMenuTest : public EditorFixture {
protected:
    MenuItem submenu() { return sizeItems(*ui_).front(); }
    static std::vector<std::string> titles(const std::vector<MenuItem>& items) {
        std::vector<std::string> found;
        found.reserve(items.size());
        for (const MenuItem& item : items)
            found.push_back(item.title);
        return found;
    }
    std::vector<std::string> ticked() {
        std::vector<std::string> found;
        const MenuItem menu = submenu();
        for (const MenuItem& item : menu.submenu)
            if (item.checked) found.push_back(item.title);
        return found;
    }
    void choose(const std::string& title) {
        const MenuItem menu = submenu();
        for (const MenuItem& item : menu.submenu)
            if (item.title == title) item.action();
    }
};

TEST_F(SizeMenuTest, OffersTheSizesAndToFitTheWindow) {
    EXPECT_THAT(titles(submenu().submenu),
                ElementsAre("75 %", "100 %", "125 %", "150 %", "200 %", "300 %", "Fits the window"));
}

TEST_F(SizeMenuTest, ThePresentOneIsTicked) {
    EXPECT_THAT(ticked(), ElementsAre("100 %"));
    choose("150 %");
    EXPECT_EQ(ui_->currentScale(), 1.5F);
    EXPECT_THAT(ticked(), ElementsAre("150 %"));
    ui_->scale().show(1.37F); // by hand
    EXPECT_THAT(ticked(), ElementsAre("137 %"));
    choose("Fits the window");
    EXPECT_THAT(ticked(), ElementsAre("Fits the window"));
}

TEST_F(SizeMenuTest, ASizeMadeByHandHasARowInItsPlace) {
    ui_->scale().show(1.184F);
    EXPECT_THAT(titles(submenu().submenu),
                ElementsAre("75 %", "100 %", "118 %", "125 %", "150 %", "200 %", "300 %", "Fits the window"));
    EXPECT_THAT(ticked(), ElementsAre("118 %"));
    choose("118 %");
    EXPECT_EQ(ui_->currentScale(), 1.184F) << "it is what it is";
    ui_->scale().show(1.502F);
    EXPECT_THAT(ticked(), ElementsAre("150 %")) << "nobody sees that it is not quite that";
    EXPECT_EQ(submenu().submenu.size(), 7U);
    ui_->scale().show(1.184F);
    ui_->scale().fitWindow();
    EXPECT_EQ(submenu().submenu.size(), 7U) << "how large it is then is the window's business";
}

TEST_F(SizeMenuTest, ASizeMadeByHandHasARowInTheSmallWindowToo) {
    ui_->requestFrame(QVMAltFrameCompact);
    for (const auto& [scale, sizes] :
         {std::pair{0.9F, std::vector<std::string>{"Size 90 %", "Size 100 %"}}, {1.5F, {"Size 100 %", "Size 150 %"}}}) {
        ui_->scale().show(scale);
        EXPECT_THAT(titles(sizeItems(*ui_)), ElementsAre("Larger", "Smaller", sizes[0], sizes[1], "Fits the window"));
        EXPECT_TRUE(sizeItems(*ui_)[scale < 1 ? 2 : 3].checked);
    }
}

TEST_F(SizeMenuTest, IsInTheContextMenuAndInThatOfTheKeyboard) {
    const auto has = [](const Menu& menu) {
        return std::any_of(menu.items.begin(), menu.items.end(), [](const MenuItem& i) { return i.title == "Size"; });
    };
    EXPECT_TRUE(has(*ui_->menuForEvent(mouseEvent(EventType::rightMouseDown, {10, 15}))));
    EXPECT_TRUE(has(*ui_->menuForKeyboard()));
}

TEST_F(SizeMenuTest, TheSmallWindowHasNoSubmenuOfThem) {
    ui_->requestFrame(QVMAltFrameCompact);
    const auto choosePlain = [this](const std::string& title) {
        for (const MenuItem& item : sizeItems(*ui_)) {
            EXPECT_THAT(item.submenu, testing::IsEmpty());
            if (item.title == title && item.enabled) return item.action();
        }
        ADD_FAILURE() << title;
    };
    choosePlain("Larger");
    EXPECT_EQ(ui_->currentScale(), 1.25F);
    choosePlain("Smaller");
    choosePlain("Smaller");
    EXPECT_EQ(ui_->currentScale(), 0.75F);
    EXPECT_FALSE(sizeItems(*ui_)[1].enabled) << "none is smaller";
    choosePlain("Size 100 %");
    EXPECT_TRUE(sizeItems(*ui_)[2].checked);
    choosePlain("Fits the window");
    EXPECT_TRUE(sizeItems(*ui_)[3].checked);
}

TEST_F(SizeMenuTest, DoesNothingOnceTheEditorIsGone) {
    const MenuItem menu = submenu();
    window_.takeContentView();
    ui_ = nullptr;
    for (const MenuItem& item : menu.submenu)
        item.action();
}

} // namespace
} // namespace QVM_NAMESPACE
