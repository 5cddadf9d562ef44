// What hosts hear, of every sequence that the controls can report: through the view, which sends it to the unit.
#include "host/GestureLedger.h"

#include "host/HostViewFixture.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

class GestureLedgerTest : public HostView, public GestureListener {
protected:
    GestureLedgerTest() {
        bind();
        pressable_ = &window_.setContentView(std::make_unique<View>(Rect{0, 0, 10, 10}));
        presses_ = ledger_->follow(window_);
    }

    // What controls and user do, a word each, with the number of the parameter (1 when it is not said): "value"
    // (another one each time), "same" (that the unit holds), "beyond" (the end of the range), "began", "ended" and
    // "discrete" are reports, "down" and "up" are the button, "lost" is a press whose release another program gets,
    // "turn" is the end of a turn of the run loop.
    void play(const std::string& sequence) {
        std::istringstream words(sequence);
        for (std::string word; words >> word;)
            playOne(word.substr(0, word.find_first_of("123")), word);
    }
    void playOne(const std::string& what, const std::string& word) {
        const std::uint32_t pid = what == word ? 1 : static_cast<std::uint32_t>(word.back() - '0');
        const auto& [low, high] = unit.limits[pid];
        const float held = unit.values[pid];
        if (what == "value") delegate().interfaceUpdatedParameterKeyedValue(pid, held == low ? high : low);
        if (what == "same") delegate().interfaceUpdatedParameterKeyedValue(pid, held);
        if (what == "beyond") delegate().interfaceUpdatedParameterKeyedValue(pid, high + 1);
        if (what == "began") delegate().interfaceBeganInteractionWithParameterKeyedEvent(ui(), pid, nullptr);
        if (what == "ended") delegate().interfaceEndedInteractionWithParameterKeyed(ui(), pid);
        if (what == "discrete") delegate().interfaceDiscretelyInteractedWithParameterKeyed(ui(), pid);
        if (what == "down") button(EventType::mouseDown);
        if (what == "up") button(EventType::mouseUp);
        if (what == "lost") window_.cancelPress();
        if (what == "turn") time.settle();
    }
    void button(EventType type) {
        Event event;
        event.type = type;
        event.locationInWindow = {5, 5};
        window_.sendEvent(event);
    }
    // What the host heard since the last time: "b1 v1 e1".
    std::string heard() { return std::exchange(heard_, {}); }
    std::string heardOf(const std::string& sequence) {
        play(sequence);
        return heard();
    }

    int editsOf(const std::string& sequence) {
        edits_ = 0;
        play(sequence);
        return edits_;
    }

    std::string heard_;
    int edits_ = 0;              // that ended
    int seen_ = 0;               // edits that such a host would count itself, by comparing the values
    std::function<void()> also_; // with each that is heard
    Window window_;
    View* pressable_ = nullptr;
    std::unique_ptr<GestureLedger> ledger_ = std::make_unique<GestureLedger>(unit, *this);
    ObservationToken presses_;

private:
    void gestureBegan(std::uint32_t pid) override {
        isOpen_.set(pid);
        hear('b', pid);
    }
    void valueChanged(std::uint32_t pid) override {
        if (std::exchange(known_[pid], unit.values[pid]) != unit.values[pid]) hasSeenAnother_ = true;
        hear('v', pid);
    }
    void gestureEnded(std::uint32_t pid) override {
        isOpen_.reset(pid);
        if (isOpen_.none()) seen_ += std::exchange(hasSeenAnother_, false);
        hear('e', pid);
    }
    void editEnded() override { ++edits_; }
    void hear(char what, std::uint32_t pid) {
        heard_ += (heard_.empty() ? "" : " ") + std::string(1, what) + std::to_string(pid);
        if (also_) also_();
    }
    std::bitset<FakeAudioUnit::parameterCount> isOpen_;
    std::array<float, FakeAudioUnit::parameterCount> known_ = [this] {
        std::array<float, FakeAudioUnit::parameterCount> values{};
        std::copy(std::begin(unit.values), std::end(unit.values), values.begin());
        return values;
    }();
    bool hasSeenAnother_ = false;
};

