#include "editor/surface/QVMPresetsDrawer.h"

#include "controls/QVMParameterControl.h"
#include "description/QVMConfig.h"
#include "description/ValueMapping.h"
#include "editor/session/PresetSession.h"
#include "editor/surface/OutlineView.h"
#include "editor/surface/QVMPresetControl.h"
#include "platform/view/Window.h"
#include "presets/PresetName.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double listWidth = 195, borderWidth = 1; // points
constexpr const char* usersTitle = "User";

std::vector<OutlineItem> outlineItemsOf(const std::vector<QVMPresetSection>& sections) {
    std::vector<OutlineItem> items;
    for (const QVMPresetSection& section : sections) {
        OutlineItem& title = items.emplace_back(OutlineItem{section.section, {}, std::nullopt, {}});
        for (const QVMPresetEntry& preset : section.presets)
            title.children.push_back({preset.name, preset.note.value_or(""), preset.presetID, {}});
    }
    return items;
}

} // namespace

QVMPresetsDrawer::QVMPresetsDrawer(const Rect& frame, const QVMConfig& config, const QVMPresetStructure& presets)
    : QVMDrawerView(frame, config), chanIn_(config.chanIn), chanOut_(config.chanOut) {
    layer()->setName("presetsDrawer");
    for (const QVMPresetSection& section : presets.sections) {
        QVMPresetSection offered{section.section, {}};
        std::ranges::copy_if(section.presets, std::back_inserter(offered.presets),
                             [this](const QVMPresetEntry& item) { return itemValidForCurrentChannels(item); });
        if (!offered.presets.empty()) sections_.push_back(std::move(offered));
    }
    miniatureBorder_ = std::make_shared<Layer>();
    miniatureBorder_->setName("miniatureBorder");
    miniatureBorder_->setFrame(miniatureFrame.insetBy(-borderWidth, -borderWidth));
    layer()->tree().add(miniatureBorder_);
    outline_ = &addSubview(std::make_unique<OutlineView>(Rect{0, 0, listWidth, bounds().height}));
    outline_->setItems(outlineItemsOf(sections_));
    outline_->setChoiceHandler([this](std::uint32_t presetID) { choose(presetID); });
    QVMPresetsDrawer::themeUpdated();
}

bool QVMPresetsDrawer::itemValidForCurrentChannels(const QVMPresetEntry& item) const {
    if (item.channelRestrictions.empty()) return true;
    return std::ranges::find(item.channelRestrictions, QVMChannelPair{chanIn_, chanOut_}) !=
           item.channelRestrictions.end();
}

void QVMPresetsDrawer::setPresetControl(QVMParameterControl* control) {
    presetControl_ = control;
    setToggle(control);
}

void QVMPresetsDrawer::connect(QVMParameterControl* control, PresetSession& presets) {
    setPresetControl(control);
    presets_ = &presets;
    auto* const name = control ? dynamic_cast<QVMPresetControl*>(control->primaryControl()) : nullptr;
    if (name) name->setPresets(presets.list());
}

// Straight to the inner control: the other one knows no index beyond those of the factory.
void QVMPresetsDrawer::choose(std::uint32_t presetID) {
    endNaming();
    if (!presetControl_ || !presetControl_->primaryControl()) return;
    presetControl_->primaryControl()->setFloatValue(static_cast<float>(presetID));
    presetControl_->reportValueChange();
}

OutlineItem QVMPresetsDrawer::usersSection() const {
    constexpr auto fit = OutlineItem::Fit::cut;
    OutlineItem section{usersTitle, {}, std::nullopt, {}};
    PresetList& list = presets_->list();
    for (const UserPresetEntry& entry : list.user().entries()) {
        const std::string& name = entry.preset.name;
        if (entry.problem.empty())
            section.children.push_back({name, entry.preset.note, list.indexOfUsers(name), {}, fit});
        else
            section.children.push_back({name, entry.problem, std::nullopt, {}, fit});
    }
    return section;
}

// What is folded stays so while the list is the same.
void QVMPresetsDrawer::showList() {
    std::vector<OutlineItem> items = outlineItemsOf(sections_);
    if (OutlineItem users = usersSection(); nameField_ || !users.children.empty()) items.push_back(std::move(users));
    if (items != outline_->items()) outline_->setItems(std::move(items));
    showCurrentPreset();
}

void QVMPresetsDrawer::presetListDidChange() {
    if (visible() && presets_) showList();
}

