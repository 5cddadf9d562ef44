// A unit that records every call and fails on demand.
#pragma once

#include "platform/audiounit/AudioUnit.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class FakeAudioUnit final : public AudioUnitInstance {
public:
    static constexpr std::uint32_t parameterCount = 24;

    FakeAudioUnit() = default;

    // Gives the unit a property with these bytes as its value.
    template <class T>
    void addProperty(AudioUnitPropertyID id, const T& value, AudioUnitScope scope = 0) {
        auto& property = properties[id];
        property.scope = scope;
        property.bytes.resize(sizeof value);
        std::memcpy(property.bytes.data(), &value, sizeof value);
    }
    // The value last set, or the one it was given.
    template <class T>
    T property(AudioUnitPropertyID id) const {
        T value{};
        std::memcpy(&value, properties.at(id).bytes.data(), sizeof value);
        return value;
    }

    OSStatus getParameter(AudioUnitParameterID id, AudioUnitScope, AudioUnitElement, float* value) const override {
        calls.push_back("get " + std::to_string(id));
        if (const auto failure = parameterErrors.find(id); failure != parameterErrors.end()) return failure->second;
        if (id >= parameterCount) return kAudioUnitErr_InvalidParameter;
        *value = values[id];
        return noErr;
    }
    OSStatus setParameter(AudioUnitParameterID id, AudioUnitScope, AudioUnitElement, float value,
                          std::uint32_t bufferOffset) override {
        calls.push_back("set " + std::to_string(id));
        lastBufferOffset = bufferOffset;
        if (const auto failure = parameterErrors.find(id); failure != parameterErrors.end()) return failure->second;
        if (id >= parameterCount) return kAudioUnitErr_InvalidParameter;
        if (!std::isfinite(value)) return kAudio_ParamError;
        values[id] = std::clamp(value, limits[id].low, limits[id].high);
        return noErr;
    }
    OSStatus propertyInfo(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement,
                          AudioUnitPropertyInfo* info) const override {
        const auto found = properties.find(id);
        if (found == properties.end()) {
            calls.push_back("no property " + std::to_string(id));
            return kAudioUnitErr_InvalidProperty;
        }
        if (found->second.scope != scope) return kAudioUnitErr_InvalidScope;
        *info = {static_cast<std::uint32_t>(found->second.bytes.size()), true, true};
        return noErr;
    }
    OSStatus getProperty(AudioUnitPropertyID id, AudioUnitScope, AudioUnitElement, void* data) override {
        calls.push_back("get property " + std::to_string(id));
        const auto& bytes = properties.at(id).bytes;
        std::memcpy(data, bytes.data(), bytes.size());
        return noErr;
    }
    OSStatus setProperty(AudioUnitPropertyID id, AudioUnitScope, AudioUnitElement, const void* data) override {
        calls.push_back("set property " + std::to_string(id));
        auto& bytes = properties.at(id).bytes;
        std::memcpy(bytes.data(), data, bytes.size());
        return noErr;
    }

    struct Property {
        AudioUnitScope scope = 0;
        std::vector<unsigned char> bytes;
    };

    // What is set outside of them ends at the nearest one.
    struct Limits {
        float low = std::numeric_limits<float>::lowest();
        float high = std::numeric_limits<float>::max();
    };

    std::atomic<float> values[parameterCount] = {};
    Limits limits[parameterCount] = {};
    std::map<AudioUnitParameterID, OSStatus> parameterErrors;
    std::map<AudioUnitPropertyID, Property> properties;
    std::uint32_t lastBufferOffset = 0;
    mutable std::vector<std::string> calls; // in order; not for use from several threads
};

} // namespace QVM_NAMESPACE
