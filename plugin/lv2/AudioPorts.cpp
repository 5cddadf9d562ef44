#include "plugin/lv2/AudioPorts.h"

namespace QVM_NAMESPACE {

void AudioPorts::connect(std::uint32_t port, float* frames) {
    ports_[port] = frames;
    toolkit_.connect_port(handle_, port, frames);
}

void AudioPorts::connectFrom(std::uint32_t offset) {
    for (std::uint32_t port = 0; port < count; ++port) {
        float* const none = port < inputs ? silence_.data() : nullptr;
        toolkit_.connect_port(handle_, port, ports_[port] ? ports_[port] + offset : none);
    }
}

} // namespace QVM_NAMESPACE
