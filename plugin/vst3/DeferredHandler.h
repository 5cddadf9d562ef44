// The host's component handler as the VST3 wrapper sees it: edits go straight on, while a request to look at the
// component again ("restart") is passed on by a message of its own. The toolkit makes some of these requests within a
// call from the host, and hosts may hold a lock there that they take again to serve the request.
#pragma once

#include "BuildNamespace.h"

#include <pluginterfaces/vst/ivsteditcontroller.h>

#include <atomic>
#include <mutex>

namespace QVM_NAMESPACE {

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): who releases the last reference destroys it
class DeferredHandler final : public Steinberg::Vst::IComponentHandler {
public:
    // Counted as any object of the format is; begins with one reference. Holds one to the host's until detached.
    explicit DeferredHandler(Steinberg::Vst::IComponentHandler& host);
    DeferredHandler(const DeferredHandler&) = delete;
    DeferredHandler& operator=(const DeferredHandler&) = delete;

    // From here on the host is called no more, and what waits is forgotten. A request that another thread is passing on
    // right now is waited for. Once; any thread; the host may cause it by serving a request.
    void detach();
    bool isFor(const Steinberg::Vst::IComponentHandler* host) const { return &host_ == host; }

    // Until detached, on the thread of the caller.
    Steinberg::tresult PLUGIN_API beginEdit(Steinberg::Vst::ParamID id) override;
    Steinberg::tresult PLUGIN_API performEdit(Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue value) override;
    Steinberg::tresult PLUGIN_API endEdit(Steinberg::Vst::ParamID id) override;

    // Any thread; passed on by the message thread. What comes before that goes as one request.
    Steinberg::tresult PLUGIN_API restartComponent(Steinberg::int32 flags) override;

    // Further interfaces are the host's own.
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID id, void** object) override;
    Steinberg::uint32 PLUGIN_API addRef() override;
    Steinberg::uint32 PLUGIN_API release() override;

private:
    ~DeferredHandler() = default;
    void passOn();

    Steinberg::Vst::IComponentHandler& host_;
    std::atomic<Steinberg::uint32> references_ = 1;
    std::atomic<Steinberg::int32> waiting_ = 0; // flags
    std::recursive_mutex mutex_;                // held while a request is passed on; guards the next
    bool isDetached_ = false;
};

} // namespace QVM_NAMESPACE
