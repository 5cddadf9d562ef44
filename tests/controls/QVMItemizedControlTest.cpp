#include "controls/QVMItemizedControl.h"

#include "controls/Gestures.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kLoudness = 6;
using Lines = std::vector<std::string>;

// Keeps the menus that a window asks for.
class MenuHost : public WindowHost {
public:
    void setCursor(Cursor) override {}
    void contentSizeDidChange(Size) override {}
    void takeKeyboardFocus() override {}
    void popUpMenu(std::unique_ptr<Menu> menu, Point at) override {
        menus.push_back(std::move(menu));
        places.push_back(at);
    }
    std::vector<std::unique_ptr<Menu>> menus;
    std::vector<Point> places;
};

class QVMItemizedControlTest : public testing::Test {
protected:
    QVMItemizedControlTest()
        : control(window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 100}))
                      .addSubview(std::make_unique<QVMItemizedControl>(Rect{20, 30, 140, 26}, parameter))),
          record(control) {}

    bool clickOpensMenu(Point point) {
        host.menus.clear();
        press(control, point);
        release(control, point);
        time.advance(0.05);
        return !host.menus.empty();
    }

    VirtualTime time;
    MenuHost host;
    QVMParameter parameter = parameterLike(kLoudness);
    Window window{&host};
    QVMItemizedControl& control;
    GestureRecord record;
};

TEST_F(QVMItemizedControlTest, AClickOnTheBackgroundOpensTheMenuJustAfterwards) {
    press(control, control.bgFrame().center());
    EXPECT_TRUE(host.menus.empty());
    time.advance(0.009);
    EXPECT_TRUE(host.menus.empty());
    time.advance(0.002);
    ASSERT_EQ(host.menus.size(), 1u);
    EXPECT_EQ(control.floatValue(), 0) << "the value waits for a choice";
    EXPECT_EQ(record.lines, (Lines{"began"}));
}

TEST_F(QVMItemizedControlTest, AClickFivePointsAboveTheBackgroundStillOpensTheMenu) {
    const Rect bg = control.bgFrame();
    EXPECT_TRUE(clickOpensMenu({bg.midX(), bg.maxY() + 5}));
    EXPECT_TRUE(clickOpensMenu({bg.midX(), bg.minY() - 5}));
    EXPECT_FALSE(clickOpensMenu({bg.midX(), bg.maxY() + 7}));
}

TEST_F(QVMItemizedControlTest, TheMenusMarginIsTwoPointsWideAndSixHighOnEverySide) {
    const Rect bg = control.bgFrame();
    for (const double beyond : {-0.1, 0.1}) {
        const bool isInside = beyond < 0;
        EXPECT_EQ(clickOpensMenu({bg.minX() - 2 - beyond, bg.midY()}), isInside);
        EXPECT_EQ(clickOpensMenu({bg.maxX() + 2 + beyond, bg.midY()}), isInside);
        EXPECT_EQ(clickOpensMenu({bg.midX(), bg.minY() - 6 - beyond}), isInside);
        EXPECT_EQ(clickOpensMenu({bg.midX(), bg.maxY() + 6 + beyond}), isInside);
    }
}

TEST_F(QVMItemizedControlTest, BesideTheMenuTheExactMiddleAndWhatIsRightOfItStepsForward) {
    const double middle = control.bounds().midX(), above = control.bgFrame().maxY() + 7;
    EXPECT_FALSE(clickOpensMenu({middle, above}));
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_FALSE(clickOpensMenu({middle + 0.5, above}));
    EXPECT_EQ(control.floatValue(), 2);
    EXPECT_FALSE(clickOpensMenu({middle - 0.5, above}));
    EXPECT_EQ(control.floatValue(), 1);
}

TEST_F(QVMItemizedControlTest, AClickOnTheLeftCrementerStepsBackwardAndOnTheRightOneForward) {
    EXPECT_FALSE(clickOpensMenu(control.dec()->frame().center()));
    EXPECT_EQ(control.floatValue(), 3);
    EXPECT_FALSE(clickOpensMenu(control.inc()->frame().center()));
    EXPECT_EQ(control.floatValue(), 0);
}

TEST_F(QVMItemizedControlTest, WithoutCrementersAClickStepsForward) {
    const QVMParameter plain = parameterLike(kLoudness, [](QVMParameter& p) { p.includeCrementers = false; });
    QVMItemizedControl bare({0, 0, 73, 26}, plain);
    press(bare, {30, 13});
    EXPECT_EQ(bare.floatValue(), 1);
}

TEST_F(QVMItemizedControlTest, TheMenuListsTheValuesAndChecksThePresentOne) {
    control.setFloatValue(2);
    const auto menu = control.itemMenu();
    EXPECT_EQ(menu->title, "Loudness");
    ASSERT_EQ(menu->items.size(), 4u);
    EXPECT_EQ(menu->items[0].title, "Auto");
    EXPECT_EQ(menu->items[3].title, "Bass");
    for (std::size_t i = 0; i < menu->items.size(); ++i)
        EXPECT_EQ(menu->items[i].checked, i == 2) << i;
}

