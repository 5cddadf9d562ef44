// A line of text that is being typed: its characters, the caret, and what is selected.
//
// Knows the keys that people know: arrows (with Shift they select, with Ctrl they go by words), Home and End, Backspace
// and Delete, and Ctrl with A, C, X and V. A text is never longer than its bound: what is too much is left out. Main
// thread only.
#pragma once

#include "platform/view/Event.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

class TextEntry {
public:
    // In characters.
    explicit TextEntry(std::size_t longest) : longest_(longest) {}

    // All of it is selected, so that typing replaces it. Broken bytes and everything from the first line end on are
    // left out.
    void set(std::string_view text);
    const std::u32string& characters() const { return text_; }
    std::string text() const;
    // Places between characters; with nothing selected both are the caret's.
    std::size_t caret() const { return caret_; }
    std::size_t selectionStart() const;
    std::size_t selectionEnd() const;
    // To a place; what is between there and where the caret was is selected where that is asked.
    enum class Selecting : bool { no, yes };
    void moveCaret(std::size_t place, Selecting selecting);
    void selectAll();

    // True when the key meant something here.
    bool handleKey(const Event& event);
    // Whether something of what the last key was to put in was left out.
    bool wasTooLong() const { return wasTooLong_; }

private:
    bool handleCommand(char32_t character);
    bool move(const Event& event, char32_t key);
    bool erase(char32_t key);
    void insert(std::u32string_view typed);
    std::size_t nextPlace(std::ptrdiff_t step, bool byWords) const;

    const std::size_t longest_;
    std::u32string text_;
    std::size_t caret_ = 0, anchor_ = 0;
    bool wasTooLong_ = false;
};

} // namespace QVM_NAMESPACE
