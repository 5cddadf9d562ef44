// The toolkit's LV2 wrapper, whose two entry points stay in this source, and ours in their place: they hand the host
// what the toolkit's would, but with an AdaptedInstance around each of its instances.
#include <lv2/core/lv2.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/state/state.h>
#include <lv2/ui/ui.h>

#pragma push_macro("LV2_SYMBOL_EXPORT")
#undef LV2_SYMBOL_EXPORT
#define LV2_SYMBOL_EXPORT static
#define lv2_descriptor toolkitDescriptor     // NOLINT(readability-identifier-naming): the name of the entry point
#define lv2ui_descriptor toolkitUiDescriptor // NOLINT(readability-identifier-naming): likewise
#include <juce_audio_plugin_client/juce_audio_plugin_client_LV2.cpp> // NOLINT(bugprone-suspicious-include): see above
#undef lv2ui_descriptor
#undef lv2_descriptor
#pragma pop_macro("LV2_SYMBOL_EXPORT")

// Behind the toolkit's source, which says first how its modules are to be included.
#include "plugin/SlantwiseProcessor.h"
#include "plugin/lv2/AdaptedInstance.h"
#include "plugin/lv2/HostFeatures.h"
#include "plugin/lv2/IntegerOptions.h"

#include <cstring>
#include <memory>

namespace {

using ToolkitInstance = juce::lv2_client::LV2PluginInstance;
using Processor = std::unique_ptr<juce::AudioProcessor>;

// The toolkit's instance keeps its processor to itself. The language lets the arguments of an explicit instantiation
// name what is private, and this hands it on.
Processor& processorOf(ToolkitInstance& instance);
template <Processor ToolkitInstance::*member>
struct Opened {
    friend Processor& processorOf(ToolkitInstance& instance) { return instance.*member; }
};
template struct Opened<&ToolkitInstance::processor>;

const LV2_Descriptor& toolkitPlugin() {
    return *juce::lv2_client::toolkitDescriptor(0);
}

const LV2UI_Descriptor& toolkitEditor() {
    return *juce::lv2_client::toolkitUiDescriptor(0);
}

// What a host has a handle of, by a pointer that shares it with the editors.
class Instance final : private slantwise::PropertyValues {
public:
    Instance(LV2_Handle toolkit, const LV2_URID_Map& map)
        : processor_(
              static_cast<slantwise::SlantwiseProcessor&>(*processorOf(*static_cast<ToolkitInstance*>(toolkit)))),
          program_(map.map(map.handle, juce::lv2_client::JucePluginLV2UriProgram.toRawUTF8())),
          adapted_(toolkitPlugin(), toolkit, map, *this) {}

    using Shared = std::shared_ptr<Instance>;
    static Shared& sharedOf(LV2_Handle handle) { return *static_cast<Shared*>(handle); }
    static Instance& of(LV2_Handle handle) { return *sharedOf(handle); }
    slantwise::AdaptedInstance& adapted() { return adapted_; }
    void setScaledByHost() { processor_.setScaledByHost(); } // before there is an editor
    LV2_State_Status restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle from, std::uint32_t flags,
                             const LV2_Feature* const* features);

private:
    float hostValue(std::uint32_t pid) const override { return processor_.parameter(pid).hostValue(); }
    void setHostValue(std::uint32_t pid, float value) override { processor_.parameter(pid).takeHostValue(value); }
    slantwise::DueMessages takeDue() override {
        const std::uint32_t due = processor_.takeDue();
        return {due & slantwise::allParameters, (due & slantwise::SlantwiseProcessor::stateChangeBit) != 0};
    }

    slantwise::SlantwiseProcessor& processor_; // the toolkit's instance owns it
    const LV2_URID program_;
    slantwise::AdaptedInstance adapted_;
};

