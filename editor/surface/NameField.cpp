#include "editor/surface/NameField.h"

#include "editor/surface/ElidedText.h"
#include "platform/layer/TextMetrics.h"
#include "platform/system/Utf8.h"
#include "platform/view/Window.h"
#include "presets/PresetName.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// All in points. The text stands where the names of the list do.
constexpr double boxX = 8, boxY = 4, boxHeight = 22, boxBorder = 1;
constexpr double textX = 18, caretWidth = 1, caretInset = 4;
constexpr double lineY = 29, lineHeight = 15, wordInset = 5, wordGap = 2;
constexpr double nameSize = 14, hintSize = 10.5, wordSize = 11;
constexpr float selectionAlpha = 0.3f;
constexpr const char* nameFace = "HelveticaNeue-Medium";
constexpr const char* saveWord = "Save";
constexpr const char* cancelWord = "Cancel";
constexpr const char* placeholder = "Name";

Font nameFont() {
    return QVMUITheme::safeFontWithNameSize(nameFace, nameSize);
}

std::shared_ptr<TextLayer> makeText(const char* name, Layer& parent, TextAlignment alignment) {
    auto text = std::make_shared<TextLayer>();
    text->setName(name);
    text->setAlignment(alignment, TextPlacement::middle);
    parent.tree().add(text);
    return text;
}

std::shared_ptr<Layer> makeLayer(const char* name, Layer& parent) {
    auto layer = std::make_shared<Layer>();
    layer->setName(name);
    parent.tree().add(layer);
    return layer;
}

} // namespace

NameField::NameField(const Rect& frame, std::string_view name, Handlers handlers)
    : ThemedView({frame.x, frame.y, frame.width, height}), entry_(longestPresetName), handlers_(std::move(handlers)),
      acceptWord_(saveWord) {
    layer()->setName("nameField");
    box_ = makeLayer("box", *layer());
    box_->setFrame({boxX, boxY, bounds().width - 2 * boxX, boxHeight});
    box_->look().setCornerRadius(radii::mark);
    clip_ = makeLayer("clip", *layer());
    clip_->setFrame({textX, boxY, bounds().width - 2 * textX + caretWidth, boxHeight});
    clip_->setMasksToBounds(true);
    selection_ = makeLayer("selection", *clip_);
    text_ = makeText("text", *clip_, TextAlignment::left);
    caret_ = makeLayer("caret", *clip_);
    hint_ = makeText("hint", *layer(), TextAlignment::left);
    accept_ = makeWord("accept");
    cancel_ = makeWord("cancel");
    entry_.set(name);
    NameField::themeUpdated();
}

NameField::Word NameField::makeWord(const char* name) {
    Word word{nullptr, makeLayer("light", *layer()), {}};
    word.text = makeText(name, *layer(), TextAlignment::center);
    word.light->look().setCornerRadius(radii::mark);
    word.light->setOpacity(0);
    return word;
}

void NameField::ask(const std::string& question, const std::string& acceptWord) {
    question_ = question;
    acceptWord_ = acceptWord;
    themeUpdated();
}

void NameField::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    box_->look().setBackgroundColor(theme.palette.boxFill);
    box_->look().setBorder(boxBorder, theme.palette.note);
    selection_->look().setBackgroundColor(theme.palette.tick.withAlpha(selectionAlpha));
    caret_->look().setBackgroundColor(theme.textColor);
    show();
}

void NameField::show() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const bool isEmpty = entry_.characters().empty();
    text_->setString(
        {isEmpty ? placeholder : entry_.text(), nameFont(), isEmpty ? theme.palette.note : theme.textColor});
    scrollToCaret();
    const double width = std::max(offsetOf(entry_.characters().size()), bounds().width);
    text_->setFrame({-scroll_, 0, width, boxHeight});
    const double from = offsetOf(entry_.selectionStart()), to = offsetOf(entry_.selectionEnd());
    selection_->setHidden(from == to);
    selection_->setFrame({from - scroll_, caretInset, to - from, boxHeight - 2 * caretInset});
    caret_->setHidden(from != to);
    caret_->setFrame(
        {std::round(offsetOf(entry_.caret()) - scroll_), caretInset, caretWidth, boxHeight - 2 * caretInset});
    placeWords();
}

