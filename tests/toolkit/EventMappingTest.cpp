#include "toolkit/EventMapping.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Mods = juce::ModifierKeys;

juce::MouseEvent mouseEvent(juce::Component& c, juce::Point<float> at, Mods mods, int clicks = 1) {
    const juce::Time now;
    return {juce::Desktop::getInstance().getMainMouseSource(),
            at,
            mods,
            0,
            0,
            0,
            0,
            0,
            &c,
            &c,
            now,
            at,
            now,
            clicks,
            false};
}

std::uint32_t flagsOf(int mods) {
    return modifierFlagsFrom(Mods(mods), SuperKey::up);
}

TEST(EventMapping, ModifiersAreTheDesktopsOwn) {
    EXPECT_EQ(flagsOf(0), 0u);
    EXPECT_EQ(flagsOf(Mods::ctrlModifier), EventModifier::command);
    EXPECT_EQ(flagsOf(Mods::altModifier), EventModifier::option);
    EXPECT_EQ(flagsOf(Mods::shiftModifier), EventModifier::shift);
    EXPECT_EQ(flagsOf(Mods::leftButtonModifier), 0u);
    EXPECT_EQ(modifierFlagsFrom(Mods(Mods::shiftModifier), SuperKey::down),
              EventModifier::shift | EventModifier::control);
}

TEST(EventMapping, MouseEventKeepsPlaceClicksAndModifiers) {
    juce::Component c;
    const Event event = mouseEventFrom(mouseEvent(c, {12.5f, 7}, Mods(Mods::leftButtonModifier | Mods::altModifier), 2),
                                       EventType::mouseDown, SuperKey::up);
    EXPECT_EQ(event.type, EventType::mouseDown);
    EXPECT_EQ(event.locationInWindow, (Point{12.5, 7}));
    EXPECT_EQ(event.clickCount, 2);
    EXPECT_EQ(event.modifierFlags, EventModifier::option);
    EXPECT_EQ(mouseEventFrom(mouseEvent(c, {}, {}, 2), EventType::mouseDragged, SuperKey::up).clickCount, 0);
}

TEST(EventMapping, NotchOfAWheelIsALine) {
    juce::Component c;
    juce::MouseWheelDetails wheel{0, 50.0f / 256, false, false, false};
    Event event = scrollEventFrom(mouseEvent(c, {}, {}), wheel, SuperKey::up);
    EXPECT_EQ(event.type, EventType::scrollWheel);
    EXPECT_DOUBLE_EQ(event.scrollingDeltaY, 1);
    EXPECT_FALSE(event.hasPreciseScrollingDeltas);
    EXPECT_EQ(event.phase, EventPhase::none);
    wheel.deltaY = -50.0f / 256;
    EXPECT_DOUBLE_EQ(scrollEventFrom(mouseEvent(c, {}, {}), wheel, SuperKey::up).scrollingDeltaY, -1);
}

TEST(EventMapping, SmoothDeviceGivesPoints) {
    juce::Component c;
    const juce::MouseWheelDetails wheel{0.125f, -0.25f, true, true, false};
    const Event event = scrollEventFrom(mouseEvent(c, {}, {}), wheel, SuperKey::up);
    EXPECT_TRUE(event.hasPreciseScrollingDeltas);
    EXPECT_TRUE(event.isDirectionInvertedFromDevice);
    EXPECT_DOUBLE_EQ(event.scrollingDeltaX, 64);
    EXPECT_DOUBLE_EQ(event.scrollingDeltaY, -128);
}

struct KeyCase {
    const char* name;
    juce::KeyPress (*key)(); // made when asked for: none may outlive the toolkit
    std::u32string characters;
    std::uint16_t code;
    std::uint32_t flags;
};

void PrintTo(const KeyCase& c, std::ostream* out) {
    *out << c.name;
}

class EventMappingKeyTest : public ::testing::TestWithParam<KeyCase> {};

TEST_P(EventMappingKeyTest, HasItsCharacterCodeAndFlags) {
    const Event event = keyEventFrom(GetParam().key(), SuperKey::up);
    EXPECT_EQ(event.type, EventType::keyDown);
    EXPECT_EQ(event.charactersIgnoringModifiers, GetParam().characters);
    EXPECT_EQ(event.keyCode, GetParam().code);
    EXPECT_EQ(event.modifierFlags, GetParam().flags);
}

