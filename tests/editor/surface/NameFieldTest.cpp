#include "editor/surface/NameField.h"

#include "editor/PressedKeys.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NameFieldTest : public testing::Test {
protected:
    NameFieldTest() { begin(""); }
    void begin(const std::string& name) {
        auto content = std::make_unique<View>(Rect{0, 0, 300, 100});
        field_ = &content->addSubview(std::make_unique<NameField>(
            Rect{20, 10, 195, 0}, name,
            NameField::Handlers{
                [this](const std::string& typed, bool isAnswer) { said_.push_back(typed + (isAnswer ? ", yes" : "")); },
                [this] { said_.push_back("cancelled"); },
                [this](NameField::Refusal refusal) {
                    const bool isEmpty = refusal == NameField::Refusal::isEmpty;
                    said_.push_back(isEmpty ? "empty" : "too long");
                }}));
        window_.setContentView(std::move(content));
    }
    void type(std::string_view text) {
        for (const Event& key : typedKeys(text))
            EXPECT_TRUE(field_->handleKey(key));
    }
    void mouse(EventType type, Point at, int clicks = 1) {
        Event event;
        event.type = type;
        event.locationInWindow = field_->coordinates().toWindow(at);
        event.clickCount = clicks;
        window_.sendEvent(event);
    }
    void click(Point at, int clicks = 1) {
        mouse(EventType::mouseDown, at, clicks);
        mouse(EventType::mouseUp, at, clicks);
    }

    VirtualTime time_;
    Window window_;
    NameField* field_ = nullptr;
    std::vector<std::string> said_;
};

TEST_F(NameFieldTest, ReturnAcceptsTheNameAsItCanBeUsed) {
    type("  Warm voice ");
    field_->handleKey(pressedReturn());
    EXPECT_THAT(said_, ElementsAre("Warm voice"));
}

TEST_F(NameFieldTest, NoNameIsNotAccepted) {
    field_->handleKey(pressedReturn());
    click(field_->acceptFrame().center());
    type("   ");
    field_->handleKey(pressedReturn());
    EXPECT_THAT(said_, ElementsAre("empty", "empty", "empty"));
}

TEST_F(NameFieldTest, WhatIsTypedBeyondTheLongestNameIsRefused) {
    type(std::string(48, 'a'));
    EXPECT_THAT(said_, IsEmpty());
    type("bc");
    EXPECT_THAT(said_, ElementsAre("too long", "too long"));
    EXPECT_EQ(field_->entry().text(), std::string(48, 'a'));
    field_->handleKey(pressedArrow(Key::left));
    EXPECT_EQ(said_.size(), 2u);
}

TEST_F(NameFieldTest, EscapeCancels) {
    type("Warm");
    EXPECT_TRUE(field_->handleKey(pressedEscape()));
    EXPECT_THAT(said_, ElementsAre("cancelled"));
}

TEST_F(NameFieldTest, ItsWordsCanBeClicked) {
    type("Warm");
    click(field_->acceptFrame().center());
    click(field_->cancelFrame().center());
    EXPECT_THAT(said_, ElementsAre("Warm", "cancelled"));
    EXPECT_FALSE(field_->acceptFrame().intersects(field_->cancelFrame()));
}

TEST_F(NameFieldTest, AnAnswerCountsForTheNameThatWasAskedAboutAlone) {
    type("Warm");
    field_->ask("Name is taken", "Replace");
    EXPECT_EQ(field_->question(), "Name is taken");
    field_->handleKey(pressedArrow(Key::left));
    field_->handleKey(pressedReturn());
    type("er");
    EXPECT_EQ(field_->question(), "");
    field_->handleKey(pressedReturn());
    EXPECT_THAT(said_, ElementsAre("Warm, yes", "Warerm"));
}

TEST_F(NameFieldTest, EveryKeyIsTakenSoThatNoneReachesTheHostOrTheEditor) {
    for (const Event& key : {pressedKey(U'\t', Key::codeTab), pressedKey(U'z', 0, EventModifier::command),
                             pressedKey(0, Key::codeF10, EventModifier::shift), pressedKey(0)})
        EXPECT_TRUE(field_->handleKey(key));
}

TEST_F(NameFieldTest, APressPlacesTheCaretADragSelectsAndTwoPressesSelectAll) {
    type("Warm");
    const double end = field_->caretFrame().x, middle = field_->caretFrame().center().y;
    click({19, middle});
    EXPECT_EQ(field_->entry().caret(), 0u);
    mouse(EventType::mouseDown, {end + 1, middle});
    mouse(EventType::mouseDragged, {end / 2 + 9, middle});
    mouse(EventType::mouseUp, {end / 2 + 9, middle});
    EXPECT_EQ(field_->entry().selectionEnd(), 4u);
    EXPECT_EQ(field_->entry().selectionStart(), 2u);
    click({19, middle}, 2);
    EXPECT_EQ(field_->entry().selectionEnd() - field_->entry().selectionStart(), 4u);
}

TEST_F(NameFieldTest, TheCaretStaysInTheBoxHoweverLongTheName) {
    type("0123456789012345678901234567890123456789");
    EXPECT_LT(field_->caretFrame().maxX(), field_->bounds().width - 10);
    EXPECT_GT(field_->caretFrame().x, field_->bounds().width - 30) << "at the end of what is seen";
    field_->handleKey(pressedKey(Key::home));
    EXPECT_EQ(field_->caretFrame().x, 18);
}

} // namespace
} // namespace QVM_NAMESPACE
