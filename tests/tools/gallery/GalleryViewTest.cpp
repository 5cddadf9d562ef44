// The gallery under pointer and keys, in virtual time.
#include "tools/gallery/GalleryView.h"

#include "controls/Gestures.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"
#include "tools/gallery/TestSignal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

class GalleryViewTest : public testing::Test {
protected:
    GalleryViewTest() { show("Numbers"); }
    ~GalleryViewTest() override {
        window.takeContentView();
        if (&QVMUITheme::theme() != &QVMUITheme::light()) QVMUITheme::toggleThemeForWindow(nullptr);
    }

    void show(const char* page) {
        lines.clear();
        view = &window.setContentView(std::make_unique<GalleryView>(
            feed, *galleryPageNamed(page), [this](const std::string& line) { lines.push_back(line); }));
    }
    Exhibit& exhibit(const std::string& identifier) {
        for (Exhibit* each : view->pageView().exhibits())
            if (each->identifier() == identifier) return *each;
        throw std::out_of_range(identifier);
    }
    void send(EventType type, Point at, std::uint32_t modifiers = 0) {
        window.sendEvent(eventAt(type, *view, at, modifiers));
    }
    void click(Point at) {
        send(EventType::mouseDown, at);
        send(EventType::mouseUp, at);
    }
    bool key(std::uint16_t code, char32_t character = U' ', std::uint32_t modifiers = 0) {
        Event event;
        event.type = EventType::keyDown;
        event.keyCode = code;
        event.charactersIgnoringModifiers = character;
        event.modifierFlags = modifiers;
        return window.sendEvent(event);
    }
    bool arrow(char32_t character, std::uint32_t modifiers = 0) {
        return key(0, character, modifiers | EventModifier::numericPad);
    }
    Point middleOf(const std::string& identifier) {
        View& it = exhibit(identifier);
        return it.coordinates().toWindow(it.bounds().center());
    }

    VirtualTime time;
    StereoFeed feed{*testSignal("sine", 8000), "a tone"};
    Window window;
    GalleryView* view = nullptr;
    std::vector<std::string> lines;
};

TEST_F(GalleryViewTest, TellsWhereEveryExhibitStands) {
    EXPECT_EQ(lines.size(), view->pageView().exhibits().size());
    EXPECT_THAT(lines, Contains(StartsWith("at Numbers/Resonance/normal 24 ")));
}

TEST_F(GalleryViewTest, ADragIsReportedFromItsBeginningToItsEnd) {
    lines.clear();
    const Point from = middleOf("Numbers/Resonance/normal");
    send(EventType::mouseDown, from);
    send(EventType::mouseDragged, from + Point{0, -90});
    send(EventType::mouseUp, from + Point{0, -90});
    EXPECT_THAT(lines, ElementsAre("Numbers/Resonance/normal began", "Numbers/Resonance/normal action 12",
                                   "Numbers/Resonance/normal ended"))
        << "180 points sweep 18 dB";
    EXPECT_EQ(view->status(), "Numbers/Resonance/normal   ended");
}

TEST_F(GalleryViewTest, APressFocusesAndTypedNumbersGoThere) {
    click(middleOf("Numbers/Center/normal"));
    ASSERT_EQ(view->keys().focused(), exhibit("Numbers/Center/normal").parameterControl());
    lines.clear();
    for (const char32_t character : {U'1', U'.', U'5', U'k'})
        EXPECT_TRUE(key(0, character));
    EXPECT_EQ(view->keys().typed(), "1.5k");
    EXPECT_TRUE(key(Key::codeDelete));
    EXPECT_TRUE(key(0, U'k'));
    EXPECT_TRUE(key(Key::codeReturn));
    EXPECT_THAT(lines, ElementsAre("Numbers/Center/normal action 1500", "Numbers/Center/normal discrete"));
    EXPECT_TRUE(key(Key::codeEscape));
    EXPECT_EQ(view->keys().focused(), nullptr);
    EXPECT_FALSE(key(0, U'5')) << "with nothing focused a key is not the gallery's";
}

TEST_F(GalleryViewTest, ArrowsStepTheFocusedControlByGranularity) {
    click(middleOf("Numbers/Width/normal"));
    lines.clear();
    EXPECT_TRUE(arrow(Key::up));
    EXPECT_TRUE(arrow(Key::left, EventModifier::shift));
    EXPECT_THAT(lines, Contains("Numbers/Width/normal action 41"));
    EXPECT_EQ(exhibit("Numbers/Width/normal").parameterControl()->floatValue(), 40) << "back on the coarse grid";
}

TEST_F(GalleryViewTest, TabWalksThePageBothWaysAndAround) {
    const auto first = view->pageView().exhibits().front()->parameterControl();
    EXPECT_TRUE(key(Key::codeTab));
    EXPECT_EQ(view->keys().focused(), first);
    EXPECT_TRUE(key(Key::codeTab, U'\t', EventModifier::shift));
    EXPECT_EQ(view->keys().focused(), view->pageView().exhibits().back()->parameterControl());
    EXPECT_TRUE(key(Key::codeTab));
    EXPECT_EQ(view->keys().focused(), first);
}

TEST_F(GalleryViewTest, ReturnFlipsASwitch) {
    show("Switches");
    click(middleOf("Switches/SwitchTinted/normal"));
    lines.clear();
    EXPECT_TRUE(key(Key::codeReturn));
    EXPECT_THAT(lines, ElementsAre("Switches/SwitchTinted/normal action 1", "Switches/SwitchTinted/normal discrete"))
        << "the click had turned it off";
}

TEST_F(GalleryViewTest, DisabledExhibitsStayAsTheyAre) {
    lines.clear();
    click(middleOf("Numbers/Resonance/disabled"));
    EXPECT_THAT(lines, ElementsAre());
}

TEST_F(GalleryViewTest, ATabShowsItsPage) {
    click({24 + 1.5 * 95, 23});
    EXPECT_EQ(view->page(), *galleryPageNamed("Ranges"));
    EXPECT_EQ(view->pageView().exhibits().front()->identifier(), "Ranges/RangeLow/normal");
    EXPECT_THAT(lines, Contains(StartsWith("at Ranges/Level/normal ")));
    EXPECT_EQ(view->keys().focused(), nullptr);
}

TEST_F(GalleryViewTest, TheThemeSwitchChangesTheThemeAndFollowsIt) {
    const Point themeSwitch{GalleryView::size.width - 60, 23};
    click(themeSwitch);
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
    EXPECT_EQ(view->pageView().layer()->look().backgroundColor(), QVMUITheme::dark().backgroundColor);
    QVMUITheme::toggleThemeForWindow(nullptr);
    click(themeSwitch);
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
}

TEST_F(GalleryViewTest, DraggingTheBandOfARangeMovesBothEnds) {
    show("Ranges");
    lines.clear();
    const Point from = middleOf("Ranges/RangeLow/normal");
    send(EventType::mouseDown, from);
    send(EventType::mouseDragged, from + Point{10, 0});
    send(EventType::mouseUp, from + Point{10, 0});
    std::size_t actions = 0;
    for (const std::string& line : lines)
        actions += line.find(" action ") != std::string::npos;
    EXPECT_EQ(actions, 2u) << "one of either end";
}

TEST_F(GalleryViewTest, ButtonsReportTheirPresses) {
    show("Buttons");
    lines.clear();
    click(middleOf("Buttons/Gear/normal"));
    click(middleOf("Buttons/Gear/disabled"));
    EXPECT_THAT(lines, ElementsAre("Buttons/Gear/normal pressed"));
}

} // namespace
} // namespace QVM_NAMESPACE
