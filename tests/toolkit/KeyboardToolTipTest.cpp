// A tip for whoever came to a view by a key: after a rest, once, and gone with the next key or move.
#include "toolkit/KeyboardToolTip.h"

#include "toolkit/WindowInput.h"

namespace QVM_NAMESPACE {
namespace {

class KeyboardToolTipTest : public WindowInput {
protected:
    KeyboardToolTipTest() {
        auto low = std::make_unique<View>(Rect{10, 40, 40, 20}), high = std::make_unique<View>(Rect{50, 40, 40, 20});
        low->setToolTip("Low");
        high->setToolTip("High");
        low_ = &view->addSubview(std::move(low));
        high_ = &view->addSubview(std::move(high));
        component->window().makeFirstResponder(view);
    }
    // A key that leads to a view, or to none.
    void keyTo(const View* target, int key = juce::KeyPress::tabKey) {
        view->also = [this, target](const std::string& word) {
            if (word.starts_with("key")) component->window().setKeyboardView(target);
        };
        component->keyPressed(juce::KeyPress(key));
        send(EventType::keyUp);
    }
    void send(EventType type) {
        Event event;
        event.type = type;
        component->window().sendEvent(event);
    }
    void rest(double seconds = KeyboardToolTip::restSeconds) { time.advance(seconds); }
    // The one that is to be seen; null for none.
    const juce::Component* tip() const {
        for (const juce::Component* child : component->getChildren())
            if (child->isVisible() && (child->getName() == tipOf(*low_) || child->getName() == tipOf(*high_)))
                return child;
        return nullptr;
    }
    static juce::String tipOf(const View& view) { return juce::String::fromUTF8(view.toolTip().c_str()); }
    juce::String shown() const { return tip() ? tip()->getName() : juce::String(); }

    View *low_ = nullptr, *high_ = nullptr;
};

TEST_F(KeyboardToolTipTest, ShowsAfterARestBesideTheViewThatAKeyLedTo) {
    keyTo(low_);
    rest(KeyboardToolTip::restSeconds - 0.1);
    EXPECT_EQ(shown(), "");
    rest(0.2);
    ASSERT_EQ(shown(), "Low");
    EXPECT_FALSE(tip()->getBounds().intersects(juce::Rectangle<int>(10, 40, 40, 20)));
    EXPECT_TRUE(component->getLocalBounds().contains(tip()->getBounds()));
}

TEST_F(KeyboardToolTipTest, GoesWithTheNextKeyAndDoesNotComeBackForTheSameView) {
    keyTo(low_);
    rest();
    ASSERT_EQ(shown(), "Low");
    keyTo(low_, 'x');
    EXPECT_EQ(shown(), "");
    rest(10);
    EXPECT_EQ(shown(), "");
}

TEST_F(KeyboardToolTipTest, AnotherKeyBeforeTheRestIsOverCallsItOff) {
    keyTo(low_);
    rest(1);
    keyTo(low_, '5');
    rest(10);
    EXPECT_EQ(shown(), "");
}

TEST_F(KeyboardToolTipTest, AWalkShowsTheLastViewOnly) {
    keyTo(low_);
    rest(1);
    keyTo(high_);
    rest(1);
    EXPECT_EQ(shown(), "");
    rest(0.6);
    EXPECT_EQ(shown(), "High");
}

TEST_F(KeyboardToolTipTest, GoesWhenThePointerMovesButNotWhileItRests) {
    keyTo(low_);
    rest();
    move({50, 40}); // where it was
    EXPECT_EQ(shown(), "Low");
    move({53, 40});
    EXPECT_EQ(shown(), "");
}

TEST_F(KeyboardToolTipTest, GoesWithAPressWhereThePointerRests) {
    keyTo(low_);
    rest();
    press({50, 40});
    EXPECT_EQ(shown(), "");
    release({50, 40});
}

TEST_F(KeyboardToolTipTest, GoesWithTheKeyboard) {
    keyTo(low_);
    rest();
    component->focusLost(juce::Component::focusChangedDirectly);
    EXPECT_EQ(shown(), "");
}

TEST_F(KeyboardToolTipTest, ThereIsNoneWhileAKeyIsHeldOrForAViewThatIsGone) {
    view->also = [this](const std::string& word) {
        if (word.starts_with("key")) component->window().setKeyboardView(low_);
    };
    send(EventType::keyDown); // and no release
    component->keyPressed(juce::KeyPress(juce::KeyPress::tabKey));
    rest(10);
    EXPECT_EQ(shown(), "");

    keyTo(nullptr);
    keyTo(high_);
    high_->removeFromSuperview();
    rest(10);
    EXPECT_EQ(shown(), "");
}

TEST_F(KeyboardToolTipTest, IsAsWideAsItsLongestLine) {
    low_->setToolTip("Cuts below.");
    high_->setToolTip("Cuts below.\nOn");
    keyTo(low_);
    rest();
    ASSERT_NE(tip(), nullptr);
    const int width = tip()->getWidth();
    keyTo(high_);
    rest();
    ASSERT_EQ(shown(), tipOf(*high_));
    EXPECT_EQ(tip()->getWidth(), width);
}

TEST_F(KeyboardToolTipTest, ThereIsNoneForAViewThatAPressLedTo) {
    component->window().setKeyboardView(low_);
    rest(10);
    EXPECT_EQ(shown(), "");
}

} // namespace
} // namespace QVM_NAMESPACE
