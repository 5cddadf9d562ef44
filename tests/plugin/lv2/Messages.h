// LV2 messages as a host writes and reads them, for the tests of what stands between it and the toolkit.
#pragma once

#include "BuildNamespace.h"

#include <lv2/atom/forge.h>
#include <lv2/atom/util.h>
#include <lv2/patch/patch.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace QVM_NAMESPACE::messages {

// Numbers for names, as a host gives them.
class Urids {
public:
    Urids() = default;
    Urids(const Urids&) = delete;
    Urids& operator=(const Urids&) = delete;

    LV2_URID operator[](const std::string& uri) {
        return numbers_.emplace(uri, static_cast<LV2_URID>(numbers_.size() + 1)).first->second;
    }
    std::string nameOf(LV2_URID urid) const {
        for (const auto& [name, number] : numbers_)
            if (number == urid) return name;
        return {};
    }
    LV2_URID_Map& map() { return map_; }

private:
    static LV2_URID mapped(LV2_URID_Map_Handle self, const char* uri) { return (*static_cast<Urids*>(self))[uri]; }

    std::map<std::string, LV2_URID> numbers_;
    LV2_URID_Map map_{this, &mapped};
};

// A port with messages. The room is what a host says of an empty one.
class Port {
public:
    explicit Port(Urids& urids, std::uint32_t room = 9920) : urids_(urids), words_((room + 24) / 8 + 1), room_(room) {
        lv2_atom_forge_init(&forge_, &urids_.map());
    }

    LV2_Atom_Sequence* sequence() { return reinterpret_cast<LV2_Atom_Sequence*>(words_.data()); }
    std::uint32_t room() const { return room_; }
    void setRoom(std::uint32_t room) { room_ = room; }

    // For what the plug-in writes.
    void offer() { sequence()->atom = {room_, urids_[LV2_ATOM__Chunk]}; }
    // For what the host writes: empty to begin with.
    void begin() {
        lv2_atom_forge_set_buffer(&forge_, reinterpret_cast<std::uint8_t*>(words_.data()), room_);
        lv2_atom_forge_sequence_head(&forge_, &frame_, 0);
    }
    // Without a property it asks for all.
    void addGet(const std::string& property, const std::string& subject = {}) {
        LV2_Atom_Forge_Frame object;
        lv2_atom_forge_frame_time(&forge_, 0);
        lv2_atom_forge_object(&forge_, &object, 0, urids_[LV2_PATCH__Get]);
        addName(LV2_PATCH__subject, subject);
        addName(LV2_PATCH__property, property);
        lv2_atom_forge_pop(&forge_, &object);
    }
    template <class Value>
    void addSet(const std::string& property, Value value, const std::string& subject = {}) {
        LV2_Atom_Forge_Frame object;
        lv2_atom_forge_frame_time(&forge_, 0);
        lv2_atom_forge_object(&forge_, &object, 0, urids_[LV2_PATCH__Set]);
        addName(LV2_PATCH__subject, subject);
        addName(LV2_PATCH__property, property);
        lv2_atom_forge_key(&forge_, urids_[LV2_PATCH__value]);
        add(value);
        lv2_atom_forge_pop(&forge_, &object);
    }

    // What it says, a word a message, in order: "TiltGain=3.5", "HQMode=int 1", or "changed" for a change of state.
    std::vector<std::string> words(const std::string& pluginUri) {
        std::vector<std::string> said;
        LV2_ATOM_SEQUENCE_FOREACH(sequence(), event) {
            const auto* const object = reinterpret_cast<const LV2_Atom_Object*>(&event->body);
            if (object->body.otype == urids_[LV2_STATE__StateChanged]) said.emplace_back("changed");
            const LV2_Atom *property = nullptr, *value = nullptr;
            lv2_atom_object_get(object, urids_[LV2_PATCH__property], &property, urids_[LV2_PATCH__value], &value, 0);
            if (object->body.otype != urids_[LV2_PATCH__Set] || !property || !value) continue;
            const std::string name = urids_.nameOf(reinterpret_cast<const LV2_Atom_URID*>(property)->body);
            said.push_back(name.substr(pluginUri.size() + 1) + "=" + numberText(*value));
        }
        return said;
    }

private:
    void add(float value) { lv2_atom_forge_float(&forge_, value); }
    void add(double value) { lv2_atom_forge_double(&forge_, value); }
    void add(std::int32_t value) { lv2_atom_forge_int(&forge_, value); }
    void add(std::int64_t value) { lv2_atom_forge_long(&forge_, value); }
    void add(bool value) { lv2_atom_forge_bool(&forge_, value); }
    void add(const char* text) { lv2_atom_forge_string(&forge_, text, static_cast<std::uint32_t>(std::strlen(text))); }

    // As short as reads back the same.
    std::string numberText(const LV2_Atom& value) {
        if (value.type == urids_[LV2_ATOM__Int])
            return "int " + std::to_string(reinterpret_cast<const LV2_Atom_Int&>(value).body);
        if (value.type != urids_[LV2_ATOM__Float]) return "no number";
        char text[64];
        char* const end =
            std::to_chars(text, text + sizeof text, reinterpret_cast<const LV2_Atom_Float&>(value).body).ptr;
        return {text, end};
    }
    void addName(const char* key, const std::string& uri) {
        if (uri.empty()) return;
        lv2_atom_forge_key(&forge_, urids_[key]);
        lv2_atom_forge_urid(&forge_, urids_[uri]);
    }

    Urids& urids_;
    std::vector<std::uint64_t> words_; // aligned as atoms are
    std::uint32_t room_;
    LV2_Atom_Forge forge_{};
    LV2_Atom_Forge_Frame frame_{};
};

} // namespace QVM_NAMESPACE::messages
