#include "editor/surface/TextEntry.h"

#include "platform/system/Utf8.h"
#include "platform/system/Workspace.h"

#include <algorithm>
#include <cstdint>

namespace QVM_NAMESPACE {

namespace {

constexpr char32_t replacement = 0xFFFD; // of broken bytes

bool isShown(char32_t character) {
    return character >= U' ' && !(character >= 0x7F && character < 0xA0) && character != replacement;
}

// What of a text can stand in one line.
std::u32string lineOf(std::string_view utf8) {
    utf8.remove_prefix(std::min(utf8.find_first_not_of("\r\n"), utf8.size()));
    std::u32string line = charactersOfUtf8(utf8.substr(0, utf8.find_first_of("\r\n")));
    std::ranges::replace(line, U'\t', U' ');
    std::erase_if(line, [](char32_t character) { return !isShown(character); });
    return line;
}

} // namespace

void TextEntry::set(std::string_view text) {
    text_.clear();
    caret_ = anchor_ = 0;
    insert(lineOf(text));
    selectAll();
}

std::string TextEntry::text() const {
    return utf8From(text_);
}

std::size_t TextEntry::selectionStart() const {
    return std::min(caret_, anchor_);
}

std::size_t TextEntry::selectionEnd() const {
    return std::max(caret_, anchor_);
}

void TextEntry::moveCaret(std::size_t place, Selecting selecting) {
    caret_ = std::min(place, text_.size());
    if (selecting == Selecting::no) anchor_ = caret_;
}

void TextEntry::selectAll() {
    anchor_ = 0;
    caret_ = text_.size();
}

bool TextEntry::handleKey(const Event& event) {
    wasTooLong_ = false;
    const char32_t key = event.charactersIgnoringModifiers.empty() ? 0 : event.charactersIgnoringModifiers.front();
    if (move(event, key)) return true;
    if (event.has(EventModifier::command)) return handleCommand(key);
    if (event.keyCode == Key::codeDelete) return erase(key);
    if (event.characters.empty() || !std::ranges::all_of(event.characters, isShown)) return false;
    insert(event.characters);
    return true;
}

bool TextEntry::handleCommand(char32_t character) {
    const std::size_t start = selectionStart(), length = selectionEnd() - start;
    Workspace& workspace = Workspace::current();
    switch (character) {
    case U'a':
        selectAll();
        return true;
    case U'c':
    case U'x':
        if (length == 0) return true;
        workspace.setClipboardString(utf8From(text_.substr(start, length)));
        if (character == U'x') insert({});
        return true;
    case U'v':
        if (const auto text = workspace.clipboardString()) insert(lineOf(*text));
        return true;
    default:
        return false;
    }
}

bool TextEntry::move(const Event& event, char32_t key) {
    const bool selects = event.has(EventModifier::shift), byWords = event.has(EventModifier::command);
    const bool hasSelection = caret_ != anchor_;
    std::size_t place = 0;
    switch (key) {
    case Key::left:
        place = hasSelection && !selects ? selectionStart() : nextPlace(-1, byWords);
        break;
    case Key::right:
        place = hasSelection && !selects ? selectionEnd() : nextPlace(1, byWords);
        break;
    case Key::home:
    case Key::up:
        break;
    case Key::end:
    case Key::down:
        place = text_.size();
        break;
    default:
        return false;
    }
    moveCaret(place, Selecting{selects});
    return true;
}

std::size_t TextEntry::nextPlace(std::ptrdiff_t step, bool byWords) const {
    const auto size = static_cast<std::ptrdiff_t>(text_.size());
    auto place = static_cast<std::ptrdiff_t>(caret_);
    const auto isAtEnd = [&] { return step > 0 ? place >= size : place <= 0; };
    const auto passesBlank = [&] { return text_[static_cast<std::size_t>(step > 0 ? place : place - 1)] == U' '; };
    if (!byWords) return static_cast<std::size_t>(isAtEnd() ? place : place + step);
    while (!isAtEnd() && passesBlank())
        place += step;
    while (!isAtEnd() && !passesBlank())
        place += step;
    return static_cast<std::size_t>(place);
}

bool TextEntry::erase(char32_t key) {
    if (caret_ == anchor_) moveCaret(nextPlace(key == Key::forwardDelete ? 1 : -1, false), Selecting::yes);
    insert({});
    return true;
}

// In the place of what is selected.
void TextEntry::insert(std::u32string_view typed) {
    const std::size_t start = selectionStart();
    text_.erase(start, selectionEnd() - start);
    const std::size_t room = longest_ - std::min(longest_, text_.size());
    wasTooLong_ = typed.size() > room;
    typed = typed.substr(0, room);
    text_.insert(start, typed);
    caret_ = anchor_ = start + typed.size();
}

} // namespace QVM_NAMESPACE
