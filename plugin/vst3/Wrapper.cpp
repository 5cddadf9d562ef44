// The toolkit's VST3 wrapper, whose classes are given base classes of ours and whose buffers are ours: nothing less
// than this source, which has its classes to itself, lets the host's handler be replaced before the wrapper keeps it,
// the records of the parameters be completed, a block be looked at before it is copied, an editor keep what it shows,
// it be known that the host has said the scale which the wrapper takes for granted, and what the wrapper leaves undone
// of a block be done.
#include <juce_core/system/juce_TargetPlatform.h>
// In the wrapper's own order: each needs the one before.
#include <juce_core/system/juce_CompilerWarnings.h>
// And the format's sources, which are compiled here.
#include <juce_audio_processors/format_types/juce_VST3Headers.h>
// The modules with the window system's types, as the wrapper wants them.
#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1
#include <juce_audio_processors/juce_audio_processors.h>

#include "plugin/vst3/CheckedBuffers.h"
#include "plugin/vst3/DeferredHandler.h"
#include "plugin/vst3/ParameterListing.h"

#include <algorithm>
#include <cmath>

namespace Steinberg::Vst {

class CompletedController : public EditController {
public:
    ~CompletedController() override { detach(); }

    tresult PLUGIN_API getParameterInfo(int32 index, ParameterInfo& info) override {
        if (index < 0 || index >= getParameterCount()) return kInvalidArgument; // the base class would throw
        const tresult result = EditController::getParameterInfo(index, info);
        if (result == kResultTrue) slantwise::completeParameterInfo(info);
        return result;
    }

    tresult PLUGIN_API setParamNormalized(ParamID id, ParamValue value) override {
        if (!std::isfinite(value)) return kInvalidArgument;
        return EditController::setParamNormalized(id, std::clamp(value, 0.0, 1.0));
    }

    // The wrapper has taken the values from the component by then.
    tresult PLUGIN_API setComponentState(IBStream* state) override { return state ? kResultTrue : kInvalidArgument; }

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

// Has a share in the processor, which the toolkit's editor uses to its own end: some host ends the component and its
// controller first.
class KeepingEditorView : public EditorView {
public:
    explicit KeepingEditorView(EditController* controller, ViewRect* size = nullptr);

private:
    IPtr<FUnknown> processor_;
};

class FlaggedProcessor : public IAudioProcessor {
public:
    // Hosts hand buffers with the silence flags of whatever was in them before, and believe what they find afterwards.
    tresult PLUGIN_API process(ProcessData& data) final {
        for (int32 bus = 0; data.outputs != nullptr && bus < data.numOutputs; ++bus)
            data.outputs[bus].silenceFlags = 0;
        return processInToolkit(data);
    }
    virtual tresult PLUGIN_API processInToolkit(ProcessData& data) = 0;

protected:
    ~FlaggedProcessor() = default; // who counts the references deletes the whole
};

} // namespace Steinberg::Vst

namespace Steinberg {

class HeardContentScale : public IPlugViewContentScaleSupport {
public:
    tresult PLUGIN_API setContentScaleFactor(ScaleFactor factor) final {
        wasHeard();
        return setToolkitScaleFactor(factor);
    }
    virtual tresult PLUGIN_API setToolkitScaleFactor(ScaleFactor factor) = 0;

protected:
    ~HeardContentScale() = default; // as above

private:
    void wasHeard();
};

} // namespace Steinberg

// NOLINTBEGIN(readability-identifier-naming): the names in the wrapper
#define EditController CompletedController
#define EditorView KeepingEditorView
#define ClientBufferMapper ::slantwise::CheckedBufferMapper
#define ClientRemappedBuffer ::slantwise::CheckedRemappedBuffer
#define IAudioProcessor FlaggedProcessor
#define process processInToolkit
#define IPlugViewContentScaleSupport HeardContentScale
#define setContentScaleFactor setToolkitScaleFactor
// NOLINTEND(readability-identifier-naming)
#include <juce_audio_plugin_client/juce_audio_plugin_client_VST3.cpp> // NOLINT(bugprone-suspicious-include): see above
#undef setContentScaleFactor
#undef IPlugViewContentScaleSupport
#undef ClientRemappedBuffer
#undef ClientBufferMapper
#undef EditorView
#undef process
#undef IAudioProcessor
#undef EditController
#undef Component // the toolkit's source makes a macro of it

// Behind the toolkit's source, which says first how its modules are to be included.
#include "plugin/SlantwiseProcessor.h"

// As the wrapper itself does: messages may be another thread's until the view is attached.
void Steinberg::HeardContentScale::wasHeard() {
    const juce::MessageManagerLock lock;
    auto& view = dynamic_cast<Vst::EditorView&>(*this);
    auto* const controller = dynamic_cast<juce::JuceVST3EditController*>(view.getController());
    auto* const processor = controller ? controller->getPluginInstance() : nullptr;
    if (processor) static_cast<slantwise::SlantwiseProcessor*>(processor)->setScaledByHost();
}

Steinberg::Vst::KeepingEditorView::KeepingEditorView(EditController* controller, ViewRect* size)
    : EditorView(controller, size) {
    void* processor = nullptr;
    if (controller->queryInterface(juce::JuceAudioProcessor::iid, &processor) == kResultOk)
        processor_ = owned<FUnknown>(static_cast<juce::JuceAudioProcessor*>(processor));
}
