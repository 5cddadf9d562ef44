// A stereo LV2 plug-in for comparison: its controls at their defaults, its filters on, its bands at 6 dB.
#pragma once

#include "BuildNamespace.h"

#include <lilv/lilv.h>
#include <lv2/atom/atom.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE::bench {

class Peer {
public:
    Peer(const char* uri, double rateHz);
    bool isThere() const { return instance_ != nullptr; }
    // Borrows the buffers for as long as run() is called.
    void connect(std::array<float*, 2> in, std::array<float*, 2> out);
    // Gives every band this gain in dB.
    void moveGains(float decibels);
    void run(std::uint32_t frames);

private:
    struct Free {
        void operator()(LilvWorld* world) const { lilv_world_free(world); }
        void operator()(LilvInstance* instance) const { lilv_instance_free(instance); }
    };

    std::unique_ptr<LilvWorld, Free> world_;
    const LilvPlugin* plugin_ = nullptr;
    std::unique_ptr<LilvInstance, Free> instance_;
    std::vector<float> controls_;         // by port
    std::vector<std::uint32_t> gains_;    // ports
    std::vector<std::uint64_t> sequence_; // for message ports: empty
    std::vector<LV2_Atom_Sequence*> outgoing_;
};

} // namespace QVM_NAMESPACE::bench
