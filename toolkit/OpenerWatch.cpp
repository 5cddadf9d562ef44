#include "toolkit/OpenerWatch.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double lookSeconds = 0.1;

} // namespace

void OpenerWatch::watch(int pipe, std::function<void()> didFail) {
    stop();
    pipe_ = pipe;
    didFail_ = std::move(didFail);
    looksLeft_ = static_cast<int>(longestSeconds / lookSeconds);
    look_.schedule(lookSeconds, [this] { look(); });
}

void OpenerWatch::stop() {
    look_.cancel();
    didFail_ = nullptr;
    if (pipe_ >= 0) close(std::exchange(pipe_, -1));
}

void OpenerWatch::look() {
    char byte = 0;
    const ssize_t got = read(pipe_, &byte, 1);
    const bool isSilent = got < 0 && (errno == EAGAIN || errno == EINTR);
    if (isSilent && --looksLeft_ > 0) return look_.schedule(lookSeconds, [this] { look(); });
    const std::function<void()> didFail = std::move(didFail_);
    stop();
    if (got > 0 && didFail) didFail();
}

} // namespace QVM_NAMESPACE