using Key_ = juce::KeyPress;
INSTANTIATE_TEST_SUITE_P(
    Keys, EventMappingKeyTest,
    ::testing::Values(
        KeyCase{"up", [] { return Key_(Key_::upKey); }, {Key::up}, 126, EventModifier::numericPad},
        KeyCase{"down", [] { return Key_(Key_::downKey); }, {Key::down}, 125, EventModifier::numericPad},
        KeyCase{"shiftLeft",
                [] { return Key_(Key_::leftKey, Mods(Mods::shiftModifier), 0); },
                {Key::left},
                123,
                EventModifier::numericPad | EventModifier::shift},
        KeyCase{"ctrlRight",
                [] { return Key_(Key_::rightKey, Mods(Mods::ctrlModifier), 0); },
                {Key::right},
                124,
                EventModifier::numericPad | EventModifier::command},
        KeyCase{"return", [] { return Key_(Key_::returnKey); }, U"\r", 36, 0},
        KeyCase{"tab", [] { return Key_(Key_::tabKey); }, U"\t", 48, 0},
        KeyCase{"shiftTab", [] { return Key_(Key_::tabKey, Mods(Mods::shiftModifier), 0); }, U"\t", 48,
                EventModifier::shift},
        KeyCase{"space", [] { return Key_(Key_::spaceKey, {}, ' '); }, U" ", 49, 0},
        KeyCase{"grave", [] { return Key_('`', {}, '`'); }, U"`", 50, 0},
        KeyCase{"backspace", [] { return Key_(Key_::backspaceKey); }, U"\x7F", 51, 0},
        KeyCase{"delete", [] { return Key_(Key_::deleteKey); }, U"\uF728", 51, 0},
        KeyCase{"home", [] { return Key_(Key_::homeKey); }, U"\uF729", 115, 0},
        KeyCase{"end", [] { return Key_(Key_::endKey); }, U"\uF72B", 119, 0},
        KeyCase{"escape", [] { return Key_(Key_::escapeKey); }, U"\x1B", 53, 0},
        KeyCase{"shiftF10", [] { return Key_(Key_::F10Key, Mods(Mods::shiftModifier), 0); }, U"", 109,
                EventModifier::shift},
        KeyCase{"digit", [] { return Key_('7', {}, '7'); }, U"7", 0, 0},
        KeyCase{"comma", [] { return Key_(',', {}, ','); }, U",", 0, 0},
        KeyCase{"letter", [] { return Key_('k', {}, 'k'); }, U"k", 0, 0},
        KeyCase{"shiftLetter", [] { return Key_('K', Mods(Mods::shiftModifier), 'K'); }, U"k", 0, EventModifier::shift},
        KeyCase{"ctrlLetter", [] { return Key_('z', Mods(Mods::ctrlModifier), 26); }, U"z", 0, EventModifier::command},
        KeyCase{"shiftedDigitOfAFrenchKeyboard", [] { return Key_('5', Mods(Mods::shiftModifier), '5'); }, U"5", 0,
                EventModifier::shift},
        KeyCase{"keypadDigit", [] { return Key_(Key_::numberPad5); }, U"5", 0, EventModifier::numericPad},
        KeyCase{"keypadPoint", [] { return Key_(Key_::numberPadDecimalPoint); }, U".", 0, EventModifier::numericPad},
        KeyCase{"functionKey", [] { return Key_(Key_::F5Key); }, U"", 0, 0}),
    [](const auto& i) { return std::string(i.param.name); });

TEST(EventMapping, AKeyTypesItsCharacterUnlessItIsACommand) {
    const auto typed = [](const juce::KeyPress& key) { return keyEventFrom(key, SuperKey::up).characters; };
    EXPECT_EQ(typed(Key_('K', Mods(Mods::shiftModifier), 'K')), U"K");
    EXPECT_EQ(typed(Key_(0xE4, {}, 0xE4)), U"\u00E4");
    EXPECT_EQ(typed(Key_(Key_::spaceKey, {}, ' ')), U" ");
    EXPECT_EQ(typed(Key_('z', Mods(Mods::ctrlModifier), 26)), U"");
    EXPECT_EQ(typed(Key_('z', Mods(Mods::ctrlModifier), 'z')), U"");
    EXPECT_EQ(typed(Key_('z', Mods(Mods::altModifier), 'z')), U"");
    EXPECT_EQ(typed(Key_(Key_::returnKey, {}, '\r')), U"");
    EXPECT_EQ(typed(Key_(Key_::backspaceKey, {}, 0x7F)), U"");
    EXPECT_EQ(typed(Key_(Key_::leftKey)), U"");
}

TEST(EventMapping, EveryCursorHasItsPicture) {
    using Toolkit = juce::MouseCursor;
    EXPECT_TRUE(toToolkit(Cursor::arrow) == Toolkit::NormalCursor);
    EXPECT_TRUE(toToolkit(Cursor::pointingHand) == Toolkit::PointingHandCursor);
    EXPECT_TRUE(toToolkit(Cursor::resizeUpDown) == Toolkit::UpDownResizeCursor);
    EXPECT_TRUE(toToolkit(Cursor::resizeDiagonal) == Toolkit::BottomRightCornerResizeCursor);
    EXPECT_TRUE(toToolkit(Cursor::resizeLeftRight) == Toolkit::LeftRightResizeCursor);
    EXPECT_TRUE(toToolkit(Cursor::none) == Toolkit::NoCursor);
}

} // namespace
} // namespace QVM_NAMESPACE
