#include "theme/ScopedTheme.h"

#include "platform/runloop/NotificationCenter.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

QVMUITheme lightWithText(Color text) {
    QVMUITheme theme = QVMUITheme::light();
    theme.textColor = text;
    return theme;
}

TEST(ScopedTheme, IsTheThemeWhileItLivesAndTellsWhoeverDraws) {
    std::vector<Color> seen;
    const auto token =
        NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr, [&](const Notification&) {
            seen.push_back(QVMUITheme::theme().textColor);
        });
    const Color green = {0, 1, 0, 1}, blue = {0, 0, 1, 1}, own = QVMUITheme::light().textColor;
    {
        const ScopedTheme outer(lightWithText(green));
        const ScopedTheme inner(lightWithText(blue));
        EXPECT_EQ(QVMUITheme::theme().textColor, blue);
    }
    EXPECT_EQ(seen, (std::vector<Color>{green, blue, green, own}));
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::light());
}

TEST(ScopedTheme, LeavesTheTwoThemesAlone) {
    const ScopedTheme scoped(lightWithText({0, 1, 0, 1}));
    EXPECT_EQ(QVMUITheme::light().textColor, Color::white(0.1f));
    EXPECT_EQ(QVMUITheme::dark().textColor, Color::white(1));
}

} // namespace
} // namespace QVM_NAMESPACE
