#include "platform/runloop/NotificationCenter.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

struct NotificationCenterTest : testing::Test {
    NotificationCenter center;
    std::vector<int> heard;
    int a = 0, b = 0; // objects
    NotificationCenter::Handler note(int n) {
        return [this, n](const Notification&) { heard.push_back(n); };
    }
};

TEST_F(NotificationCenterTest, HearsByNameAndObjectInOrderOfObservation) {
    const auto anyObject = center.observe("Changed", nullptr, note(1));
    const auto onlyA = center.observe("Changed", &a, note(2));
    const auto onlyB = center.observe("Changed", &b, note(3));
    const auto otherName = center.observe("Saved", nullptr, note(4));
    center.post("Changed", &a);
    EXPECT_THAT(heard, ElementsAre(1, 2));
    center.post("Changed", nullptr);
    EXPECT_THAT(heard, ElementsAre(1, 2, 1));
}

TEST_F(NotificationCenterTest, TheUserInfoIsHandedOver) {
    double value = 0;
    const auto token = center.observe("Changed", nullptr, [&](const Notification& n) { value = n.userInfo.at("v"); });
    center.post({"Changed", &a, {{"v", 3.5}}});
    EXPECT_EQ(value, 3.5);
}

TEST_F(NotificationCenterTest, ATokenEndsTheObservation) {
    auto token = center.observe("Changed", nullptr, note(1));
    center.post("Changed", &a);
    token = ObservationToken();
    center.post("Changed", &a);
    EXPECT_THAT(heard, ElementsAre(1));
}

TEST_F(NotificationCenterTest, AHandlerMayEndItsOwnAndALaterObservation) {
    std::optional<ObservationToken> own, later;
    own = center.observe("Changed", nullptr, [&, text = std::string(100, 'x')](const Notification&) {
        own.reset();
        later.reset();
        heard.push_back(static_cast<int>(text.size())); // still there
    });
    later = center.observe("Changed", nullptr, note(2));
    center.post("Changed", &a);
    center.post("Changed", &a);
    EXPECT_THAT(heard, ElementsAre(100));
}

TEST_F(NotificationCenterTest, AnObservationMadeDuringAPostHearsTheNextOne) {
    std::vector<ObservationToken> tokens;
    tokens.push_back(center.observe("Changed", nullptr, [&](const Notification&) {
        heard.push_back(1);
        tokens.push_back(center.observe("Changed", nullptr, note(2)));
    }));
    center.post("Changed", &a);
    EXPECT_THAT(heard, ElementsAre(1));
    center.post("Changed", &a);
    EXPECT_THAT(heard, ElementsAre(1, 1, 2));
}

TEST_F(NotificationCenterTest, ATokenMayOutliveItsCenter) {
    auto other = std::make_unique<NotificationCenter>();
    auto token = other->observe("Changed", nullptr, note(1));
    other.reset();
    token.reset();
    EXPECT_TRUE(heard.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
