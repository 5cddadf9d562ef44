#include "plugin/lv2/IntegerOptions.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace {

LV2_Options_Option option(LV2_URID key, std::uint32_t size, LV2_URID type, const void* value) {
    return {LV2_OPTIONS_INSTANCE, 0, key, size, type, value};
}

TEST(IntegerOptions, IntegersOfEightBytesBecomeOnesOfFourWhateverTheirType) {
    messages::Urids urids;
    const std::int64_t length = 1024, huge = std::numeric_limits<std::int64_t>::max();
    const LV2_URID intType = urids[LV2_ATOM__Int], longType = urids[LV2_ATOM__Long];
    const LV2_Options_Option host[] = {
        option(urids["urn:size_t"], 8, intType, &length),
        option(urids["urn:long"], 8, longType, &length),
        option(urids["urn:huge"], 8, longType, &huge),
        {},
    };
    IntegerOptions options(host, urids.map());
    for (int i = 0; i < 3; ++i) {
        const LV2_Options_Option& made = options.get()[i];
        EXPECT_EQ(made.key, host[i].key);
        EXPECT_EQ(made.size, 4U);
        EXPECT_EQ(made.type, intType);
        EXPECT_EQ(*static_cast<const std::int32_t*>(made.value),
                  i < 2 ? 1024 : std::numeric_limits<std::int32_t>::max());
    }
    EXPECT_EQ(options.get()[3].key, 0U);
    EXPECT_EQ(options.get()[3].value, nullptr);
}

TEST(IntegerOptions, AllElseStaysTheHosts) {
    messages::Urids urids;
    const std::int32_t length = 64;
    const double rate = 48000;
    const LV2_Options_Option host[] = {
        option(urids["urn:int"], 4, urids[LV2_ATOM__Int], &length),
        option(urids["urn:double"], 8, urids[LV2_ATOM__Double], &rate),
        {},
    };
    IntegerOptions options(host, urids.map());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(options.get()[i].value, host[i].value);
        EXPECT_EQ(options.get()[i].size, host[i].size);
    }
    EXPECT_EQ(options.get()[2].key, 0U);
    EXPECT_EQ(IntegerOptions(nullptr, urids.map()).get()->key, 0U);
}

} // namespace
} // namespace QVM_NAMESPACE
