#include "editor/surface/EditorMenuItem.h"

#include "editor/EditorFixture.h"

namespace QVM_NAMESPACE {
namespace {

using EditorMenuItemTest = EditorFixture;

TEST_F(EditorMenuItemTest, AnActionOnAnEditorThatHasGoneDoesNothing) {
    int calls = 0;
    const auto action = onEditor(*ui_, [&calls](QVMGenericUI&) { ++calls; });
    action();
    EXPECT_EQ(calls, 1);
    window_.takeContentView().reset();
    ui_ = nullptr;
    action();
    EXPECT_EQ(calls, 1);
}

TEST_F(EditorMenuItemTest, ItemsAreAsTheyAreAskedFor) {
    const MenuItem item = ticked(true, menuItem(
                                           "One", [] {}, false));
    EXPECT_EQ(item.title, "One");
    EXPECT_TRUE(item.checked);
    EXPECT_FALSE(item.enabled);
    EXPECT_FALSE(item.isSeparator());
    EXPECT_EQ(submenu("All", {item, item}).submenu.size(), 2u);
}

} // namespace
} // namespace QVM_NAMESPACE
