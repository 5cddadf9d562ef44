// Settings to the clipboard and back.
#include "editor/EditorFixture.h"
#include "editor/RecordingWorkspace.h"

#include "editor/surface/NoticeView.h"
#include "editor/surface/QVMPresetBar.h"
#include "platform/system/Log.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>
#include <random>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string page = "https://ferrowind.example/slantwise";
const std::string base = page + "/2.0.1";

class QVMKeyboardHandlerSettings : public EditorFixture {
protected:
    QVMKeyboardHandler& keyboard() { return ui_->keyboard(); }
    std::string address() { return keyboard().currentParametersURLEncoded(); }
    bool apply(const std::string& query) { return keyboard().applyURLEncodedPreset(base + "/?" + query); }
    bool paste(const std::string& text) {
        desktop_.clipboard = text;
        return keyboard().keyboardShortcutHandlePaste();
    }
    // As a user's hand, and the unit's answer.
    void set(std::uint32_t pid, float value) {
        userSets(pid, value);
        frame();
    }
    // Puts some controls off their initial values, and lets that be a step of its own.
    void makeAMess() {
        set(pidTiltGain, 4.5f);
        set(pidOutputGain, -12);
        set(pidFilterListenLow, 1);
        set(pidFilterSlopeLow, 24);
        time_.advance(1);
        delegate_.calls.clear();
    }

    RecordingWorkspace desktop_;
    std::vector<std::string> log_;
    ScopedLogSink sink_{[this](const std::string& line) { log_.push_back(line); }};
};

TEST_F(QVMKeyboardHandlerSettings, TheBaseIsThePageOfThisVersion) {
    EXPECT_EQ(keyboard().baseURLForPluginVersion(), base);
}

TEST_F(QVMKeyboardHandlerSettings, OnlyWhatIsNotInitialIsWrittenInTheOrderOfTheControls) {
    makeAMess();
    EXPECT_EQ(address(), base + "/?tg:4.5/out:-12/fll:1/fsl:24");
}

TEST_F(QVMKeyboardHandlerSettings, AllInitialAndProcessingOffIsTheBaseWithNothingBehindIt) {
    hostSets(pidMasterOnOff, 0);
    EXPECT_EQ(address(), base + "/?");
    EXPECT_TRUE(keyboard().applyURLEncodedPreset(address()));
    EXPECT_EQ(memoized(pidMasterOnOff), 1); // the switch is reset, as it is never written
}

TEST_F(QVMKeyboardHandlerSettings, AnXKeepsAParameterWhileTheRestReturns) {
    makeAMess();
    EXPECT_TRUE(apply("tg:x/out:3"));
    EXPECT_EQ(memoized(pidTiltGain), 4.5f);
    EXPECT_EQ(memoized(pidOutputGain), 3);
    EXPECT_EQ(memoized(pidFilterListenLow), 0);
    EXPECT_EQ(memoized(pidFilterSlopeLow), 12);
}

TEST_F(QVMKeyboardHandlerSettings, TheOlderQueryIsReadExactlyLikeTheCurrentOne) {
    makeAMess();
    EXPECT_TRUE(apply("tg:x/out:3.5/trl:120/nonsense:4"));
    const std::vector<float> current = memoized();
    makeAMess();
    EXPECT_TRUE(apply("tg=x&out=3.5&trl=120&nonsense=4"));
    EXPECT_EQ(memoized(), current);
}

TEST_F(QVMKeyboardHandlerSettings, AValueKeyedByTheFullNameIsResetFirstAndThenSet) {
    delegate_.sent.clear();
    EXPECT_TRUE(apply("TiltGain:6"));
    std::vector<float> sent;
    for (const auto& each : delegate_.sent)
        if (each.pid == 1) sent.push_back(each.hostValue);
    EXPECT_THAT(sent, ElementsAre(0, 6));
}

TEST_F(QVMKeyboardHandlerSettings, AParameterWithoutAMinimalNameIsWrittenAndReadByItsFullOne) {
    const std::string minimalName = std::exchange(GetParameter(pidTiltGain)->minimalName, "");
    set(pidTiltGain, 6);
    EXPECT_EQ(address(), base + "/?TiltGain:6");
    delegate_.sent.clear();
    EXPECT_TRUE(keyboard().applyURLEncodedPreset(address()));
    EXPECT_EQ(memoized(pidTiltGain), 6);
    EXPECT_EQ(std::count_if(delegate_.sent.begin(), delegate_.sent.end(), [](const auto& s) { return s.pid == 1; }), 2);
    GetParameter(pidTiltGain)->minimalName = minimalName;
}

TEST_F(QVMKeyboardHandlerSettings, TheProductInThePathMayBeAnother) {
    EXPECT_TRUE(keyboard().applyURLEncodedPreset("https://other.example/echo/1.0/?tg:6"));
    EXPECT_EQ(memoized(pidTiltGain), 6);
}