void QVMPresetsDrawer::beginNaming() {
    if (!visible() || !presets_ || nameField_) return;
    const std::uint32_t current = presets_->current();
    const std::string name = presets_->list().isUsers(current) ? presets_->list().nameOf(current) : std::string();
    auto field = std::make_unique<NameField>(
        outline_->bounds(), name,
        NameField::Handlers{[this](const std::string& typed, bool isAnswer) { saveAs(typed, isAnswer); },
                            [this] { endNaming(); }, [this](NameField::Refusal refusal) { tellRefusal(refusal); }});
    nameField_ = field.get();
    showList();
    outline_->setInlay(std::move(field));
    if (window()) window()->makeKey(); // opened by a menu; what is typed is for it
}

void QVMPresetsDrawer::endNaming() {
    if (!std::exchange(nameField_, nullptr)) return;
    outline_->setInlay(nullptr);
    showList();
}

// A name that is taken is given to nothing else before the user has said so.
void QVMPresetsDrawer::saveAs(const std::string& name, bool isAnswer) {
    const auto outcome = presets_->saveAs(name, isAnswer ? ExistingFile::replace : ExistingFile::keep);
    switch (outcome.status) {
    case PresetOutcome::Status::done:
        return endNaming();
    case PresetOutcome::Status::nameTaken:
        return nameField_->ask("Name is taken", "Replace");
    case PresetOutcome::Status::failed:
        return presets_->tellRefusal("Not saved", outcome.reason);
    }
}

void QVMPresetsDrawer::tellRefusal(NameField::Refusal refusal) const {
    if (refusal == NameField::Refusal::isEmpty) return presets_->tellRefusal("Not saved", "A preset needs a name");
    presets_->tellRefusal("Name is full", "It has " + std::to_string(longestPresetName) + " characters at most");
}

void QVMPresetsDrawer::showCurrentPreset() {
    if (!visible() || !presetControl_) return;
    const std::int32_t index = IntegerPart(presetControl_->floatValue());
    outline_->select(index < 0 ? std::nullopt : std::optional(static_cast<std::uint32_t>(index)));
}

void QVMPresetsDrawer::setVisibility(bool visible) {
    const bool opens = visible && !this->visible();
    QVMDrawerView::setVisibility(visible);
    if (!visible) endNaming();
    if (opens && presets_) {
        presets_->list().user().refresh();
        showList();
    }
    showCurrentPreset();
}

// A ground of its own would hide the miniature.
void QVMPresetsDrawer::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    layer()->look().setBackgroundColor(QVMCGClearColor());
    layer()->look().setBackgroundPattern(nullptr);
    miniatureBorder_->look().setBorder(borderWidth, theme.palette.trackBorder);
    const Color accent = theme.foregroundGivenSpecified(QVMCGColor(config().metadata->color));
    outline_->setTitleColor(contrasted(accent, theme.palette.drawer));
}

bool QVMPresetsDrawer::keyDown(const Event& event) {
    if (!visible()) return false;
    if (nameField_) return nameField_->handleKey(event);
    if (event.has(EventModifier::command)) return false;
    switch (event.keyCode) {
    case Key::codeEscape:
    case Key::codeReturn:
    case Key::codeEnter:
        tapMiniature();
        return true;
    case Key::codeTab: // would walk through controls that cannot be used now
        return true;
    case Key::codeHome:
        return outline_->choose(outline_->walk().toFirst());
    case Key::codeEnd:
        return outline_->choose(outline_->walk().toLast());
    default:
        return chooseByLetter(event);
    }
}

bool QVMPresetsDrawer::chooseByLetter(const Event& event) {
    const bool isPlain = !event.has(EventModifier::option) && !event.has(EventModifier::control) &&
                         !event.has(EventModifier::numericPad) && event.charactersIgnoringModifiers.size() == 1;
    return isPlain && event.charactersIgnoringModifiers.front() > U' ' &&
           outline_->choose(outline_->walk().toLetter(event.charactersIgnoringModifiers.front()));
}

bool QVMPresetsDrawer::performKeyEquivalent(const Event& event) {
    if (visible() && nameField_) return nameField_->handleKey(event);
    const bool isArrow = event.has(EventModifier::numericPad) && !event.charactersIgnoringModifiers.empty();
    if (!visible() || !isArrow) return false;
    const char32_t arrow = event.charactersIgnoringModifiers.front();
    if (arrow != Key::up && arrow != Key::down) return false;
    return outline_->choose(outline_->walk().by(arrow == Key::down ? 1 : -1));
}

void QVMPresetsDrawer::mouseDown(const Event& event) {
    tapMiniature();
    QVMDrawerView::mouseDown(event);
}

void QVMPresetsDrawer::tapMiniature() {
    constexpr std::int32_t code = 1;
    if (miniatureDelegate_) miniatureDelegate_->drawerDidTapMiniature(*this, code);
}

} // namespace QVM_NAMESPACE
