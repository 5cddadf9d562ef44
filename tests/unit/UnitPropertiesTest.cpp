// The unit's private and standard properties, through the interface that the editor uses.
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t global = kAudioUnitScope_Global;

struct Row {
    AudioUnitPropertyID id;
    AudioUnitScope scope;
    std::uint32_t size;
    bool get, set;
};

constexpr Row rows[] = {
    {2, kAudioUnitScope_Input, 8, true, false},
    {14, global, 4, true, false},
    {64003, global, 1, false, true},
    {64004, global, 8, true, true},
    {64005, global, 4, true, false},
    {64006, global, 4, true, false},
    {64007, global, 4, false, true},
    {64008, global, 16, true, true},
    {64009, global, 8, false, true},
    {64010, global, 4, true, true},
    {64011, global, 8, true, true},
    {64012, global, 4, false, true},
};

class UnitProperties : public testing::Test {
protected:
    template <class T>
    T get(AudioUnitPropertyID id, AudioUnitScope scope = global) {
        T value{};
        std::uint32_t size = sizeof value;
        EXPECT_EQ(AudioUnitGetProperty(&unit, id, scope, 0, &value, &size), noErr) << id;
        return value;
    }
    template <class T>
    OSStatus set(AudioUnitPropertyID id, const T& value) {
        return AudioUnitSetProperty(&unit, id, global, 0, &value, sizeof value);
    }

    QVM0015_AudioUnit unit;
};

TEST_F(UnitProperties, EachHasItsSizeAndDirection) {
    for (const Row& row : rows) {
        AudioUnitPropertyInfo info;
        ASSERT_EQ(unit.propertyInfo(row.id, row.scope, 0, &info), noErr) << row.id;
        EXPECT_EQ(info.size, row.size) << row.id;
        EXPECT_EQ(info.readable, row.get) << row.id;
        EXPECT_EQ(info.writable, row.set) << row.id;
    }
}

TEST_F(UnitProperties, AnyOtherSizeIsRefusedAndNothingChanges) {
    const std::string name = "Kept";
    ASSERT_EQ(set(64004, &name), noErr);
    ASSERT_EQ(set(64010, std::uint32_t{1}), noErr);
    const std::vector<std::uint8_t> before = unit.saveState();
    const std::array<std::uint8_t, 64> junk{};
    for (const Row& row : rows) {
        for (std::uint32_t size = 0; size <= 32; ++size) {
            if (size == row.size) continue;
            std::array<std::uint8_t, 64> data;
            data.fill(0xAA);
            const auto untouched = data;
            std::uint32_t ioSize = size;
            EXPECT_NE(AudioUnitSetProperty(&unit, row.id, row.scope, 0, junk.data(), size), noErr) << row.id;
            EXPECT_NE(AudioUnitGetProperty(&unit, row.id, row.scope, 0, data.data(), &ioSize), noErr) << row.id;
            EXPECT_EQ(data, untouched);
        }
    }
    EXPECT_EQ(unit.saveState(), before);
}

TEST_F(UnitProperties, TheWrongDirectionIsRefused) {
    std::array<std::uint8_t, 16> data{};
    for (const Row& row : rows) {
        std::uint32_t size = row.size;
        if (!row.get) {
            EXPECT_EQ(AudioUnitGetProperty(&unit, row.id, row.scope, 0, data.data(), &size),
                      kAudioUnitErr_PropertyNotInUse);
        }
        if (!row.set) {
            EXPECT_EQ(AudioUnitSetProperty(&unit, row.id, row.scope, 0, data.data(), size),
                      kAudioUnitErr_PropertyNotWritable);
        }
    }
}

TEST_F(UnitProperties, UnknownIdentifiersScopesAndElementsAreRefused) {
    std::uint32_t word = 1, size = sizeof word;
    EXPECT_EQ(AudioUnitGetProperty(&unit, 64013, global, 0, &word, &size), kAudioUnitErr_InvalidProperty);
    EXPECT_EQ(AudioUnitSetProperty(&unit, 0, global, 0, &word, size), kAudioUnitErr_InvalidProperty);
    EXPECT_EQ(AudioUnitGetProperty(&unit, 64005, kAudioUnitScope_Output, 0, &word, &size), kAudioUnitErr_InvalidScope);
    EXPECT_EQ(AudioUnitGetProperty(&unit, 2, global, 0, &word, &size), kAudioUnitErr_InvalidScope);
    EXPECT_EQ(AudioUnitGetProperty(&unit, 64005, global, 1, &word, &size), kAudioUnitErr_InvalidElement);
    EXPECT_EQ(word, 1U);
}

TEST_F(UnitProperties, FormatIsWhatWasPrepared) {
    ASSERT_EQ(unit.prepare(96000, 777, 1, 2), noErr);
    EXPECT_EQ(get<double>(2, kAudioUnitScope_Input), 96000.0);
    EXPECT_EQ(get<std::uint32_t>(14), 777U);
    EXPECT_EQ(get<std::uint32_t>(64005), 1U);
    EXPECT_EQ(get<std::uint32_t>(64006), 2U);
}

