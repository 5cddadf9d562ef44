#include "plugin/lv2/NotifyPort.h"

#include <lv2/atom/util.h>

#include <cstring>

namespace QVM_NAMESPACE {

LV2_Atom_Sequence* NotifyPort::sequence() {
    auto* const own = reinterpret_cast<LV2_Atom_Sequence*>(bytes_.data());
    *own = {{roomBytes - sizeof(LV2_Atom), 0}, {0, 0}};
    return own;
}

Untold NotifyPort::handOn(LV2_Atom_Sequence* host) const {
    const auto* const own = reinterpret_cast<const LV2_Atom_Sequence*>(bytes_.data());
    const std::size_t room = host ? host->atom.size : 0;
    const bool hasRoom = room >= sizeof(LV2_Atom_Sequence_Body);
    if (hasRoom) *host = {{sizeof(LV2_Atom_Sequence_Body), own->atom.type}, own->body};
    Untold untold;
    LV2_ATOM_SEQUENCE_FOREACH(own, event) {
        const std::size_t bytes =
            lv2_atom_pad_size(static_cast<std::uint32_t>(sizeof(LV2_Atom_Event)) + event->body.size);
        if (hasRoom && host->atom.size + bytes <= room) {
            std::memcpy(lv2_atom_sequence_end(&host->body, host->atom.size), event, bytes);
            host->atom.size += static_cast<std::uint32_t>(bytes);
        } else {
            untold.values |= requests_.setBy(event->body);
            untold.stateChange |= requests_.isStateChange(event->body);
        }
    }
    return untold;
}

} // namespace QVM_NAMESPACE
