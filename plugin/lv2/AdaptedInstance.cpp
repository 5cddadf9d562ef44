#include "plugin/lv2/AdaptedInstance.h"

#include "description/Description.h"
#include "plugin/lv2/Properties.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

// As the toolkit numbers them, behind those of audio.
constexpr std::uint32_t controlPort = AudioPorts::count, notifyPort = controlPort + 1;

} // namespace

AdaptedInstance::AdaptedInstance(const LV2_Descriptor& toolkit, LV2_Handle handle, const LV2_URID_Map& map,
                                 PropertyValues& values)
    : toolkit_(toolkit), handle_(handle), values_(values),
      urids_(map, toolkit.URI), unheard_{{sizeof(LV2_Atom_Sequence_Body), urids_.sequence}, {0, 0}}, unsaid_{} {
    toolkit_.connect_port(handle_, controlPort, &unheard_);
    toolkit_.connect_port(handle_, notifyPort, &unsaid_.sequence);
}

AdaptedInstance::~AdaptedInstance() {
    toolkit_.cleanup(handle_);
}

void AdaptedInstance::connectPort(std::uint32_t port, void* data) {
    if (port == notifyPort) {
        told_ = static_cast<LV2_Atom_Sequence*>(data);
    } else if (port == controlPort) {
        control_ = static_cast<const LV2_Atom_Sequence*>(data);
    } else if (port < AudioPorts::count) {
        audio_.connect(port, static_cast<float*>(data));
    } else {
        toolkit_.connect_port(handle_, port, data);
    }
}

void AdaptedInstance::activate() {
    due_.values = allParameters;
    toolkit_.activate(handle_);
}

void AdaptedInstance::run(std::uint32_t frames) {
    requests_.forEachSetting(
        control_, [this](const PropertySetting& setting) { values_.setHostValue(setting.pid, setting.hostValue); });
    const ParameterBits asked = requests_.askedFor(control_);
    audio_.render(frames, [this](std::uint32_t piece) { render(piece); });
    const DueMessages fresh = values_.takeDue(), late = std::exchange(due_, {});
    tell({fresh.values | late.values | asked, fresh.stateChange || late.stateChange});
}

void AdaptedInstance::render(std::uint32_t frames) {
    unsaid_.sequence.atom = {sizeof unsaid_ - sizeof(LV2_Atom), 0};
    toolkit_.run(handle_, frames);
}

void AdaptedInstance::tell(DueMessages due) {
    notify_.begin(told_);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const ParameterBits bit = ParameterBits{1} << pid;
        if (!(due.values & bit)) continue;
        if (!notify_.tellValue(pid, propertyValue(*GetParameter(pid), values_.hostValue(pid)))) due_.values |= bit;
    }
    if (due.stateChange) due_.stateChange = !notify_.tellStateChange();
}

void AdaptedInstance::deactivate() {
    toolkit_.deactivate(handle_);
}

bool AdaptedInstance::restoreValues(LV2_State_Retrieve_Function retrieve, LV2_State_Handle from) {
    bool isAny = false;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const bool isFound = restoreValue(urids_.properties[pid], retrieve, from) ||
                             restoreValue(urids_.formerProperties[pid], retrieve, from);
        if (isFound) due_.values |= ParameterBits{1} << pid;
        isAny |= isFound;
    }
    return isAny;
}

bool AdaptedInstance::restoreValue(LV2_URID property, LV2_State_Retrieve_Function retrieve, LV2_State_Handle from) {
    if (property == 0) return false;
    std::size_t bytes = 0;
    std::uint32_t type = 0, flags = 0;
    const void* const number = retrieve(from, property, &bytes, &type, &flags);
    if (!number) return false;
    const std::optional<PropertySetting> setting = requests_.setting(property, type, number, bytes);
    if (setting) values_.setHostValue(setting->pid, setting->hostValue);
    return setting.has_value();
}

} // namespace QVM_NAMESPACE
