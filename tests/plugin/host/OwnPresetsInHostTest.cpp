// A preset of one's own is named with keys that the editor gets from the menu on, though nothing in it has been touched
// before.
#include "plugin/host/InHost.h"
#include "plugin/host/Jalv.h"
#include "plugin/host/OwnPresetFile.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* saveRow = "Save preset as...";
constexpr const char* name = "Dull 7"; // a capital, and a key that is the host's elsewhere
constexpr std::initializer_list<const char*> keysOfRest = {"u", "l", "l", "space", "7", "Return"};

class OwnPresetsInHost : public InHost {};

TEST_P(OwnPresetsInHost, ANameIsTypedWithNothingInFocusBefore) {
    open();
    ASSERT_TRUE(chooseByPointer({saveRow}));
    ASSERT_TRUE(keepsKeyboard());
    hold("Shift_L");
    type("d");
    letGo("Shift_L");
    typeAll(keysOfRest);
    EXPECT_TRUE(comesTrue([] { return !textOfOwnPreset(name).empty(); }));
    EXPECT_THAT(textOfOwnPreset(name), HasSubstr(name));
    type("Escape"); // closes the list
    EXPECT_TRUE(hostGets({}));
    EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; })) << "the host has the keyboard again";
    type("space");
    EXPECT_TRUE(hostGets({"spacebar"}));
}

INSTANTIATE_TEST_SUITE_P(Vst3, OwnPresetsInHost, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, OwnPresetsInHost, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

class JalvOwnPresets : public Jalv {};

TEST_F(JalvOwnPresets, ANameIsTypedWithNothingInFocusBefore) {
    ASSERT_NO_FATAL_FAILURE(openEditor());
    ASSERT_TRUE(chooseByPointer({saveRow}));
    ASSERT_TRUE(comesTrue([this] { return screen_.focus() != hostFocus_; })) << "the editor has the keyboard";
    typeWith("Shift_L", "d");
    type(keysOfRest);
    EXPECT_TRUE(comesTrue([] { return !textOfOwnPreset(name).empty(); }));
    EXPECT_THAT(textOfOwnPreset(name), HasSubstr(name));
    type({"Escape"}); // closes the list
    EXPECT_TRUE(comesTrue([this] { return screen_.focus() == hostFocus_; })) << "the host has the keyboard again";
    EXPECT_THAT(hostKeys(), IsEmpty());
    type({"space"});
    EXPECT_TRUE(hostGets({"space"}));
}

} // namespace
} // namespace QVM_NAMESPACE
