// The window of the stand-alone program while it comes to the screen: it has one size, its own, however late a window
// manager answers.
#include "plugin/host/ChildProcess.h"
#include "plugin/host/WindowWatch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::ChildProcess;
using slantwise_tests::WindowWatch;
using Sizes = std::vector<WindowWatch::Size>;

void rest(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

// The window manager of this display (scripts/with-display), which goes on whatever becomes of the test.
class WindowManager {
public:
    WindowManager() {
        const char* const pid = std::getenv("WINDOW_MANAGER_PID");
        pid_ = pid ? std::atoi(pid) : 0;
    }
    ~WindowManager() { goOn(); }
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    bool isKnown() const { return pid_ > 0; }
    void pause() { signal(SIGSTOP); }
    void goOn() { signal(SIGCONT); }

private:
    void signal(int which) const {
        if (isKnown()) kill(pid_, which);
    }
    pid_t pid_ = 0;
};

// All cores at work on something else.
class BusyMachine {
public:
    BusyMachine() {
        for (unsigned i = 0; i < 2 * std::max(1U, std::thread::hardware_concurrency()); ++i)
            threads_.emplace_back([this] {
                while (!isDone_) {}
            });
    }
    ~BusyMachine() {
        isDone_ = true;
        for (std::thread& thread : threads_)
            thread.join();
    }
    BusyMachine(const BusyMachine&) = delete;
    BusyMachine& operator=(const BusyMachine&) = delete;

private:
    std::atomic<bool> isDone_ = false;
    std::vector<std::thread> threads_;
};

class StandaloneWindow : public testing::Test {
protected:
    static constexpr WindowWatch::Size size = {480, 320};

    void SetUp() override { ASSERT_TRUE(manager_.isKnown()) << "needs the display of scripts/with-display"; }
    void TearDown() override { std::filesystem::remove(log_); }

    std::unique_ptr<ChildProcess> program() const {
        return std::make_unique<ChildProcess>(std::vector<std::string>{SLANTWISE_STANDALONE, "--scale", "1"},
                                              std::map<std::string, std::string>(), log_);
    }
    template <class Condition>
    static bool comesTrue(WindowWatch& watch, Condition condition) {
        for (int i = 0; i < 3000; ++i) {
            watch.look();
            if (condition()) return true;
            rest(0.005);
        }
        return false;
    }

    WindowManager manager_;
    const std::string log_ =
        (std::filesystem::temp_directory_path() / ("slantwise-window-" + std::to_string(getpid()) + ".log")).string();
};

// The window manager sleeps until all that the program asks for lies before it, and once more with the window half
// taken, while the program goes on.
TEST_F(StandaloneWindow, IsMappedWithItsFinalSizeAloneBeforeASlowWindowManager) {
    WindowWatch watch("Slantwise");
    watch.wasFramed = [this] {
        manager_.pause();
        rest(0.15);
        manager_.goOn();
    };
    manager_.pause();
    const auto running = program();
    ASSERT_TRUE(comesTrue(watch, [&] { return watch.isThere(); }));
    rest(1);
    manager_.goOn();
    ASSERT_TRUE(comesTrue(watch, [&] { return !watch.mapped().empty(); }));
    rest(1);
    watch.look();
    for (const WindowWatch::Size& mapped : watch.mapped())
        EXPECT_EQ(mapped, size);
    EXPECT_EQ(watch.present(), Sizes{size});
}

TEST_F(StandaloneWindow, HasItsSizeEveryTimeItOpensOnABusyMachine) {
    constexpr int openings = 8;
    const BusyMachine busy;
    for (int i = 0; i < openings; ++i) {
        WindowWatch watch("Slantwise");
        const auto running = program();
        ASSERT_TRUE(comesTrue(watch, [&] { return !watch.present().empty(); })) << i;
        rest(0.7);
        EXPECT_EQ(watch.present(), Sizes{size}) << i;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
