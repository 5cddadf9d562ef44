// The toolkit's VST3 wrapper, whose edit controller is given a base class of ours: nothing less than this source, which
// has the class to itself, lets the host's handler be replaced before the wrapper keeps it, and the records of the
// parameters be completed.
#include <juce_core/system/juce_TargetPlatform.h>
// In the wrapper's own order: each needs the one before.
#include <juce_core/system/juce_CompilerWarnings.h>
// And the format's sources, which are compiled here.
#include <juce_audio_processors/format_types/juce_VST3Headers.h>

#include "plugin/vst3/DeferredHandler.h"
#include "plugin/vst3/ParameterListing.h"

namespace Steinberg::Vst {

class CompletedController : public EditController {
public:
    ~CompletedController() override { detach(); }

    tresult PLUGIN_API getParameterInfo(int32 index, ParameterInfo& info) override {
        const tresult result = EditController::getParameterInfo(index, info);
        if (result == kResultTrue) slantwise::completeParameterInfo(info);
        return result;
    }

    tresult PLUGIN_API setComponentHandler(IComponentHandler* host) override {
        if (host != nullptr && handler_ && handler_->isFor(host)) return kResultTrue;
        detach();
        if (host != nullptr) handler_ = owned(new slantwise::DeferredHandler(*host));
        return EditController::setComponentHandler(handler_);
    }

    tresult PLUGIN_API terminate() override {
        detach();
        return EditController::terminate();
    }

private:
    void detach() {
        if (handler_) handler_->detach();
        handler_ = nullptr;
    }

    IPtr<slantwise::DeferredHandler> handler_; // the base class calls and counts it as well
};

} // namespace Steinberg::Vst

#define EditController CompletedController // NOLINT(readability-identifier-naming): the name of the base class
#include <juce_audio_plugin_client/juce_audio_plugin_client_VST3.cpp> // NOLINT(bugprone-suspicious-include): see above
#undef EditController
