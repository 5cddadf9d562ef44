// The sound of the trivial plug-in: what comes in goes out. All by the host's threads.
#include <lv2/core/lv2.h>

#include <algorithm>
#include <array>

namespace {

struct Instance {
    std::array<float*, 4> ports{}; // two in, two out; the host's
};

LV2_Handle instantiate(const LV2_Descriptor*, double, const char*, const LV2_Feature* const*) {
    return new Instance;
}

void connectPort(LV2_Handle handle, uint32_t port, void* buffer) {
    static_cast<Instance*>(handle)->ports.at(port) = static_cast<float*>(buffer);
}

void run(LV2_Handle handle, uint32_t frames) {
    const auto& ports = static_cast<Instance*>(handle)->ports;
    for (std::size_t channel = 0; channel < 2; ++channel)
        if (ports[channel] != ports[channel + 2]) std::copy_n(ports[channel], frames, ports[channel + 2]);
}

void cleanup(LV2_Handle handle) {
    delete static_cast<Instance*>(handle);
}

constexpr LV2_Descriptor descriptor = {
    "https://ferrowind.example/bench/trivial", &instantiate, &connectPort, nullptr, &run, nullptr, &cleanup, nullptr};

} // namespace

LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(uint32_t index) {
    return index == 0 ? &descriptor : nullptr;
}