// These are the sequences of the product's controls. An "ended" and a "discrete" carry the value once more.
TEST_F(GestureLedgerTest, WhatHostsHear) {
    const struct {
        const char *what, *reported, *heard;
    } rows[] = {
        {"a click", "down began ended up", "b1 v1 e1"},
        {"a click that moves the handle", "down value began ended up", "b1 v1 v1 e1"},
        {"a drag", "down value began turn value turn value ended up turn", "b1 v1 v1 v1 v1 e1"},
        {"a reset by Alt-click", "down value began turn turn up turn", "b1 v1 e1"},
        {"a reset, Alt let go before the button", "down value began turn ended up turn", "b1 v1 v1 e1"},
        {"a drag that ends with Alt held", "down value began turn value turn up turn", "b1 v1 v1 e1"},
        {"a press with Control and Alt", "down began turn up turn", "b1 e1"},
        {"a press that only its end reports", "down ended up turn", "b1 v1 e1"},
        {"a press taken away, of which the view is told", "down value began turn ended lost turn", "b1 v1 v1 e1"},
        {"a press taken away from a reset", "down value began turn lost turn", "b1 v1 e1"},
        {"a press whose release never came", "down value began turn down value began ended up", "b1 v1 e1 b1 v1 v1 e1"},
        {"a step by a key", "value discrete turn", "b1 v1 v1 e1"},
        {"two steps by a key that is held", "value discrete turn value discrete turn", "b1 v1 v1 e1 b1 v1 v1 e1"},
        {"a step by a key in mid-drag", "down value began value discrete turn value ended up",
         "b1 v1 v1 v1 e1 b1 v1 v1 e1"},
        {"a reset from the menu", "value turn", "b1 v1 e1"},
        {"a choice from the menu", "value discrete turn", "b1 v1 v1 e1"},
        {"a preset, undo, A/B, paste", "value1 value2 value3 turn", "b1 v1 b2 v2 b3 v3 e1 e2 e3"},
        {"a preset that the release of a press chooses", "down turn value2 value1 up turn", "b2 v2 b1 v1 e1 e2"},
        {"a drag that pushes the partner", "down value2 began2 value2 value3 turn value2 value3 ended2 up turn",
         "b2 v2 v2 b3 v3 v2 v3 v2 e2 e3"},
        {"a step that pushes the partner", "value2 value3 discrete2 turn", "b2 v2 b3 v3 v2 e2 e3"},
        {"a drag of the band between two", "down began2 began3 value2 value3 turn value2 value3 ended2 ended3 up",
         "b2 b3 v2 v3 v2 v3 v2 e2 v3 e3"},
        {"a drag during which the user undoes", "down value began turn value3 value1 turn ended up",
         "b1 v1 b3 v3 v1 v1 e1 e3"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(heardOf(row.reported), row.heard) << row.what;
}

TEST_F(GestureLedgerTest, NothingNestsNothingIsLostAndAllEndsWhateverIsReported) {
    const std::string letters[] = {"value", "same", "began", "ended", "discrete", "down", "up", "turn"};
    constexpr int length = 5;
    const auto count = static_cast<int>(std::pow(std::size(letters), length));
    for (int code = 0; code < count; ++code) {
        std::string sequence;
        int values = 0; // that were reported
        for (int i = 0, rest = code; i < length; ++i, rest /= static_cast<int>(std::size(letters))) {
            const std::string& letter = letters[rest % static_cast<int>(std::size(letters))];
            values += letter == "value" || letter == "same" || letter == "ended" || letter == "discrete";
            sequence += letter + ' ';
        }
        const std::string told = heardOf(sequence + "up turn");
        bool isOpen = false;
        for (const char what : told) {
            ASSERT_FALSE(what == 'b' && isOpen) << "nested: " << sequence << ": " << told;
            ASSERT_FALSE((what == 'v' || what == 'e') && !isOpen) << "outside: " << sequence << ": " << told;
            if (what == 'b' || what == 'e') isOpen = what == 'b';
        }
        ASSERT_FALSE(isOpen) << "never ended: " << sequence << ": " << told;
        ASSERT_EQ(std::exchange(edits_, 0), std::exchange(seen_, 0)) << sequence << ": " << told;
        ASSERT_EQ(std::count(told.begin(), told.end(), 'v'), values) << sequence << ": " << told;
    }
}

TEST_F(GestureLedgerTest, AnEditEndsOnceWithTheLastOfItsGestures) {
    EXPECT_EQ(editsOf("down value began turn value"), 0) << "held";
    EXPECT_EQ(editsOf("ended up turn"), 1) << "a drag";
    EXPECT_EQ(editsOf("value discrete turn value discrete turn"), 2) << "two steps by a key";
    EXPECT_EQ(editsOf("value1 value2 value3 turn"), 1) << "a preset, undo, A/B, paste";
    EXPECT_EQ(editsOf("down value2 began2 value2 value3 turn value2 value3 ended2 up turn"), 1) << "with a partner";
    EXPECT_EQ(editsOf("down began2 began3 value2 value3 turn value2 value3 ended2 ended3 up"), 1) << "a band";
}

TEST_F(GestureLedgerTest, WhatChangesNoValueOrComesFromTheHostIsNoEdit) {
    EXPECT_EQ(editsOf("down began turn up turn"), 0) << "a press with Control and Alt";
    EXPECT_EQ(editsOf("down began turn ended up turn"), 0) << "a click on the handle";
    EXPECT_EQ(editsOf("down same began ended up turn"), 0) << "a click on the track, where the handle is";
    EXPECT_EQ(editsOf("down same began turn up turn"), 0) << "a reset by Alt-click of what is at its initial value";
    EXPECT_EQ(editsOf("same discrete turn"), 0) << "a step by a key at the end of the range";
    EXPECT_EQ(editsOf("down value began turn up turn"), 1) << "a reset that changes the value";
    EXPECT_EQ(editsOf("down same began value turn value ended up turn"), 1) << "a drag that begins where it was";
    EXPECT_EQ(editsOf("same1 same2 value3 turn"), 1) << "a preset that changes one value";
    EXPECT_EQ(editsOf("same1 same2 same3 turn"), 0) << "a preset that changes none";
    AudioUnitSetParameter(&unit, 1, kAudioUnitScope_Global, 0, 0.5F, 0);
    EXPECT_EQ(editsOf("turn"), 0);
    EXPECT_EQ(editsOf("down began ended up turn"), 0) << "a click on the value that the host has set";
    EXPECT_EQ(editsOf("down beyond began up turn"), 1);
    EXPECT_EQ(editsOf("down beyond began beyond ended up turn"), 0) << "a drag beyond the end that it is at";
}

TEST_F(GestureLedgerTest, WhatAPressHoldsEndsAtItsEndAndNotBefore) {
    EXPECT_EQ(heardOf("down value began"), "b1 v1");
    time.advance(60);
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(heardOf("up"), "e1") << "at once";
    time.advance(60);
    EXPECT_EQ(heard(), "");
}

TEST_F(GestureLedgerTest, WhatNothingHoldsEndsWithTheTurnOfTheRunLoop) {
    EXPECT_EQ(heardOf("value value2 value"), "b1 v1 b2 v2 v1");
    EXPECT_EQ(heardOf("turn"), "e1 e2");
}

TEST_F(GestureLedgerTest, ItLooksAtNothingWhileAPressIsHeld) {
    time.advance(5); // the editor is built
    ASSERT_EQ(RunLoop::main().nextDue(), std::nullopt);
    play("down value began turn");
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt) << "it is told";
}

TEST_F(GestureLedgerTest, APressThatLosesItsViewEnds) {
    EXPECT_EQ(heardOf("down value began turn"), "b1 v1");
    window_.takeContentView();
    EXPECT_EQ(heard(), "e1");
}

TEST_F(GestureLedgerTest, AClosedWindowHoldsNothing) {
    EXPECT_EQ(heardOf("down value began turn"), "b1 v1");
    presses_.reset();
    EXPECT_EQ(heard(), "e1");
    EXPECT_EQ(heardOf("value turn"), "b1 v1 e1");
    EXPECT_EQ(heardOf("up turn"), "");
}

TEST_F(GestureLedgerTest, AWindowThatIsPressedAlreadyHoldsWhatIsOpen) {
    presses_.reset();
    EXPECT_EQ(heardOf("down value"), "b1 v1");
    presses_ = ledger_->follow(window_);
    EXPECT_EQ(heardOf("turn"), "");
    EXPECT_EQ(heardOf("up"), "e1");
}

TEST_F(GestureLedgerTest, TheWindowThatWasFollowedBeforeHasNoSay) {
    Window other;
    ObservationToken later = ledger_->follow(other);
    EXPECT_EQ(heardOf("down value began turn up"), "b1 v1 e1") << "with its turn";
    other.setContentView(std::make_unique<View>(Rect{0, 0, 10, 10}));
    Event event;
    event.type = EventType::mouseDown;
    other.sendEvent(event);
    EXPECT_EQ(heardOf("value"), "b1 v1");
    presses_.reset();
    EXPECT_EQ(heardOf("turn"), "");
    later.reset();
    EXPECT_EQ(heard(), "e1");
}

TEST_F(GestureLedgerTest, WhatHasNoWindowEndsAllTheSame) {
    presses_.reset();
    ledger_ = std::make_unique<GestureLedger>(unit, *this);
    EXPECT_EQ(heardOf("value began turn"), "b1 v1 e1");
}

TEST_F(GestureLedgerTest, AfterItWentNothingIsHeard) {
    play("value");
    presses_.reset();
    ledger_.reset();
    heard();
    EXPECT_EQ(heardOf("value began ended turn"), "");
}

// Some hosts set a value in answer to the one they were told; they do it on the spot.
TEST_F(GestureLedgerTest, AHostMayAnswerOnTheSpot) {
    int answers = 0;
    also_ = [&] {
        if (answers++ < 3) AudioUnitSetParameter(&unit, pidTiltGain, kAudioUnitScope_Global, 0, 0.5F, 0);
    };
    EXPECT_EQ(heardOf("down value began turn ended up turn"), "b1 v1 v1 e1");
}

TEST_F(GestureLedgerTest, WhatAnotherThreadSendsIsHeardInTheNextTurn) {
    std::thread([this] {
        const AudioUnitParameter gain{&unit, 1, kAudioUnitScope_Global, 0};
        AUParameterSet(nullptr, nullptr, &gain, 0.25F, 0);
    }).join();
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(heardOf("turn"), "b1 v1 e1");
}

TEST_F(GestureLedgerTest, EachUnitHasItsOwn) {
    FakeAudioUnit another;
    const AudioUnitParameter gain{&another, 1, kAudioUnitScope_Global, 0};
    AUParameterSet(nullptr, nullptr, &gain, 0.25F, 0);
    time.settle();
    EXPECT_EQ(heard(), "");
}

} // namespace
} // namespace QVM_NAMESPACE
