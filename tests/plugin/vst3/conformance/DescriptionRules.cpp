// What the plug-in says of itself: units, programs, parameters, buses and sample sizes.
#include "plugin/host/Vst3Process.h"
#include "plugin/vst3/conformance/ConformanceRule.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivstunits.h>

#include <set>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

void unitsAndProgramLists(Vst3UnderTest& plugin) {
    const FUnknownPtr<Vst::IUnitInfo> units(&plugin.controller());
    ASSERT_TRUE(units);
    std::set<Vst::UnitID> ids;
    std::set<Vst::ProgramListID> lists, wanted;
    for (int32 i = 0; i < units->getProgramListCount(); ++i) {
        Vst::ProgramListInfo list;
        ASSERT_EQ(units->getProgramListInfo(i, list), kResultTrue);
        EXPECT_TRUE(lists.insert(list.id).second);
        EXPECT_GE(list.id, 0);
        EXPECT_GT(list.programCount, 0);
        for (int32 program = 0; program < list.programCount; ++program) {
            Vst::String128 name = {};
            EXPECT_EQ(units->getProgramName(list.id, program, name), kResultTrue);
            EXPECT_NE(plainText(name), "") << program;
        }
    }
    ASSERT_GE(units->getUnitCount(), 1);
    for (int32 i = 0; i < units->getUnitCount(); ++i) {
        Vst::UnitInfo unit;
        ASSERT_EQ(units->getUnitInfo(i, unit), kResultTrue);
        EXPECT_TRUE(ids.insert(unit.id).second);
        EXPECT_NE(plainText(unit.name), "");
        EXPECT_EQ(unit.parentUnitId, unit.id == Vst::kRootUnitId ? Vst::kNoParentUnitId : Vst::kRootUnitId);
        if (unit.programListId != Vst::kNoProgramListId) wanted.insert(unit.programListId);
    }
    EXPECT_TRUE(ids.count(Vst::kRootUnitId));
    EXPECT_EQ(wanted, lists) << "each list is a unit's, and each unit's is there";
    Vst::UnitInfo none;
    EXPECT_NE(units->getUnitInfo(units->getUnitCount(), none), kResultTrue);
    EXPECT_NE(units->getUnitInfo(-1, none), kResultTrue);
    for (const Vst::ParameterInfo& info : plugin.instance().parameters()) {
        EXPECT_TRUE(ids.count(info.unitId)) << plainText(info.title);
    }
}

void parametersAreWellFormed(Vst3UnderTest& plugin) {
    std::set<Vst::ParamID> ids;
    int bypasses = 0;
    for (const Vst::ParameterInfo& info : plugin.instance().parameters()) {
        const std::string title = plainText(info.title);
        EXPECT_TRUE(ids.insert(info.id).second) << title;
        EXPECT_LT(info.id, 0x80000000U) << title << ": the upper half is the hosts'";
        EXPECT_NE(title, "");
        EXPECT_GE(info.defaultNormalizedValue, 0) << title;
        EXPECT_LE(info.defaultNormalizedValue, 1) << title;
        EXPECT_GE(info.stepCount, 0) << title;
        const auto has = [&info](int32 flag) { return (info.flags & flag) != 0; };
        EXPECT_FALSE(has(Vst::ParameterInfo::kCanAutomate) && has(Vst::ParameterInfo::kIsReadOnly)) << title;
        EXPECT_FALSE(has(Vst::ParameterInfo::kIsHidden) && has(Vst::ParameterInfo::kCanAutomate)) << title;
        EXPECT_FALSE(has(Vst::ParameterInfo::kIsList) && info.stepCount == 0) << title;
        if (!has(Vst::ParameterInfo::kIsBypass)) continue;
        ++bypasses;
        EXPECT_EQ(info.stepCount, 1);
        EXPECT_TRUE(has(Vst::ParameterInfo::kCanAutomate));
    }
    EXPECT_EQ(bypasses, 1);
    Vst::ParameterInfo none;
    EXPECT_NE(plugin.controller().getParameterInfo(-1, none), kResultTrue);
    EXPECT_NE(plugin.controller().getParameterInfo(plugin.controller().getParameterCount(), none), kResultTrue);
}