LV2_Handle instantiate(const LV2_Descriptor*, double rateHz, const char* bundle, const LV2_Feature* const* features) {
    const auto* const map = slantwise::featureData<const LV2_URID_Map>(features, LV2_URID__map);
    if (!map) return nullptr;
    slantwise::IntegerOptions options(slantwise::featureData<const LV2_Options_Option>(features, LV2_OPTIONS__options),
                                      *map);
    slantwise::HostFeatures adapted(features);
    adapted.replace(LV2_OPTIONS__options, options.get());
    const LV2_Handle toolkit = toolkitPlugin().instantiate(&toolkitPlugin(), rateHz, bundle, adapted.get());
    return toolkit ? new Instance::Shared(std::make_shared<Instance>(toolkit, *map)) : nullptr;
}

const LV2_State_Interface& toolkitState() {
    return *static_cast<const LV2_State_Interface*>(toolkitPlugin().extension_data(LV2_STATE__interface));
}

// The toolkit is content with any text for a state, and knows none of values.
LV2_State_Status Instance::restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle from, std::uint32_t flags,
                                   const LV2_Feature* const* features) {
    std::size_t size = 0;
    std::uint32_t type = 0, valueFlags = 0;
    const bool isProgram = retrieve(from, program_, &size, &type, &valueFlags) != nullptr;
    const std::uint32_t before = processor_.unit().restoreCount();
    const LV2_State_Status status = toolkitState().restore(adapted_.handle(), retrieve, from, flags, features);
    if (status == LV2_STATE_ERR_NO_PROPERTY && adapted_.restoreValues(retrieve, from)) return LV2_STATE_SUCCESS;
    const bool isTaken = isProgram || processor_.unit().restoreCount() != before;
    return status == LV2_STATE_SUCCESS && !isTaken ? LV2_STATE_ERR_UNKNOWN : status;
}

const void* extensionData(const char* uri) {
    static const LV2_State_Interface state{
        [](LV2_Handle handle, LV2_State_Store_Function store, LV2_State_Handle to, std::uint32_t flags,
           const LV2_Feature* const* features) {
            return toolkitState().save(Instance::of(handle).adapted().handle(), store, to, flags, features);
        },
        [](LV2_Handle handle, LV2_State_Retrieve_Function retrieve, LV2_State_Handle from, std::uint32_t flags,
           const LV2_Feature* const* features) {
            return Instance::of(handle).restore(retrieve, from, flags, features);
        }};
    return std::strcmp(uri, LV2_STATE__interface) == 0 ? &state : toolkitPlugin().extension_data(uri);
}

// What a host has a handle of as an editor. The toolkit's looks at the instance to its own end, and some host lets go
// of the instance first.
struct Editor {
    Instance::Shared instance;
    LV2UI_Handle toolkit;
};

// Null for null: what shows editors in windows of another toolkit forgets the handle when the window goes, and its
// host, still with messages to tell, calls with none.
LV2UI_Handle toolkitHandleOf(LV2UI_Handle editor) {
    return editor ? static_cast<Editor*>(editor)->toolkit : nullptr;
}

template <class Interface>
const Interface& toolkitEditorData(const char* uri) {
    return *static_cast<const Interface*>(toolkitEditor().extension_data(uri));
}

// What a function of the toolkit's interface answers for its own editor, or `ifGone` where there is none any more.
template <class Interface, class Answer, class... Arguments>
Answer asked(const char* uri, Answer (*Interface::*what)(void*, Arguments...), Answer ifGone, LV2UI_Handle editor,
             Arguments... arguments) {
    const LV2UI_Handle toolkit = toolkitHandleOf(editor);
    return toolkit ? (toolkitEditorData<Interface>(uri).*what)(toolkit, arguments...) : ifGone;
}

constexpr int isGone = 1; // for idling: that the editor is closed
constexpr std::uint32_t hasNoOptions = LV2_OPTIONS_ERR_UNKNOWN;

