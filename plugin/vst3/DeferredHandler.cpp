#include "plugin/vst3/DeferredHandler.h"

#include <juce_events/juce_events.h>

namespace QVM_NAMESPACE {

using namespace Steinberg;

DeferredHandler::DeferredHandler(Vst::IComponentHandler& host) : host_(host) {
    host_.addRef();
}

void DeferredHandler::detach() {
    const std::scoped_lock lock(mutex_);
    isDetached_ = true;
    host_.release();
}

tresult PLUGIN_API DeferredHandler::beginEdit(Vst::ParamID id) {
    return host_.beginEdit(id);
}

tresult PLUGIN_API DeferredHandler::performEdit(Vst::ParamID id, Vst::ParamValue value) {
    return host_.performEdit(id, value);
}

tresult PLUGIN_API DeferredHandler::endEdit(Vst::ParamID id) {
    return host_.endEdit(id);
}

tresult PLUGIN_API DeferredHandler::restartComponent(int32 flags) {
    if (flags == 0 || waiting_.fetch_or(flags) != 0) return kResultTrue;
    juce::MessageManager::callAsync([self = IPtr<DeferredHandler>(this)] { self->passOn(); });
    return kResultTrue;
}

void DeferredHandler::passOn() {
    const std::scoped_lock lock(mutex_);
    const int32 flags = waiting_.exchange(0);
    if (!isDetached_) host_.restartComponent(flags);
}

tresult PLUGIN_API DeferredHandler::queryInterface(const TUID id, void** object) {
    QUERY_INTERFACE(id, object, FUnknown::iid, Vst::IComponentHandler)
    QUERY_INTERFACE(id, object, Vst::IComponentHandler::iid, Vst::IComponentHandler)
    return host_.queryInterface(id, object);
}

uint32 PLUGIN_API DeferredHandler::addRef() {
    return ++references_;
}

uint32 PLUGIN_API DeferredHandler::release() {
    const uint32 left = --references_;
    if (left == 0) delete this;
    return left;
}

} // namespace QVM_NAMESPACE