TEST_F(QVMKeyboardHandlerSettings, ValuesOutOfRangeAreItsEndsAndUnknownKeysChangeNothing) {
    const std::vector<float> before = memoized();
    EXPECT_TRUE(apply("tg:999/trl:-5/loudness:2/out:-3e38/tal:9/p:4"));
    EXPECT_EQ(memoized(pidTiltGain), 18);
    EXPECT_EQ(memoized(pidTiltRangeLow), 10);
    EXPECT_EQ(memoized(pidOutputGain), -96);
    EXPECT_EQ(memoized(pidTiltLoudnessMode), 3);
    EXPECT_EQ(ui_->currentPreset(), 0u);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (pid == 1 || pid == 2 || pid == 6 || pid == 7) continue;
        EXPECT_EQ(memoized(pid), before[pid]) << pid;
    }
}

TEST_F(QVMKeyboardHandlerSettings, SwitchesAndModesAreSentWhatStandsThereAndTheUnitMakesThemWhole) {
    delegate_.sent.clear();
    EXPECT_TRUE(apply("fll:0.3/flh:-4/tal:2.7"));
    const auto lastSent = [this](std::uint32_t pid) {
        float value = -1;
        for (const auto& each : delegate_.sent)
            if (each.pid == pid) value = each.hostValue;
        return value;
    };
    EXPECT_EQ(lastSent(pidFilterListenLow), 0.3f);
    EXPECT_EQ(lastSent(pidFilterListenHigh), 0);
    EXPECT_EQ(lastSent(pidTiltLoudnessMode), 2.7f);
    frame();
    EXPECT_EQ(memoized(pidFilterListenLow), 1);
    EXPECT_EQ(memoized(pidFilterListenHigh), 0);
    EXPECT_EQ(memoized(pidTiltLoudnessMode), 2);
}

TEST_F(QVMKeyboardHandlerSettings, AnAddressWithoutSettingsReturnsEverythingToItsInitialValue) {
    makeAMess();
    EXPECT_TRUE(paste(base));
    for (const std::uint32_t pid : {1u, 7u, 13u, 14u})
        EXPECT_EQ(memoized(pid), GetParameter(pid)->initialValue);
}

TEST_F(QVMKeyboardHandlerSettings, ThePowerSwitchMayBeNamed) {
    EXPECT_TRUE(apply("power:0/tg:3"));
    EXPECT_EQ(memoized(pidMasterOnOff), 0);
    EXPECT_EQ(memoized(pidTiltGain), 3);
}

TEST_F(QVMKeyboardHandlerSettings, APasteIsOneUndoStep) {
    makeAMess();
    const std::vector<float> before = memoized();
    EXPECT_TRUE(paste(base + "/?tg:1/trl:100/trh:9000/fsh:36"));
    frame();
    time_.advance(1);
    const std::vector<float> pasted = memoized();
    keyboard().keyboardShortcutUndo();
    EXPECT_EQ(memoized(), before);
    keyboard().keyboardShortcutRedo();
    EXPECT_EQ(memoized(), pasted);
    EXPECT_FALSE(stack().canRedo());
}

TEST_F(QVMKeyboardHandlerSettings, WhatIsRefusedChangesNothingAndSaysWhy) {
    makeAMess();
    const std::vector<float> before = memoized();
    for (const std::string& text :
         {std::string("hello"), std::string(), base + "/?tg:six", base + "/?tg:nan", base + "/?out:3/tg:inf",
          page + "/", page, std::string("https://a.example/?tg:1"), base + "/?tg:1 6",
          base + "/?tg:1/" + std::string(1 << 20, 'a'), std::string(1 << 20, 'x'), std::string("\xFF\xFE\0\x01", 4)}) {
        log_.clear();
        EXPECT_FALSE(paste(text)) << text.substr(0, 80);
        ASSERT_EQ(log_.size(), 1u);
        ASSERT_TRUE(ui_->parts().notice() && !ui_->parts().notice()->isHidden());
        EXPECT_EQ(log_.front(), "settings address refused: " + ui_->parts().notice()->why() + "\n");
        EXPECT_FALSE(ui_->parts().notice()->why().empty());
    }
    frame();
    time_.advance(1);
    EXPECT_EQ(memoized(), before);
    EXPECT_THAT(delegate_.calls, IsEmpty());
    // The last step is still the one before.
    keyboard().keyboardShortcutUndo();
    for (const std::uint32_t pid : {1u, 7u, 13u, 14u})
        EXPECT_EQ(memoized(pid), GetParameter(pid)->initialValue);
}

TEST_F(QVMKeyboardHandlerSettings, APictureInTheClipboardChangesNothing) {
    makeAMess();
    desktop_.clipboard.reset();
    EXPECT_FALSE(ui_->session().settings().canPaste());
    EXPECT_FALSE(keyboard().keyboardShortcutHandlePaste());
    EXPECT_EQ(ui_->parts().notice()->why(), "there is no text in the clipboard");
    EXPECT_THAT(delegate_.calls, IsEmpty());
}