TEST_F(QVMItemizedControlTest, ChoosingAnItemIsADiscreteChange) {
    ASSERT_TRUE(clickOpensMenu(control.bgFrame().center()));
    record.lines.clear();
    host.menus[0]->items[2].action();
    EXPECT_EQ(control.floatValue(), 2);
    EXPECT_EQ(record.lines, (Lines{"action 2", "discrete"}));
    EXPECT_TRUE(control.userControlling());
}

TEST_F(QVMItemizedControlTest, TheMenuOpensOverTheBackgroundWithThePresentValueAtThePointersHeight) {
    const Point pressed = control.bgFrame().center() + Point{9, -4};
    ASSERT_TRUE(clickOpensMenu(pressed));
    EXPECT_EQ(host.places[0].x, 20 + control.bgFrame().minX());
    EXPECT_EQ(host.places[0].y, control.coordinates().toWindow(pressed).y);
    EXPECT_TRUE(host.menus[0]->standsOnChecked);
}

TEST_F(QVMItemizedControlTest, ANestedHierarchyIsANestedMenu) {
    const QVMParameter nested = parameterLike(kLoudness, [](QVMParameter& p) {
        p.hierarchy = {{"Auto", {}}, {"Fixed", {{"Norm", {}}, {"Treble", {}}}}, {"Bass", {}}};
    });
    QVMItemizedControl control2({0, 0, 140, 26}, nested);
    const auto menu = control2.itemMenu();
    ASSERT_EQ(menu->items.size(), 3u);
    ASSERT_EQ(menu->items[1].submenu.size(), 2u);
    menu->items[1].submenu[1].action();
    EXPECT_EQ(control2.floatValue(), 2);
    menu->items[2].action();
    EXPECT_EQ(control2.floatValue(), 3);
}

TEST_F(QVMItemizedControlTest, AFlatHierarchySaysWhichValueANameIs) {
    const QVMParameter sorted = parameterLike(kLoudness, [](QVMParameter& p) {
        p.flatHierarchy = {"Auto", "Norm", "Treble", "Bass"};
        p.hierarchy = {{"Bass", {}}, {"Others", {{"Auto", {}}, {"Treble", {}}}}};
    });
    QVMItemizedControl control2({0, 0, 140, 26}, sorted);
    const auto menu = control2.itemMenu();
    menu->items[0].action();
    EXPECT_EQ(control2.floatValue(), 3);
    menu->items[1].submenu[1].action();
    EXPECT_EQ(control2.floatValue(), 2);
}

TEST_F(QVMItemizedControlTest, WithoutATreeTheFlatListIsTheMenu) {
    const QVMParameter flat = parameterLike(kLoudness, [](QVMParameter& p) { p.flatHierarchy = {"A", "B", "C", "D"}; });
    QVMItemizedControl control2({0, 0, 140, 26}, flat);
    const auto menu = control2.itemMenu();
    ASSERT_EQ(menu->items.size(), 4u);
    EXPECT_EQ(menu->items[1].title, "B");
    menu->items[1].action();
    EXPECT_EQ(control2.floatValue(), 1);
}

TEST_F(QVMItemizedControlTest, ValuesThatTheChannelConfigurationForbidsAreDisabled) {
    const QVMParameter restricted = parameterLike(kLoudness, [](QVMParameter& p) {
        p.chanIn = p.chanOut = 1;
        p.channelRestrictions = {{"1", {{2, 2}}}, {"2", {{1, 1}}}};
    });
    QVMItemizedControl control2({0, 0, 140, 26}, restricted);
    const auto menu = control2.itemMenu();
    EXPECT_TRUE(menu->items[0].enabled);
    EXPECT_FALSE(menu->items[1].enabled);
    EXPECT_TRUE(menu->items[2].enabled);
    control2.cycleValueForward(true);
    EXPECT_EQ(control2.floatValue(), 2) << "cycling steps over it as well";
}

TEST_F(QVMItemizedControlTest, AMenuThatOutlivesItsControlDoesNothing) {
    auto lost = std::make_unique<QVMItemizedControl>(Rect{0, 0, 140, 26}, parameter);
    const auto menu = lost->itemMenu();
    lost.reset();
    menu->items[1].action();
}

TEST_F(QVMItemizedControlTest, AControlInNoWindowOpensNoMenu) {
    QVMItemizedControl other({0, 0, 140, 26}, parameter);
    press(other, other.bgFrame().center());
    time.advance(0.05);
    EXPECT_TRUE(host.menus.empty());
}

TEST_F(QVMItemizedControlTest, AControlThatGoesBeforeItsMenuOpensOpensNone) {
    View& content = *window.contentView();
    auto& shown = content.addSubview(std::make_unique<QVMItemizedControl>(Rect{0, 0, 140, 26}, parameter));
    press(shown, shown.bgFrame().center());
    shown.removeFromSuperview();
    time.advance(0.05);
    EXPECT_TRUE(host.menus.empty());
}

TEST_F(QVMItemizedControlTest, ArrowKeysCycle) {
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::up, QVMGranularityNormal));
    EXPECT_EQ(control.floatValue(), 1);
    EXPECT_TRUE(control.incrementWithArrowGranularity(Key::left, QVMGranularityNormal));
    EXPECT_EQ(control.floatValue(), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