void NameField::scrollToCaret() {
    const double caret = offsetOf(entry_.caret()), room = clip_->frame().width - caretWidth;
    const double most = std::max(0.0, offsetOf(entry_.characters().size()) - room);
    scroll_ = std::clamp(scroll_, caret - room, caret);
    scroll_ = std::clamp(scroll_, 0.0, most);
}

void NameField::placeWords() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const bool canAccept = !presetNameFrom(entry_.text()).empty();
    styleWord(cancel_, cancelWord, bounds().width - boxX, theme.textColor);
    styleWord(accept_, acceptWord_, cancel_.frame.x - wordGap, canAccept ? theme.textColor : theme.palette.note);
    const Font hintFont = QVMUITheme::italicFontOfSize(hintSize);
    const double room = accept_.frame.x - textX;
    hint_->setFrame({textX, lineY, room, lineHeight});
    hint_->setString({elided(question_, hintFont, room), hintFont, theme.palette.note});
}

void NameField::styleWord(Word& word, const std::string& title, double right, Color color) {
    const AttributedString shown(title, QVMUITheme::safeFontWithNameSize(nameFace, wordSize), color);
    const double width = std::ceil(TextMetrics::current().width(shown)) + 2 * wordInset;
    word.frame = {right - width, lineY, width, lineHeight};
    word.text->setFrame(word.frame);
    word.text->setString(shown);
    word.light->setFrame(word.frame);
    word.light->look().setBackgroundColor(QVMUITheme::theme().palette.hover);
}

Rect NameField::caretFrame() const {
    return caret_->frame().offsetBy(clip_->frame().x, clip_->frame().y);
}

// From where the text begins.
double NameField::offsetOf(std::size_t place) const {
    const std::string before = utf8From(entry_.characters().substr(0, place));
    return widthOf(before, nameFont());
}

std::size_t NameField::placeAt(Point pointInWindow) const {
    const double x = coordinates().fromWindow(pointInWindow).x - textX + scroll_;
    std::size_t place = 0;
    while (place < entry_.characters().size() && (offsetOf(place) + offsetOf(place + 1)) / 2 < x)
        ++place;
    return place;
}

bool NameField::handleKey(const Event& event) {
    switch (event.keyCode) {
    case Key::codeReturn:
    case Key::codeEnter:
        accept();
        return true;
    case Key::codeEscape:
        cancel();
        return true;
    default:
        break;
    }
    const std::u32string before = entry_.characters();
    entry_.handleKey(event);
    if (entry_.characters() != before) {
        question_.clear();
        acceptWord_ = saveWord;
    }
    show();
    if (entry_.wasTooLong()) refuse(Refusal::isTooLong);
    return true;
}

// What is called may take this away, and with it the function itself.
void NameField::accept() {
    const std::string name = presetNameFrom(entry_.text());
    const auto accepted = handlers_.accept;
    if (name.empty()) return refuse(Refusal::isEmpty);
    accepted(name, !question_.empty());
}

void NameField::cancel() {
    const auto cancelled = handlers_.cancel;
    cancelled();
}

void NameField::refuse(Refusal refusal) {
    const auto refused = handlers_.refuse;
    if (refused) refused(refusal);
}

void NameField::mouseDown(const Event& event) {
    if (window()) window()->makeKey();
    const Point at = coordinates().fromWindow(event.locationInWindow);
    if (accept_.frame.contains(at)) return accept();
    if (cancel_.frame.contains(at)) return cancel();
    if (!box_->frame().contains(at)) return;
    isSelecting_ = event.clickCount < 2;
    if (isSelecting_)
        entry_.moveCaret(placeAt(event.locationInWindow), TextEntry::Selecting{event.has(EventModifier::shift)});
    else
        entry_.selectAll();
    show();
}

void NameField::mouseDragged(const Event& event) {
    if (!isSelecting_) return;
    entry_.moveCaret(placeAt(event.locationInWindow), TextEntry::Selecting::yes);
    show();
}

void NameField::mouseMoved(const Event& event) {
    const Point at = coordinates().fromWindow(event.locationInWindow);
    for (const Word* word : {&accept_, &cancel_})
        word->light->setOpacity(word->frame.contains(at) ? 1 : 0);
}

void NameField::mouseExited(const Event&) {
    for (const Word* word : {&accept_, &cancel_})
        word->light->setOpacity(0);
}

} // namespace QVM_NAMESPACE
