// One instance of the toolkit's LV2 plug-in, which renders, with messages of ours: the host sets and hears values in
// the numbers that the user reads, hears all of them when it starts to run the plug-in and whenever it asks, and
// nothing by halves.
//
// The toolkit neither hears the host's messages nor writes any: it knows values in one kind of numbers only, and takes
// locks of its listeners for each.
#pragma once

#include "plugin/lv2/AudioPorts.h"
#include "plugin/lv2/NotifyPort.h"
#include "plugin/lv2/PropertyRequests.h"

#include <lv2/core/lv2.h>
#include <lv2/state/state.h>

#include <array>

namespace QVM_NAMESPACE {

// What the host is to be told by the next block.
struct DueMessages {
    ParameterBits values = 0;
    bool stateChange = false;
};

// The plug-in's values, as the unit has them. Render thread: no lock, no memory.
class PropertyValues {
public:
    virtual ~PropertyValues() = default;
    virtual float hostValue(std::uint32_t pid) const = 0;
    virtual void setHostValue(std::uint32_t pid, float value) = 0;
    // What has changed since it was asked last, and not by the host.
    virtual DueMessages takeDue() = 0;
};

// Threads are those of the format: `run` on the render thread, the rest never while it runs.
class AdaptedInstance {
public:
    // All are borrowed. The handle is one that the toolkit's descriptor made, and goes with the instance.
    AdaptedInstance(const LV2_Descriptor& toolkit, LV2_Handle handle, const LV2_URID_Map& map, PropertyValues& values);
    ~AdaptedInstance();
    AdaptedInstance(const AdaptedInstance&) = delete;
    AdaptedInstance& operator=(const AdaptedInstance&) = delete;

    LV2_Handle handle() const { return handle_; }

    void connectPort(std::uint32_t port, void* data);
    void activate();
    void run(std::uint32_t frames);
    void deactivate();
    // From a state that has properties with values, as a preset of another's may; false where it has none. What it does
    // not have stays.
    bool restoreValues(LV2_State_Retrieve_Function retrieve, LV2_State_Handle from);

private:
    void render(std::uint32_t frames);
    void tell(DueMessages due);
    bool restoreValue(LV2_URID property, LV2_State_Retrieve_Function retrieve, LV2_State_Handle from);

    const LV2_Descriptor& toolkit_;
    const LV2_Handle handle_;
    PropertyValues& values_;
    AudioPorts audio_{toolkit_, handle_};
    const PropertyUrids urids_;
    const PropertyRequests requests_{urids_};
    NotifyPort notify_{urids_};
    const LV2_Atom_Sequence* control_ = nullptr; // the host's, as is the next
    LV2_Atom_Sequence* told_ = nullptr;
    LV2_Atom_Sequence unheard_; // what the toolkit is given to read: nothing
    // Where it writes: an empty sequence.
    struct {
        LV2_Atom_Sequence sequence;
        std::array<std::uint64_t, 16> room;
    } unsaid_;
    DueMessages due_; // had no room so far
};

} // namespace QVM_NAMESPACE
