// A unit that refuses: one line in the log where a tag is given, silence elsewhere, and everything goes on.
#include "host/HostViewFixture.h"

namespace QVM_NAMESPACE {
namespace {

using Errors = HostView;

TEST_F(Errors, TheLineHasItsExactForm) {
    unit.properties.erase(64005);
    bind();
    ASSERT_EQ(logged.size(), 1U);
    // -10879 is FFFFD581; its bytes as characters end the line.
    EXPECT_TRUE(logged[0].starts_with("QVM0015_CocoaView2.cpp:")) << logged[0];
    EXPECT_TRUE(logged[0].ends_with(": in result -10879 FFFFD581 \xFF\xFF\xD5\x81\n")) << logged[0];
    EXPECT_EQ(tagOf(logged[0]), "in");
}

TEST_F(Errors, ALineOfAnotherFormHasNoTag) {
    EXPECT_EQ(tagOf("QVM0015_CocoaView2.cpp:7: in result -50 FFFFFFCE \xFF\xFF\xFF\xCE\n"), "in");
    EXPECT_EQ(tagOf("QVM0015_CocoaView2.cpp:7: in result -50 ffffffce \xFF\xFF\xFF\xCE\n"), "");
    EXPECT_EQ(tagOf("QVM0015_CocoaView2.cpp:7: in result -50 FFFFFFCE\n"), "");
    EXPECT_EQ(tagOf("Another.cpp:7: in result -50 FFFFFFCE \xFF\xFF\xFF\xCE\n"), "");
}

TEST_F(Errors, AUnitWithoutAnyPropertyIsBoundAllTheSame) {
    unit.properties.clear();
    bind();
    EXPECT_EQ(takeTags(), (Lines{"in", "out"}));
    EXPECT_EQ(view->frame(), (Rect{0, 0, 480, 320}));
    EXPECT_EQ(ui().abState(), 0U);
    EXPECT_EQ(ui().currentPreset(), 0U);
}

TEST_F(Errors, EachMissingPropertyOfTheBindingHasItsTagOrNone) {
    const struct {
        AudioUnitPropertyID id;
        Lines tags;
    } cases[] = {{64004, {}}, {64005, {"in"}}, {64006, {"out"}}, {64008, {}}, {64010, {}}};
    for (const auto& one : cases) {
        FakeAudioUnit lacking;
        addAllProperties(lacking);
        lacking.properties.erase(one.id);
        const auto made = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&lacking, {});
        EXPECT_EQ(takeTags(), one.tags) << one.id;
    }
}

TEST_F(Errors, PropertiesOfAnotherSizeCountAsMissing) {
    unit.addProperty(64005, std::uint64_t{2});
    unit.addProperty(64008, std::uint32_t{1});
    bind();
    EXPECT_EQ(takeTags(), Lines{"in"});
    EXPECT_EQ(ui().config().chanIn, 0U);
    EXPECT_EQ(ui().abState(), 0U);
}

TEST_F(Errors, EveryRequestWithATagLogsIt) {
    bind();
    unit.properties.clear();
    double sampleRate = 44100;
    std::uint32_t maxFrames = 512;
    delegate().interfaceWantsSampleRateMaxFrames(ui(), sampleRate, maxFrames);
    EXPECT_EQ(takeTags(), (Lines{"sr", "mf"}));
    EXPECT_EQ(sampleRate, 44100) << "a failed read leaves the value";
    EXPECT_EQ(maxFrames, 512U);
    delegate().interfaceWantsToResetMetering(ui());
    EXPECT_EQ(takeTags(), Lines{"tap the meter"});
    delegate().interfaceHasReadiedVizRef(ui(), nullptr);
    EXPECT_EQ(takeTags(), Lines{"vizCallback"});
    EXPECT_EQ(delegate().interfaceWantsVizRef(ui()), nullptr);
    EXPECT_EQ(takeTags(), Lines{"get-vizref"});
    view.reset();
    EXPECT_EQ(takeTags(), Lines{"closeViz"});
}

TEST_F(Errors, RequestsWithoutATagFailInSilence) {
    bind();
    unit.properties.clear();
    delegate().interfaceDidUpdateInterfacePreferenceValue(ui(), "theme", 1);
    delegate().interfaceDidUpdateCurrentPresetToValueNamedPid(ui(), "Warmer", 4);
    delegate().interfaceWantsToSaveAlternateStateSettings(ui(), 0, "1;2");
    delegate().interfaceWantsToSaveUIState(ui(), 1);
    delegate().interfaceWantsToUploadBufferAtURL(ui(), "/a");
    EXPECT_TRUE(logged.empty());
}

TEST_F(Errors, AFailedSetAndAFailedNotificationAreLogged) {
    bind();
    unit.parameterErrors[1] = kAudioUnitErr_InvalidParameter;
    delegate().interfaceUpdatedParameterKeyedValue(pidTiltGain, 3);
    EXPECT_EQ(takeTags(), Lines{"native ui set"});
    delegate().interfaceEndedInteractionWithParameterKeyed(ui(), 1);
    EXPECT_EQ(takeTags(), (Lines{"notify", "notify"}));
}

TEST_F(Errors, ANullUnitLogsEveryListenerCallThatFails) {
    view = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(nullptr, {});
    Lines expected(24, "AUListenerAddParameter()");
    expected.insert(expected.end(), {"in", "out"});
    expected.insert(expected.end(), 24, "get");
    EXPECT_EQ(takeTags(), expected);
    view.reset();
    expected = {"closeViz"};
    expected.insert(expected.end(), 24, "AUListenerRemoveParameter()");
    EXPECT_EQ(takeTags(), expected);
}

} // namespace
} // namespace QVM_NAMESPACE
