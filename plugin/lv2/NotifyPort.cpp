#include "plugin/lv2/NotifyPort.h"

#include "description/Description.h"
#include "plugin/lv2/Properties.h"

#include <lv2/atom/util.h>

#include <bit>
#include <cmath>
#include <cstring>

namespace QVM_NAMESPACE {

namespace {

// As they lie in a sequence: with the padding behind each value.
struct ObjectEvent {
    std::int64_t frame = 0;
    LV2_Atom atom;
    LV2_Atom_Object_Body object;
};
struct Entry {
    LV2_URID key, context = 0;
    LV2_Atom atom;
    std::uint32_t word, padding = 0; // the value's bits
};
struct SetEvent {
    ObjectEvent event;
    Entry property, value;
};
static_assert(sizeof(ObjectEvent) == 24 && sizeof(Entry) == 24 && sizeof(SetEvent) == 72);

template <class Message>
constexpr std::uint32_t bodySize = sizeof(Message) - sizeof(LV2_Atom_Event);

} // namespace

void NotifyPort::begin(LV2_Atom_Sequence* host) {
    room_ = host ? host->atom.size : 0;
    host_ = room_ >= sizeof(LV2_Atom_Sequence_Body) ? host : nullptr;
    if (host_) *host_ = {{sizeof(LV2_Atom_Sequence_Body), urids_.sequence}, {0, 0}};
}

bool NotifyPort::tellValue(std::uint32_t pid, float value) {
    const bool isWhole = isWholeProperty(*GetParameter(pid));
    const std::uint32_t word =
        isWhole ? static_cast<std::uint32_t>(std::lround(value)) : std::bit_cast<std::uint32_t>(value);
    const SetEvent message{
        {0, {bodySize<SetEvent>, urids_.object}, {0, urids_.set}},
        {urids_.property, 0, {sizeof word, urids_.urid}, urids_.properties[pid]},
        {urids_.value, 0, {sizeof word, isWhole ? urids_.intType : urids_.floatType}, word},
    };
    return append(&message, sizeof message);
}

bool NotifyPort::tellStateChange() {
    const ObjectEvent message{0, {bodySize<ObjectEvent>, urids_.object}, {0, urids_.stateChanged}};
    return append(&message, sizeof message);
}

bool NotifyPort::append(const void* message, std::size_t bytes) {
    if (!host_ || host_->atom.size + bytes > room_) return false;
    std::memcpy(lv2_atom_sequence_end(&host_->body, host_->atom.size), message, bytes);
    host_->atom.size += static_cast<std::uint32_t>(bytes);
    return true;
}

} // namespace QVM_NAMESPACE
