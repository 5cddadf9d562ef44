#include "toolkit/WindowPresence.h"

#include "toolkit/WindowPainting.h"

#include <atomic>
#include <functional>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

using WindowPresenceTest = WindowPainting;

TEST_F(WindowPresenceTest, ItsWindowIsVisibleUntilItIsHiddenOnAScreen) {
    WindowComponent unseen(WindowComponent::Embedding::inHost);
    EXPECT_TRUE(unseen.window().isVisible()) << "no screen yet: who asks for a picture sees it";
    settle();
    const Window& window = component->window();
    EXPECT_TRUE(window.isVisible());
    component->setVisible(false);
    EXPECT_FALSE(window.isVisible());
    component->setVisible(true);
    EXPECT_TRUE(window.isVisible());
    desktop->removeChildComponent(component.get());
    EXPECT_FALSE(window.isVisible());
    desktop->addAndMakeVisible(*component);
    EXPECT_TRUE(window.isVisible());
}

// The period of the next tick of all display links, in seconds.
double linkPeriod() {
    std::atomic<double> seconds = 0;
    const auto link = DisplayLink::create();
    link->setOutputCallback(
        [](const std::shared_ptr<DisplayLink>&, const DisplayTimeStamp& stamp, void* found) {
            *static_cast<std::atomic<double>*>(found) =
                static_cast<double>(stamp.videoRefreshPeriod) / stamp.videoTimeScale;
            return 0;
        },
        &seconds);
    link->start();
    while (seconds == 0)
        std::this_thread::yield();
    link->stop();
    return seconds;
}

TEST_F(WindowPresenceTest, DisplayThatDoesNotSayItsRateIsOneOfSixtyAlsoWhileItsWindowRests) {
    DisplayRate another;
    another.setHertz(24);
    const FakeDisplay display;
    settle();
    EXPECT_NEAR(linkPeriod(), 1.0 / 60, 1e-6);
    for (int i = 0; i < 20; ++i) {
        time.advance(0.3);
        peer().vBlank();
    }
    EXPECT_NEAR(linkPeriod(), 1.0 / 60, 1e-6);
}

// Of these nobody tells: a look now and then finds out.
TEST_F(WindowPresenceTest, ItsWindowIsHiddenByAMinimisedOrHiddenWindowAround) {
    settle();
    const Window& window = component->window();
    for (const auto& hide : {std::function<void(bool)>([&](bool hidden) { peer().minimised = hidden; }),
                             std::function<void(bool)>([&](bool hidden) { desktop->setVisible(!hidden); })}) {
        hide(true);
        time.advance(0.3);
        peer().vBlank();
        EXPECT_FALSE(window.isVisible());
        hide(false);
        time.advance(0.3);
        peer().vBlank();
        EXPECT_TRUE(window.isVisible());
    }
}

} // namespace
} // namespace QVM_NAMESPACE
