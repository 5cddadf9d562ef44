#include "tools/render/Interruption.h"

#include <atomic>
#include <cstddef>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr std::array noted = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> seen = 0; // the signal, 0 for none
static_assert(std::atomic<int>::is_always_lock_free);

void note(int signal) {
    const bool isSecond = seen.exchange(signal, std::memory_order_relaxed) != 0;
    if (isSecond) raise(signal); // comes when this returns, and is not noted any more
}

} // namespace

Interruption::Interruption() {
    seen = 0;
    struct sigaction action {};
    action.sa_handler = note;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (std::size_t i = 0; i < noted.size(); ++i) {
        sigaction(noted[i], nullptr, &before_[i]);
        // What a shell has switched off, as for a program in the background, stays so.
        if (before_[i].sa_handler != SIG_IGN) sigaction(noted[i], &action, nullptr);
    }
}

Interruption::~Interruption() {
    for (std::size_t i = 0; i < noted.size(); ++i)
        sigaction(noted[i], &before_[i], nullptr);
}

bool Interruption::isWanted() {
    return seen.load(std::memory_order_relaxed) != 0;
}

void Interruption::endByIt() {
    const int signal = seen;
    if (signal == 0) return;
    ::signal(signal, SIG_DFL);
    raise(signal);
}

} // namespace render
} // namespace QVM_NAMESPACE