TEST_F(UnitProperties, PresetNameIsCopiedAndItsReferenceOwnedByTheUnit) {
    EXPECT_EQ(*get<const std::string*>(64004), "Default");
    {
        std::string mine = "Warmer than anything that fits into a short string";
        ASSERT_EQ(set<const std::string*>(64004, &mine), noErr);
        mine.assign(mine.size(), 'x');
    }
    const std::string* held = get<const std::string*>(64004);
    EXPECT_EQ(*held, "Warmer than anything that fits into a short string");
    EXPECT_EQ(get<const std::string*>(64004), held) << "the same text is the same reference";
}

TEST_F(UnitProperties, AHandedOutTextOutlivesANewOneUntilItIsReadAgain) {
    const std::string first = "first, and long enough to be on the heap", second = "second, and long enough as well";
    ASSERT_EQ(set<const std::string*>(64004, &first), noErr);
    const std::string* held = get<const std::string*>(64004);
    ASSERT_EQ(set<const std::string*>(64004, &second), noErr);
    EXPECT_EQ(*held, first);
    EXPECT_EQ(*get<const std::string*>(64004), second);
}

TEST_F(UnitProperties, AMissingOrEndlessTextIsRefused) {
    const std::string endless(SavedSettings::maxTextBytes + 1, 'x');
    for (const AudioUnitPropertyID id : {64004U, 64009U}) {
        EXPECT_EQ(set<const std::string*>(id, nullptr), kAudioUnitErr_InvalidPropertyValue);
        EXPECT_EQ(set<const std::string*>(id, &endless), kAudioUnitErr_InvalidPropertyValue);
    }
    EXPECT_EQ(set(64008, QVMABRecord{1, 0, &endless}), kAudioUnitErr_InvalidPropertyValue);
    EXPECT_EQ(*get<const std::string*>(64004), "Default");
    EXPECT_EQ(get<QVMABRecord>(64008).state, QVMABRecord::nothingSaved);
}

TEST_F(UnitProperties, ABRecordHoldsWhatWasSet) {
    const QVMABRecord fresh = get<QVMABRecord>(64008);
    EXPECT_EQ(fresh.state, 2U) << "nothing was saved yet";
    EXPECT_EQ(*fresh.settings, "");
    const std::string settings = "1;2;3;4";
    ASSERT_EQ(set(64008, QVMABRecord{1, 0xDEADBEEF, &settings}), noErr);
    const QVMABRecord back = get<QVMABRecord>(64008);
    EXPECT_EQ(back.state, 1U);
    EXPECT_EQ(back.padding, 0U);
    EXPECT_EQ(*back.settings, settings);
    EXPECT_NE(back.settings, &settings);
    ASSERT_EQ(set(64008, QVMABRecord{0, 0, nullptr}), noErr);
    EXPECT_EQ(*get<QVMABRecord>(64008).settings, "");
}

TEST_F(UnitProperties, TheABRecordsLayoutIsFixed) {
    EXPECT_EQ(sizeof(QVMABRecord), 16U);
    EXPECT_EQ(offsetof(QVMABRecord, state), 0U);
    EXPECT_EQ(offsetof(QVMABRecord, settings), 8U);
}

TEST_F(UnitProperties, InterfaceStateWordAndPreferenceAndBufferPathAreKept) {
    ASSERT_EQ(set(64010, std::uint32_t{2}), noErr);
    EXPECT_EQ(get<std::uint32_t>(64010), 2U);
    ASSERT_EQ(set(64003, std::uint8_t{1}), noErr);
    EXPECT_TRUE(unit.interfacePreference());
    const std::string path = "/home/someone/impulse.wav";
    ASSERT_EQ(set<const std::string*>(64009, &path), noErr);
    EXPECT_EQ(unit.bufferPath(), path);
}

TEST_F(UnitProperties, ResettingTheMetersTakesOneForAnAnswer) {
    EXPECT_EQ(set(64007, std::uint32_t{1}), noErr) << "also with nobody to see it";
    EXPECT_EQ(set(64007, std::uint32_t{0}), kAudioUnitErr_InvalidPropertyValue);
}

TEST_F(UnitProperties, ClosingTheVisualisationDropsTheReference) {
    EXPECT_EQ(get<void*>(64011), nullptr);
    SharedState drawing;
    ASSERT_EQ(set<SharedState*>(64011, &drawing), noErr);
    EXPECT_EQ(get<void*>(64011), &drawing);
    EXPECT_EQ(set(64012, std::uint32_t{7}), kAudioUnitErr_InvalidPropertyValue);
    EXPECT_EQ(get<void*>(64011), &drawing);
    ASSERT_EQ(set(64012, std::uint32_t{1}), noErr);
    EXPECT_EQ(get<void*>(64011), nullptr);
    EXPECT_EQ(set(64012, std::uint32_t{1}), noErr) << "closing twice is no error";
}

} // namespace
} // namespace QVM_NAMESPACE