// The toolkit's interfaces, which are given an editor, with its own in place of ours.
const void* editorExtensionData(const char* uri) {
    static const LV2UI_Idle_Interface idle{
        [](LV2UI_Handle editor) { return asked(LV2_UI__idleInterface, &LV2UI_Idle_Interface::idle, isGone, editor); }};
    static const LV2UI_Resize resize{nullptr, [](LV2UI_Feature_Handle editor, int width, int height) {
                                         return asked(LV2_UI__resize, &LV2UI_Resize::ui_resize, isGone, editor, width,
                                                      height);
                                     }};
    static const LV2_Options_Interface options{
        [](LV2_Handle editor, LV2_Options_Option* list) {
            return asked(LV2_OPTIONS__interface, &LV2_Options_Interface::get, hasNoOptions, editor, list);
        },
        [](LV2_Handle editor, const LV2_Options_Option* list) {
            return asked(LV2_OPTIONS__interface, &LV2_Options_Interface::set, hasNoOptions, editor, list);
        }};
    if (std::strcmp(uri, LV2_UI__idleInterface) == 0) return &idle;
    if (std::strcmp(uri, LV2_UI__resize) == 0) return &resize;
    if (std::strcmp(uri, LV2_OPTIONS__interface) == 0) return &options;
    return toolkitEditor().extension_data(uri);
}

// The editor reaches the toolkit's instance by the handle that the host has: ours. None where the host lacks what the
// bundle says is required; the toolkit does not look at all of it.
LV2UI_Handle instantiateEditor(const LV2UI_Descriptor*, const char* plugin, const char* bundle,
                               LV2UI_Write_Function write, LV2UI_Controller controller, LV2UI_Widget* widget,
                               const LV2_Feature* const* features) {
    auto* const instance = slantwise::featureData<Instance::Shared>(features, LV2_INSTANCE_ACCESS_URI);
    const bool hasAll = instance && slantwise::featureData<void>(features, LV2_UI__parent) &&
                        slantwise::featureData<const LV2_URID_Map>(features, LV2_URID__map);
    if (!hasAll || std::strcmp(plugin, toolkitPlugin().URI) != 0) return nullptr;
    slantwise::HostFeatures adapted(features);
    adapted.replace(LV2_INSTANCE_ACCESS_URI, (*instance)->adapted().handle());
    if (slantwise::isScaleSaid(features)) (*instance)->setScaledByHost();
    const LV2UI_Handle toolkit =
        toolkitEditor().instantiate(&toolkitEditor(), plugin, bundle, write, controller, widget, adapted.get());
    return toolkit ? new Editor{*instance, toolkit} : nullptr;
}

void cleanUpEditor(LV2UI_Handle editor) {
    const std::unique_ptr<Editor> ended(static_cast<Editor*>(editor));
    if (ended) toolkitEditor().cleanup(ended->toolkit);
}

} // namespace

LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(std::uint32_t index) {
    static const LV2_Descriptor descriptor{
        toolkitPlugin().URI,
        instantiate,
        [](LV2_Handle handle, std::uint32_t port, void* data) {
            Instance::of(handle).adapted().connectPort(port, data);
        },
        [](LV2_Handle handle) { Instance::of(handle).adapted().activate(); },
        [](LV2_Handle handle, std::uint32_t frames) { Instance::of(handle).adapted().run(frames); },
        [](LV2_Handle handle) { Instance::of(handle).adapted().deactivate(); },
        [](LV2_Handle handle) { delete &Instance::sharedOf(handle); },
        extensionData};
    return index == 0 ? &descriptor : nullptr;
}

LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(std::uint32_t index) {
    static const LV2UI_Descriptor descriptor{
        toolkitEditor().URI, instantiateEditor, cleanUpEditor,
        [](LV2UI_Handle editor, std::uint32_t port, std::uint32_t bytes, std::uint32_t format, const void* data) {
            if (const LV2UI_Handle toolkit = toolkitHandleOf(editor))
                toolkitEditor().port_event(toolkit, port, bytes, format, data);
        },
        editorExtensionData};
    return index == 0 ? &descriptor : nullptr;
}