TEST_F(QVMKeyboardHandlerSettings, TheMenuOffersToPasteWhatBeginsAsThisProductsAddress) {
    const auto isOffered = [this](std::optional<std::string> text) {
        desktop_.clipboard = std::move(text);
        return ui_->session().settings().canPaste();
    };
    EXPECT_TRUE(isOffered(base + "/?"));
    EXPECT_TRUE(isOffered(page + "/1.0/?tg=6"));
    EXPECT_FALSE(isOffered("https://ferrowind.example/echo/2.0.1/?tg:6"));
    EXPECT_FALSE(isOffered("https://other.example/slantwise/2.0.1/?tg:6"));
    EXPECT_TRUE(isOffered(" \n" + base + "/?tg:6\r\n"));
    EXPECT_TRUE(isOffered(base + "/?tg:six")); // and says what is wrong when it is pasted
    EXPECT_TRUE(isOffered(page));
    EXPECT_FALSE(isOffered(page.substr(0, page.size() - 1)));
    EXPECT_FALSE(isOffered("see " + base + "/?tg:6"));
    EXPECT_FALSE(isOffered("slantwise"));
    EXPECT_FALSE(isOffered(std::nullopt));
}

TEST_F(QVMKeyboardHandlerSettings, ANoticeGoesByItselfAndAPasteThatWorksMakesNone) {
    EXPECT_TRUE(paste(" " + base + "/?tg:6\n"));
    EXPECT_EQ(ui_->parts().notice(), nullptr);
    EXPECT_FALSE(paste("hello"));
    EXPECT_FALSE(ui_->parts().notice()->isHidden());
    time_.advance(NoticeView::shownSeconds + NoticeView::fadeSeconds + 0.1);
    EXPECT_TRUE(ui_->parts().notice()->isHidden());
}

TEST_F(QVMKeyboardHandlerSettings, ANoticeStandsOverTheControlsInEveryLayoutAndTakesNoClicks) {
    EXPECT_FALSE(paste("https://a.example/?tg:1"));
    for (const std::int32_t layout : {0, 1, 2, 0}) {
        ui_->requestFrame(layout);
        const Rect frame = ui_->parts().notice()->frame();
        EXPECT_GE(frame.x, 0) << layout;
        EXPECT_LE(frame.maxX(), ui_->bounds().width) << layout;
        EXPECT_GE(frame.y, layout == 2 ? 0 : ui_->presetBar()->frame().maxY()) << layout;
        EXPECT_EQ(ui_->subviews().back().get(), ui_->parts().notice()) << layout;
        EXPECT_NE(ui_->hitTest(frame.center()), ui_->parts().notice()) << layout;
    }
}

TEST_F(QVMKeyboardHandlerSettings, TheMenuCopiesAndPastes) {
    makeAMess();
    const auto choose = [this](const std::string& title) {
        const auto menu = ui_->menuForEvent(mouseEvent(EventType::rightMouseDown, {10, 15}));
        const auto item =
            std::find_if(menu->items.begin(), menu->items.end(), [&](const auto& i) { return i.title == title; });
        ASSERT_TRUE(item != menu->items.end() && item->enabled) << title;
        item->action();
    };
    choose("Copy all settings as URL to Clipboard");
    EXPECT_EQ(desktop_.clipboard, base + "/?tg:4.5/out:-12/fll:1/fsl:24");
    const std::vector<float> copied = memoized();
    ui_->resetInitialValues();
    choose("Paste all settings from Clipboard");
    EXPECT_EQ(memoized(), copied);
}

TEST_F(QVMKeyboardHandlerSettings, ThousandsOfStatesComeBackAsTheyWere) {
    std::mt19937 random(11);
    const auto shown = [this] {
        std::vector<float> all;
        for (const QVMParameterControl* each : ui_->parameterControls())
            all.push_back(each->floatValue());
        return all;
    };
    for (int round = 0; round < 3000; ++round) {
        for (const QVMParameterControl* each : ui_->parameterControls()) {
            const QVMParameter& parameter = *each->parameter();
            if (parameter.pid == 0 || random() % 3 == 0) continue;
            std::uniform_real_distribution<float> range(parameter.minValue, parameter.maxValue);
            delegate_.unit[parameter.pid] = parameter.reverseCastValue(
                parameter.normalizeFloatValue(range(random), static_cast<std::uint32_t>(random() % 3)));
        }
        frame();
        const std::vector<float> before = shown();
        keyboard().keyboardShortcutHandleCopy();
        const std::string copied = *desktop_.clipboard;
        ui_->resetInitialValues();
        frame();
        ASSERT_TRUE(keyboard().keyboardShortcutHandlePaste()) << copied;
        frame();
        ASSERT_EQ(shown(), before) << copied;
        ASSERT_EQ(address(), copied);
    }
}

} // namespace
} // namespace QVM_NAMESPACE
