#include "plugin/lv2/BuiltBundle.h"
#include "support/RealtimeTrap.h"

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

using BuiltBundleTest = BuiltBundle;

// One host hands a size of the C library's as an integer.
TEST_F(BuiltBundleTest, TakesABlockLengthOfFourOrEightBytes) {
    for (const char* const type : {LV2_ATOM__Int, LV2_ATOM__Long}) {
        ASSERT_TRUE(insert(8, type)) << type;
        EXPECT_TRUE(isAll(run())) << type;
        remove();
    }
    ASSERT_TRUE(insert(4, LV2_ATOM__Int));
    EXPECT_TRUE(isAll(run()));
    remove();
    EXPECT_FALSE(insert(4, LV2_ATOM__URID)) << "no number";
}

TEST_F(BuiltBundleTest, TellsAllValuesWhenItStartsAndNothingOfItsOwnAccordAfterwards) {
    ASSERT_TRUE(insert());
    EXPECT_TRUE(isAll(run()));
    EXPECT_EQ(run(), Words());
    plugin_->deactivate(instance_);
    plugin_->activate(instance_);
    EXPECT_TRUE(isAll(run()));
}

TEST_F(BuiltBundleTest, AnswersRequestsForValues) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    control_.addGet(property("TiltGain"));
    EXPECT_EQ(run(), Words{"TiltGain=4.5"});
    control_.addGet({}, SLANTWISE_LV2_URI);
    EXPECT_TRUE(isAll(run()));
}

TEST_F(BuiltBundleTest, WhatTheHostSetsIsNeitherGivenBackNorAChangeOfTheSession) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    EXPECT_EQ(run(), Words());
}

TEST_F(BuiltBundleTest, TellsAllValuesOfARestoredStateAndSavesWhatItGot) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    run();
    const std::string saved = save();
    ASSERT_FALSE(saved.empty());
    remove();
    ASSERT_TRUE(insert());
    run();
    EXPECT_EQ(restore("StateString", saved), LV2_STATE_SUCCESS);
    const Words told = run();
    EXPECT_TRUE(isAll(told));
    EXPECT_EQ(std::ranges::count(told, "TiltGain=4.5"), 1) << "and no change of the session";
}

// Saved when the frequencies were told as positions: the tilt from 8000 to 20000, the low filter at 6000.
TEST_F(BuiltBundleTest, ReadsASessionSavedBeforeFrequenciesWereToldInHertz) {
    const std::string former = "139.SckLXE....vh....X........9C...IP..f9EA.PbZD...................rv.....A.f6Vz++sqQ..."
                               "................PAA....."
                               "..............................ED........f+H..........G....PTYlEVcrQG.....ADg+K.";
    ASSERT_TRUE(insert());
    run();
    EXPECT_EQ(restore("StateString", former + '\0'), LV2_STATE_SUCCESS);
    const Words told = run();
    EXPECT_TRUE(isAll(told));
    for (const char* const word :
         {"TiltGain=4.5", "FilterRangeHighHz=24000", "MeterMode=int 2", "OutputGain=-96", "HQMode=int 1"})
        EXPECT_EQ(std::ranges::count(told, word), 1) << word;
    EXPECT_NEAR(numberIn(told, "TiltRangeLowHz"), 133.597, 0.001);
    EXPECT_NEAR(numberIn(told, "TiltRangeHighHz"), 6555.53, 0.01);
    EXPECT_NEAR(numberIn(told, "FilterRangeLowHz"), 35.166, 0.001);
    EXPECT_EQ(save(), former + '\0') << "and nothing of it has changed";
}

// A session's automation, recorded by then.
TEST_F(BuiltBundleTest, ObeysTheFormerPositionsOfFrequencies) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltRangeLow"), 8000.0F);
    control_.addGet(property("TiltRangeLowHz"));
    EXPECT_NEAR(numberIn(run(), "TiltRangeLowHz"), 133.597, 0.001);
}

TEST_F(BuiltBundleTest, WhatItTellsAndIsSetAgainIsTheSame) {
    ASSERT_TRUE(insert());
    run();
    for (const float hertz : {10.0F, 10.1F, 63.5F, 1000.0F, 9999.9F, 23999.9F, 24000.0F}) {
        for (int again = 0; again < 3; ++again) {
            control_.addSet(property("TiltRangeLowHz"), hertz);
            control_.addSet(property("TiltLoudnessMode"), 3);
            control_.addGet(property("TiltRangeLowHz"));
            control_.addGet(property("TiltLoudnessMode"));
            const Words told = run();
            ASSERT_EQ(told.size(), 2U);
            EXPECT_EQ(numberIn(told, "TiltRangeLowHz"), hertz);
            EXPECT_EQ(told[1], "TiltLoudnessMode=int 3");
        }
    }
}

// The toolkit takes its lock of the callback in every block, and none for a value.
TEST_F(BuiltBundleTest, TellingAndSettingValuesTakesNoLockAndNoMemoryInRun) {
    ASSERT_TRUE(insert());
    const auto offences = [this] {
        notify_.offer();
        return realtime::offencesOf([this] { plugin_->run(instance_, frames); });
    };
    run();
    const realtime::Offences idle = offences();
    control_.addGet({});
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        control_.addSet(property(propertyName(*GetParameter(pid)).c_str()), 1);
    const realtime::Offences busy = offences();
    EXPECT_TRUE(isAll(notify_.words(SLANTWISE_LV2_URI)));
    EXPECT_EQ(busy.heapCalls, 0U) << busy;
    EXPECT_EQ(busy.systemCalls, 0U) << busy;
    EXPECT_EQ(busy.locks, idle.locks) << busy;
}

} // namespace
} // namespace QVM_NAMESPACE
