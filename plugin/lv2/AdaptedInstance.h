// One instance of the toolkit's LV2 plug-in with what the toolkit leaves out: the host is told of all values when it
// starts to run the plug-in and whenever it asks, and of nothing by halves.
#pragma once

#include "plugin/lv2/NotifyPort.h"
#include "plugin/lv2/PropertyRequests.h"

#include <lv2/core/lv2.h>

namespace QVM_NAMESPACE {

// Has the toolkit tell the host with the block that it runs next. Render thread.
class HostAnnouncements {
public:
    virtual ~HostAnnouncements() = default;
    virtual void announceValue(std::uint32_t pid) = 0;
    virtual void announceStateChange() = 0;
};

// Threads are those of the format: `run` on the render thread, the rest never while it runs.
class AdaptedInstance {
public:
    // Both are borrowed. The handle is one that the toolkit's descriptor made, and goes with the instance.
    AdaptedInstance(const LV2_Descriptor& toolkit, LV2_Handle handle, const LV2_URID_Map& map);
    ~AdaptedInstance();
    AdaptedInstance(const AdaptedInstance&) = delete;
    AdaptedInstance& operator=(const AdaptedInstance&) = delete;

    LV2_Handle handle() const { return handle_; }

    void connectPort(std::uint32_t port, void* data);
    void activate();
    void run(std::uint32_t frames, HostAnnouncements& announcements);
    void deactivate();

private:
    const LV2_Descriptor& toolkit_;
    const LV2_Handle handle_;
    const PropertyRequests requests_;
    NotifyPort notify_{requests_};
    const LV2_Atom_Sequence* control_ = nullptr; // the host's, as is the next
    LV2_Atom_Sequence* told_ = nullptr;
    Untold due_; // to be told by the next block
};

} // namespace QVM_NAMESPACE
