// The number that is being typed: digits with a sign before them, separators between, and a "k" for thousands behind.
//
// No state but the text. Main thread only.
#pragma once

#include "BuildNamespace.h"

#include <string>
#include <utility>

namespace QVM_NAMESPACE {

class NumberBuffer {
public:
    // Whether a character belongs to a number that begins with what is there: a sign only as the first.
    bool takes(char32_t character) const;
    // Puts one of those behind the others; false where that makes no number: behind a "k", or a second time the same
    // separator.
    bool append(char32_t character);
    // False when there is nothing to take away.
    bool deleteLast();
    void clear() { text_.clear(); }
    void set(std::string text) { text_ = std::move(text); }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

} // namespace QVM_NAMESPACE
