// The keyboard in jalv: what the editor takes is told by what the plug-in then sends, what it leaves by the keys that
// the host's window is given.
#include "plugin/host/Jalv.h"
#include "plugin/host/TabStops.h"
#include "plugin/lv2/Properties.h"

#include "description/Description.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <string>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class JalvKeys : public Jalv {
protected:
    void clickOnGain() { clickOnControl(map_.handleOf(pidTiltGain, 0)); }

    // Types a key and waits until the parameter, and no other, has moved. A value may be told twice, the second time
    // late.
    void movesOnly(std::uint32_t pid, const char* key) {
        const std::size_t before = sent().size();
        const std::string wanted = propertyName(*GetParameter(pid));
        screen_.typeKey(key);
        EXPECT_TRUE(comesTrue([&] {
            const auto all = sent();
            return std::any_of(all.begin() + static_cast<std::ptrdiff_t>(before), all.end(),
                               [&](const Sent& each) { return each.codename == wanted; });
        })) << key
            << " for " << pid;
        std::map<std::string, double> values;
        const auto all = sent();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto known = values.find(all[i].codename);
            const bool isMove = known == values.end() || known->second != all[i].value;
            if (i >= before && isMove) {
                EXPECT_EQ(all[i].codename, wanted) << key;
            }
            values[all[i].codename] = all[i].value;
        }
    }
};

TEST_F(JalvKeys, TabWalksThroughAllControlsAndBack) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnGain();
    for (const TabStop& stop : tabStops) {
        movesOnly(stop.pid, stop.there);
        screen_.typeKey("Tab");
    }
    for (auto stop = tabStops.rbegin(); stop != tabStops.rend(); ++stop) {
        typeWith("Shift_L", "Tab");
        movesOnly(stop->pid, stop->back);
    }
    for (const TabStop& stop : tabStops)
        EXPECT_NEAR(shown(stop.pid), GetParameter(stop.pid)->initialValue,
                    GetParameter(stop.pid)->initialValue * 1e-3 + 1e-3);
    EXPECT_THAT(hostKeys(), IsEmpty());
}

TEST_F(JalvKeys, AFrequencyIsTypedInThousands) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnControl(map_.handleOf(pidTiltRangeLow, 20));
    type({"1", "period", "5", "k", "Return"});
    EXPECT_TRUE(becomes(2, 1500, 0.5)) << shown(2);
    EXPECT_THAT(hostKeys(), IsEmpty());
}

TEST_F(JalvKeys, ArrowsStepWithShiftAndControl) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnGain();
    type({"Right"});
    EXPECT_TRUE(becomes(pidTiltGain, 0.5, 1e-3)) << shown(pidTiltGain);
    typeWith("Control_L", "Right");
    EXPECT_TRUE(becomes(pidTiltGain, 0.6, 1e-3)) << shown(pidTiltGain);
    typeWith("Shift_L", "Up");
    EXPECT_TRUE(becomes(pidTiltGain, 1.5, 1e-3)) << shown(pidTiltGain);
    EXPECT_THAT(hostKeys(), IsEmpty());
}

TEST_F(JalvKeys, ReturnFlipsASwitch) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnControl(map_.frameOf(pidFilterListenLow).center()); // which flips it too
    EXPECT_TRUE(becomes(13, 1, 0));
    type({"Return"});
    EXPECT_TRUE(becomes(13, 0, 0));
    type({"Return"});
    EXPECT_TRUE(becomes(13, 1, 0));
}

TEST_F(JalvKeys, TheSpaceBarReachesTheHostWithAControlInFocusAndWithNone) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    screen_.typeKey("space");
    EXPECT_TRUE(hostGets({"space"})) << "before any click";
    clickOnGain();
    screen_.typeKey("space");
    EXPECT_TRUE(hostGets({"space", "space"})) << "while the editor has the keyboard";
    screen_.typeKey("Escape");
    EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; }));
    screen_.typeKey("space");
    EXPECT_TRUE(hostGets({"space", "space", "space"})) << "after it was given back";
}

// Some have no name in the editor's toolkit.
TEST_F(JalvKeys, AllKeysThatTheEditorDoesNotTakeReachTheHost) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnGain();
    type({"m", "F5", "Home", "Print", "XF86AudioPlay", "space"});
    EXPECT_TRUE(hostGets({"m", "F5", "Home", "Print", "AudioPlay", "space"})) << testing::PrintToString(hostKeys());
}

// While the editor has the keyboard; Control and Q end jalv.
TEST_F(JalvKeys, AShortcutReachesTheHost) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnGain();
    screen_.typeKey("q");
    EXPECT_TRUE(hostGets({"q"}));
    rest(0.3);
    EXPECT_TRUE(program_->isRunning()) << "the negative control: Q alone ends nothing";
    typeWith("Control_L", "q");
    EXPECT_EQ(program_->exitStatus(10), 0) << textOf(log_);
}

TEST_F(JalvKeys, TheMenuKeyLeadsToThePresetsAndEscapeClosesThem) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    clickOnGain();
    chooseFromMenu({"Up", "Right", "Return"});
    const Rect list{0, 32, 180, 240};
    EXPECT_TRUE(comesTrue([&] { return pictureOf(list).countOf(0xFFFFFF, 2) < 1000; })) << "the list is on its way";
    type({"Down"});
    EXPECT_TRUE(comesTrue([this] { return shown(pidTiltGain) != 0; })) << "the next preset";
    const Picture open = wholePicture();
    type({"Escape"});
    EXPECT_TRUE(comesTrue([&] { return wholePicture().differingPixels(open) > 20000; })) << "the list is closed";
    EXPECT_THAT(hostKeys(), IsEmpty());
    EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; })) << "the host has the keyboard";
    screen_.typeKey("space");
    EXPECT_TRUE(hostGets({"space"}));
}

} // namespace
} // namespace QVM_NAMESPACE
