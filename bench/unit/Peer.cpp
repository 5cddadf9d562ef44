#include "bench/unit/Peer.h"

#include <lv2/atom/atom.h>
#include <lv2/urid/urid.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

namespace QVM_NAMESPACE::bench {

namespace {

constexpr std::size_t kSequenceBytes = 65536;

LV2_URID mapUri(LV2_URID_Map_Handle, const char* uri) {
    static std::map<std::string, LV2_URID> known;
    return known.try_emplace(uri, static_cast<LV2_URID>(known.size() + 1)).first->second;
}

} // namespace

Peer::Peer(const char* uri, double rateHz) : world_(lilv_world_new()) {
    lilv_world_load_all(world_.get());
    LilvNode* const node = lilv_new_uri(world_.get(), uri);
    plugin_ = lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world_.get()), node);
    lilv_node_free(node);
    if (!plugin_) return;

    static LV2_URID_Map map = {nullptr, mapUri};
    static const LV2_Feature mapFeature = {LV2_URID__map, &map};
    const LV2_Feature* const features[] = {&mapFeature, nullptr};
    instance_.reset(lilv_plugin_instantiate(plugin_, rateHz, features));
    if (!instance_) return;

    const std::uint32_t ports = lilv_plugin_get_num_ports(plugin_);
    controls_.resize(ports);
    lilv_plugin_get_port_ranges_float(plugin_, nullptr, nullptr, controls_.data());
    sequence_.resize(ports * kSequenceBytes / sizeof(std::uint64_t));
    LilvNode* const control = lilv_new_uri(world_.get(), LV2_CORE__ControlPort);
    LilvNode* const output = lilv_new_uri(world_.get(), LV2_CORE__OutputPort);
    LilvNode* const atom = lilv_new_uri(world_.get(), LV2_ATOM__AtomPort);
    for (std::uint32_t i = 0; i < ports; ++i) {
        const LilvPort* const port = lilv_plugin_get_port_by_index(plugin_, i);
        const std::string symbol = lilv_node_as_string(lilv_port_get_symbol(plugin_, port));
        if (!std::isfinite(controls_[i])) controls_[i] = 0;
        if (lilv_port_is_a(plugin_, port, control)) {
            if (symbol == "HighPass" || symbol == "LowPass") controls_[i] = 1;
            if (symbol != "gain" && symbol.find("gain") != std::string::npos) gains_.push_back(i);
            lilv_instance_connect_port(instance_.get(), i, &controls_[i]);
        } else if (lilv_port_is_a(plugin_, port, atom)) {
            auto* const sequence =
                reinterpret_cast<LV2_Atom_Sequence*>(&sequence_[i * kSequenceBytes / sizeof(std::uint64_t)]);
            sequence->atom = {sizeof(LV2_Atom_Sequence_Body), mapUri(nullptr, LV2_ATOM__Sequence)};
            if (lilv_port_is_a(plugin_, port, output)) outgoing_.push_back(sequence);
            lilv_instance_connect_port(instance_.get(), i, sequence);
        }
    }
    lilv_node_free(control);
    lilv_node_free(output);
    lilv_node_free(atom);
    moveGains(6);
}

void Peer::connect(std::array<float*, 2> in, std::array<float*, 2> out) {
    LilvNode* const audio = lilv_new_uri(world_.get(), LV2_CORE__AudioPort);
    LilvNode* const input = lilv_new_uri(world_.get(), LV2_CORE__InputPort);
    std::size_t inputs = 0, outputs = 0;
    for (std::uint32_t i = 0; i < controls_.size(); ++i) {
        const LilvPort* const port = lilv_plugin_get_port_by_index(plugin_, i);
        if (!lilv_port_is_a(plugin_, port, audio)) continue;
        const bool isInput = lilv_port_is_a(plugin_, port, input);
        lilv_instance_connect_port(instance_.get(), i, isInput ? in.at(inputs++) : out.at(outputs++));
    }
    lilv_node_free(audio);
    lilv_node_free(input);
    lilv_instance_activate(instance_.get());
}

void Peer::run(std::uint32_t frames) {
    for (LV2_Atom_Sequence* sequence : outgoing_) // how much it may write
        sequence->atom.size = kSequenceBytes - sizeof(LV2_Atom);
    lilv_instance_run(instance_.get(), frames);
}

void Peer::moveGains(float decibels) {
    for (const std::uint32_t port : gains_)
        controls_[port] = decibels;
}

} // namespace QVM_NAMESPACE::bench