void valuesGoToTextAndPlainAndBack(Vst3UnderTest& plugin) {
    for (const Vst::ParameterInfo& info : plugin.instance().parameters()) {
        const std::string title = plainText(info.title);
        const int32 steps = info.stepCount > 0 ? info.stepCount : 16;
        for (int32 i = 0; i <= steps; ++i) {
            const double value = static_cast<double>(i) / steps;
            Vst::String128 text = {};
            ASSERT_EQ(plugin.controller().getParamStringByValue(info.id, value, text), kResultTrue) << title;
            EXPECT_NE(plainText(text), "") << title;
            Vst::ParamValue again = -1;
            ASSERT_EQ(plugin.controller().getParamValueByString(info.id, text, again), kResultTrue) << title;
            Vst::String128 sameText = {};
            plugin.controller().getParamStringByValue(info.id, again, sameText);
            EXPECT_EQ(plainText(sameText), plainText(text)) << title << " at " << value;
            const Vst::ParamValue plain = plugin.controller().normalizedParamToPlain(info.id, value);
            EXPECT_NEAR(plugin.controller().plainParamToNormalized(info.id, plain), value, 1e-6) << title;
            EXPECT_EQ(plugin.controller().setParamNormalized(info.id, value), kResultTrue) << title;
            EXPECT_NEAR(plugin.controller().getParamNormalized(info.id), value, 1e-6) << title;
        }
    }
    for (const Vst::ParameterInfo& info : plugin.instance().parameters())
        plugin.controller().setParamNormalized(info.id, info.defaultNormalizedValue);
    EXPECT_NE(plugin.controller().setParamNormalized(0x7ffffff1, 0.5), kResultTrue) << "there is none";
}

void busesAreOneStereoPair(Vst3UnderTest& plugin) {
    for (const auto direction : {Vst::kInput, Vst::kOutput}) {
        ASSERT_EQ(plugin.component().getBusCount(Vst::kAudio, direction), 1);
        EXPECT_EQ(plugin.component().getBusCount(Vst::kEvent, direction), 0);
        Vst::BusInfo info;
        ASSERT_EQ(plugin.component().getBusInfo(Vst::kAudio, direction, 0, info), kResultTrue);
        EXPECT_EQ(info.channelCount, 2);
        EXPECT_EQ(info.busType, Vst::kMain);
        EXPECT_TRUE(info.flags & Vst::BusInfo::kDefaultActive);
        EXPECT_NE(plainText(info.name), "");
        for (const int32 index : {-1, 1}) {
            EXPECT_NE(plugin.component().getBusInfo(Vst::kAudio, direction, index, info), kResultTrue);
            EXPECT_NE(plugin.component().activateBus(Vst::kAudio, direction, index, true), kResultTrue) << index;
        }
        for (const TBool active : {false, true, true, false, true})
            EXPECT_EQ(plugin.component().activateBus(Vst::kAudio, direction, 0, active), kResultTrue);
    }
}

void arrangementsAreTakenOrRefused(Vst3UnderTest& plugin) {
    const auto arrange = [&plugin](Vst::SpeakerArrangement in, Vst::SpeakerArrangement out) {
        return plugin.processor()->setBusArrangements(&in, 1, &out, 1) == kResultTrue;
    };
    using namespace Vst::SpeakerArr;
    EXPECT_TRUE(arrange(kMono, kMono));
    EXPECT_TRUE(arrange(kMono, kStereo));
    EXPECT_TRUE(arrange(kStereo, kStereo));
    EXPECT_FALSE(arrange(kStereo, kMono));
    EXPECT_FALSE(arrange(k51, k51));
    EXPECT_FALSE(arrange(kEmpty, kStereo));
    plugin.processor()->setBusArrangements(nullptr, 0, nullptr, 0);
    Vst::SpeakerArrangement kept = 0;
    EXPECT_EQ(plugin.processor()->getBusArrangement(Vst::kOutput, 0, kept), kResultTrue);
    EXPECT_EQ(kept, kStereo) << "what was refused changes nothing";
    EXPECT_NE(plugin.processor()->getBusArrangement(Vst::kOutput, 1, kept), kResultTrue);
    EXPECT_NE(plugin.processor()->getBusArrangement(Vst::kInput, -1, kept), kResultTrue);
}

void sampleSizes(Vst3UnderTest& plugin) {
    EXPECT_EQ(plugin.processor()->canProcessSampleSize(Vst::kSample32), kResultTrue);
    EXPECT_EQ(plugin.processor()->canProcessSampleSize(Vst::kSample64), kResultTrue);
    EXPECT_NE(plugin.processor()->canProcessSampleSize(7), kResultTrue);
    EXPECT_EQ(plugin.processor()->getLatencySamples(), 0U);
    EXPECT_EQ(plugin.processor()->getTailSamples(), Vst::kNoTail);
}

} // namespace

std::vector<ConformanceRule> descriptionRules() {
    return {
        {"UnitsAndProgramLists", &unitsAndProgramLists},
        {"ParametersAreWellFormed", &parametersAreWellFormed},
        {"ValuesGoToTextAndPlainAndBack", &valuesGoToTextAndPlainAndBack},
        {"BusesAreOneStereoPair", &busesAreOneStereoPair},
        {"ArrangementsAreTakenOrRefused", &arrangementsAreTakenOrRefused},
        {"SampleSizes", &sampleSizes},
    };
}

} // namespace slantwise_tests
