#include "presets/PresetText.h"

#include "description/Description.h"

#include <gtest/gtest.h>

#include <string>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* base = "https://maker.example/slantwise/2.0.1";

class PresetText : public testing::Test {
protected:
    UserPreset read(const std::string& text) {
        auto result = readPresetText(text, *config_);
        if (const auto* refusal = std::get_if<PresetRefusal>(&result)) {
            ADD_FAILURE() << refusal->text();
            return {};
        }
        return std::get<UserPreset>(result);
    }
    std::string reason(const std::string& text) {
        const auto result = readPresetText(text, *config_);
        const auto* refusal = std::get_if<PresetRefusal>(&result);
        return refusal ? refusal->text() : "read";
    }

    const std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
};

TEST_F(PresetText, IsAFewLinesThatPeopleCanRead) {
    const UserPreset preset{"Warm voice", "for the large room", {{"tg", 4.5f}, {"trl", 120.f}}};
    EXPECT_EQ(writePresetText(preset, base), "Slantwise preset 1\n"
                                             "Name: Warm voice\n"
                                             "Note: for the large room\n"
                                             "Settings: https://maker.example/slantwise/2.0.1/?tg:4.5/trl:120\n");
    EXPECT_EQ(read(writePresetText(preset, base)), preset);
}

TEST_F(PresetText, EveryNumberReadsBackAsItself) {
    for (const float value : {0.1f, 1234.5677f, -16.499998f, 1.0f / 3, 24000.f, 1e-7f}) {
        const UserPreset preset{"P", "", {{"trl", value}}};
        EXPECT_EQ(read(writePresetText(preset, base)), preset) << value;
    }
}

TEST_F(PresetText, MayHaveBeenThroughTheMail) {
    const UserPreset plain{"Warm", "", {{"tg", 6.f}}};
    EXPECT_EQ(read("Slantwise preset 1\r\nName: Warm\r\nSettings: https://a.example/s/2/?tg:6\r\n\r\n"), plain);
    EXPECT_EQ(read("Slantwise preset 1\nSettings:  https://a.example/s/2/?tg:6 \nName:  Warm "), plain)
        << "in any order";
}

TEST_F(PresetText, WithoutSettingsBehindTheAddressEverythingIsAtItsInitialValue) {
    EXPECT_EQ(read("Slantwise preset 1\nName: Flat\nSettings: https://a.example/s/2/?").settings.size(), 0u);
}

TEST_F(PresetText, WhatCannotBeReadIsRefusedAsAWholeWithTheReason) {
    const std::string head = "Slantwise preset 1\n", name = "Name: Warm\n",
                      settings = "Settings: https://a.example/s/2/?tg:6\n";
    ASSERT_EQ(reason(head + name + settings), "read");
    EXPECT_EQ(reason(""), "not a preset");
    EXPECT_EQ(reason("Dear all,\nplease find attached"), "not a preset");
    EXPECT_EQ(reason("Slantwise preset 2\n" + name + settings), "of another version");
    EXPECT_EQ(reason(head + name), "name or settings are missing");
    EXPECT_EQ(reason(head + settings), "name or settings are missing");
    EXPECT_EQ(reason(head + "Name: \n" + settings), "its name cannot be used");
    EXPECT_EQ(reason(head + "Name: a\tb\n" + settings), "its name cannot be used");
    EXPECT_EQ(reason(head + name + name + settings), "line 3 is not understood");
    EXPECT_EQ(reason(head + name + settings + "Colour: red\n"), "line 4 is not understood");
    EXPECT_EQ(reason(head + name + "\n" + settings), "line 4 is not understood") << "behind the end";
    EXPECT_EQ(reason(head + name + "Note: a\x01" + "b\n" + settings), "its note cannot be used");
    EXPECT_EQ(reason(head + name + "Note: " + std::string(600, 'x') + "\n" + settings), "its note cannot be used");
    EXPECT_EQ(reason(head + name + "Settings: none\n"), "settings: it is not a web address");
    EXPECT_EQ(reason(head + name + "Settings: https://a.example/s/2/?tg:six\n"), "settings: \"tg\" has no number");
    EXPECT_EQ(reason(head + name + settings + std::string(9000, '\n')), "too long for a preset");
    EXPECT_EQ(reason(head + "Name: W\xE4rme\n" + settings), "not a text");
    EXPECT_EQ(reason(std::string("\0", 1) + head + name + settings), "not a text");
}

TEST_F(PresetText, CutOffAnywhereItIsRefusedOrAnotherWholePreset) {
    const std::string whole = writePresetText({"Warm", "note", {{"tg", 4.5f}, {"trl", 120.f}}}, base);
    const std::size_t address = whole.find("https:");
    for (std::size_t length = 0; length < address; ++length)
        EXPECT_NE(reason(whole.substr(0, length)), "read") << length;
}

} // namespace
} // namespace QVM_NAMESPACE
