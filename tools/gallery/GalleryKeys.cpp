#include "tools/gallery/GalleryKeys.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr std::u32string_view kTypable = U"0123456789.,-k";
constexpr std::size_t kMostTyped = 12;

bool isArrow(char32_t character) {
    return character >= Key::up && character <= Key::right;
}

} // namespace

void GalleryKeys::setControls(std::vector<QVMParameterControl*> controls) {
    controls_ = std::move(controls);
    focused_ = nullptr;
    typed_.clear();
}

void GalleryKeys::focus(QVMParameterControl* control) {
    if (control == focused_) return;
    typed_.clear();
    if (focused_) focused_->setFocused(false);
    focused_ = control;
    if (focused_) focused_->setFocused(true);
}

void GalleryKeys::focusNext(int direction) {
    if (controls_.empty()) return;
    const auto count = static_cast<std::ptrdiff_t>(controls_.size());
    const std::ptrdiff_t at = std::ranges::find(controls_, focused_) - controls_.begin();
    const std::ptrdiff_t from = focused_ ? at : direction > 0 ? -1 : count;
    focus(controls_[static_cast<std::size_t>((from + direction + count) % count)]);
}

bool GalleryKeys::type(char32_t character) {
    if (kTypable.find(character) == std::u32string_view::npos || !focused_->acceptsTransientStringBuffers())
        return false;
    if (typed_.size() < kMostTyped) typed_ += static_cast<char>(character);
    showTyped();
    return true;
}

bool GalleryKeys::take() {
    if (typed_.empty()) return focused_->toggleBooleanControl();
    focused_->setStringValue(typed_);
    typed_.clear();
    return true;
}

void GalleryKeys::showTyped() {
    focused_->setTransientStringValue(typed_);
}

bool GalleryKeys::handleKey(const Event& event) {
    if (event.keyCode == Key::codeTab) {
        focusNext(event.has(EventModifier::shift) ? -1 : 1);
        return true;
    }
    if (!focused_ || event.charactersIgnoringModifiers.empty()) return false;
    const char32_t character = event.charactersIgnoringModifiers.front();
    switch (event.keyCode) {
    case Key::codeEscape:
        focus(nullptr);
        return true;
    case Key::codeReturn:
    case Key::codeEnter:
        return take();
    case Key::codeDelete:
        if (!typed_.empty()) typed_.pop_back();
        showTyped();
        return true;
    default:
        break;
    }
    if (isArrow(character))
        return focused_->incrementWithArrowGranularity(character, QVMFloatControl::granularityFromEvent(event));
    return !event.has(EventModifier::command) && type(character);
}

} // namespace QVM_NAMESPACE
