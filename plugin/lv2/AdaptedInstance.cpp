#include "plugin/lv2/AdaptedInstance.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

// As the toolkit numbers them: two inputs and two outputs of audio, then these.
constexpr std::uint32_t controlPort = 4, notifyPort = 5;

} // namespace

AdaptedInstance::AdaptedInstance(const LV2_Descriptor& toolkit, LV2_Handle handle, const LV2_URID_Map& map)
    : toolkit_(toolkit), handle_(handle), requests_(map, toolkit.URI) {
    toolkit_.connect_port(handle_, notifyPort, notify_.sequence());
}

AdaptedInstance::~AdaptedInstance() {
    toolkit_.cleanup(handle_);
}

void AdaptedInstance::connectPort(std::uint32_t port, void* data) {
    if (port == notifyPort) {
        told_ = static_cast<LV2_Atom_Sequence*>(data);
        return;
    }
    if (port == controlPort) control_ = static_cast<const LV2_Atom_Sequence*>(data);
    toolkit_.connect_port(handle_, port, data);
}

void AdaptedInstance::activate() {
    due_.values = allParameters;
    toolkit_.activate(handle_);
}

void AdaptedInstance::run(std::uint32_t frames, HostAnnouncements& announcements) {
    const Untold due = std::exchange(due_, {});
    const ParameterBits values = due.values | requests_.askedFor(control_);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (values >> pid & 1) announcements.announceValue(pid);
    if (due.stateChange) announcements.announceStateChange();
    notify_.sequence();
    toolkit_.run(handle_, frames);
    due_ = notify_.handOn(told_);
}

void AdaptedInstance::deactivate() {
    toolkit_.deactivate(handle_);
}

} // namespace QVM_NAMESPACE
