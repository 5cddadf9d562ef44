#include "host/QVM0015_CocoaView2.h"

#include "description/QVMConfig.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/UnitLog.h"
#include "preferences/PreferenceFile.h"

namespace QVM_NAMESPACE {

QVM0015_CocoaView2::QVM0015_CocoaView2(const Rect& frame) : View(frame) {
    layer()->setName("host view");
}

QVM0015_CocoaView2::~QVM0015_CocoaView2() {
    if (!ui_) return;
    // No delayed call and no observation is aimed at this view, so there is none to end.
    logIfFailed("closeViz", setProperty(kQVMProperty_CloseViz, std::uint32_t{1}));
    removeListeners();
    release();
}

void QVM0015_CocoaView2::setAU(AudioUnit unit) {
    if (ui_) {
        removeListeners();
        // The editor is about to go, and with it the drawing object that the earlier unit refers to.
        logIfFailed("closeViz", setProperty(kQVMProperty_CloseViz, std::uint32_t{1}));
        release();
    }
    mAU = unit;
    for (std::uint32_t pid = 0; pid < parameterCount; ++pid) {
        mParameter[pid] = {unit, pid, kAudioUnitScope_Global, 0};
    }
    addListeners();
    createEditor();
    synchronise();
    if (ui_->currentScale() != 1) ui_->requestFrame(ui_->altFrame());
}

void QVM0015_CocoaView2::addListeners() {
    logIfFailed("AUListenerCreate()", AUListenerCreate(&QVM0015_CocoaView2::ParameterListenerDispatcher, this,
                                                       &RunLoop::main(), 0, &mParameterListener));
    for (const AudioUnitParameter& parameter : mParameter) {
        logIfFailed("AUListenerAddParameter()", AUListenerAddParameter(mParameterListener, nullptr, &parameter));
    }
}

void QVM0015_CocoaView2::removeListeners() {
    for (const AudioUnitParameter& parameter : mParameter) {
        logIfFailed("AUListenerRemoveParameter()", AUListenerRemoveParameter(mParameterListener, nullptr, &parameter));
    }
    logIfFailed("AUListenerDispose()", AUListenerDispose(mParameterListener));
    mParameterListener = nullptr;
}

void QVM0015_CocoaView2::createEditor() {
    std::uint32_t chanIn = 0, chanOut = 0;
    logIfFailed("in", getProperty(kQVMProperty_InputChannels, chanIn));
    logIfFailed("out", getProperty(kQVMProperty_OutputChannels, chanOut));
    auto editor = std::make_unique<QVMGenericUI>(bounds(), QVMConfig::inlinedConfig(), chanIn, chanOut);
    ui_ = editor.get();
    const Values values = readParameters();
    for (std::uint32_t pid = 0; pid < parameterCount; ++pid)
        editor->setMemoizedPValueDirectlyValue(pid, values.shown[pid]);
    editor->completeInterfaceSetup();
    for (const auto& [key, value] : PreferenceFile::ofUser().read())
        editor->preferences().adopt(key, value);
    editor->resetABState(values.held); // before a preset that is asked for at once can take the place of what was read
    editor->setDelegate(this);
    addSubview(std::move(editor));
}

QVM0015_CocoaView2::Values QVM0015_CocoaView2::readParameters() const {
    Values values;
    for (std::uint32_t pid = 0; pid < parameterCount; ++pid) {
        float value = 0;
        logIfFailed("get", AudioUnitGetParameter(mAU, pid, kAudioUnitScope_Global, 0, &value));
        const QVMParameter* parameter = ui_->config().parameterForPid(pid);
        values.shown[pid] = parameter->shownValueFromHostValue(value);
        values.held[pid] = parameter->heldValueFromHostValue(value);
    }
    return values;
}

void QVM0015_CocoaView2::adoptRestoredState() {
    if (!ui_) return;
    synchronise();
    if (abState_.state != QVMABRecord::nothingSaved) return;
    ui_->resetABState(readParameters().held); // the frame that brings the unit's values is still to come
}

// A property that cannot be read leaves the editor as it is: no name, nothing saved, the normal layout.
void QVM0015_CocoaView2::synchronise() {
    const std::string* name = nullptr;
    getProperty(kQVMProperty_PresetName, name);
    lastPreset_ = name ? *name : std::string();
    if (name) ui_->lastSavedPresetWasNamed(lastPreset_);

    adoptAlternateState();

    uiState_ = 0;
    getProperty(kQVMProperty_InterfaceState, uiState_);
    ui_->restoreUIState(uiState_);
}

void QVM0015_CocoaView2::adoptAlternateState() {
    QVMABRecord record;
    getProperty(kQVMProperty_ABState, record);
    abSettings_ = record.settings ? *record.settings : std::string();
    abState_ = {record.state, 0, &abSettings_};
    ui_->restoreABStateSettings(abState_.state, abSettings_);
}

void QVM0015_CocoaView2::release() {
    ui_->setDelegate(nullptr);
    ui_->removeFromSuperview();
    ui_ = nullptr;
}

void QVM0015_CocoaView2::ParameterListenerDispatcher(void* view, void*, const AudioUnitParameter* parameter,
                                                     float value) {
    static_cast<QVM0015_CocoaView2*>(view)->parameterListenerParameterValue(*parameter, value);
}

void QVM0015_CocoaView2::requestPresetNamed(const std::string& name) {
    if (ui_) ui_->requestPresetNamed(name);
}

void QVM0015_CocoaView2::setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs) {
    if (ui_) ui_->setParameterValuePairs(pairs);
}

float QVM0015_CocoaView2::valueForParameterID(AudioUnitParameterID pid) const {
    float value = 0;
    AudioUnitGetParameter(mAU, pid, kAudioUnitScope_Global, 0, &value);
    return value;
}

} // namespace QVM_NAMESPACE
