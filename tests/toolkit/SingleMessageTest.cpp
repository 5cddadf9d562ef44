#include "toolkit/SingleMessage.h"

#include "BuildNamespace.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

// Keeps what is posted until it is run, as a queue of messages does.
struct SingleMessageTest : testing::Test {
    bool isRefusing = false;
    std::vector<std::function<void()>> posted;
    int delivered = 0;
    std::function<void()> whenDelivered = [] {};
    juce::SingleMessage message{[this](std::function<void()> run) {
                                    if (isRefusing) return false;
                                    posted.push_back(std::move(run));
                                    return true;
                                },
                                [this] { ++delivered, whenDelivered(); }};
    void run() {
        for (const auto& each : std::exchange(posted, {}))
            each();
    }
};

TEST_F(SingleMessageTest, ManyRequestsAreOneMessage) {
    for (int i = 0; i < 100; ++i)
        message.send();
    EXPECT_EQ(posted.size(), 1u);
    run();
    EXPECT_EQ(delivered, 1);
}

TEST_F(SingleMessageTest, ComesAgainForWhatIsAskedOnceItBegan) {
    message.send();
    whenDelivered = [this] { message.send(); };
    run();
    EXPECT_EQ(posted.size(), 1u) << "asked for by the message itself";
    whenDelivered = [] {};
    run();
    message.send();
    run();
    EXPECT_EQ(delivered, 3);
}

TEST_F(SingleMessageTest, OneThatWasRefusedIsNotUnderWay) {
    isRefusing = true;
    message.send();
    isRefusing = false;
    message.send();
    EXPECT_EQ(posted.size(), 1u);
}

TEST_F(SingleMessageTest, OneThatWentDownIsNotUnderWay) {
    message.send();
    posted.clear();
    message.send();
    EXPECT_TRUE(posted.empty());
    message.forget();
    message.send();
    EXPECT_EQ(posted.size(), 1u);
}

} // namespace
} // namespace QVM_NAMESPACE
