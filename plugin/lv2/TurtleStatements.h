// A Turtle text as the statements it makes, which can be changed and written again. Any thread.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// One end of a statement. Names may stand as they do in the text, with a prefix: `TurtleText::full` gives the whole.
struct TurtleTerm {
    enum class Kind { none, literal, uri, prefixed, blank };

    Kind kind = Kind::none;
    std::string text;
    bool operator==(const TurtleTerm&) const = default;
};

// What a text says, one thing after the other; or, with a subject alone, that a node in brackets is complete.
struct TurtleStatement {
    TurtleTerm subject, predicate, object, datatype, language;
    unsigned flags = 0; // the reader's, of brackets and lists, for the writer

    bool isEnd() const { return predicate.kind == TurtleTerm::Kind::none; }
    bool operator==(const TurtleStatement&) const = default;
};

struct TurtlePrefix {
    std::string name, uri;
};

struct TurtleText {
    std::vector<TurtlePrefix> prefixes;
    std::vector<TurtleStatement> statements;

    // The name that the term stands for, without angle brackets.
    std::string full(const TurtleTerm& term) const;
    // Takes out all statements for which this holds, and with them what stands in brackets in their place.
    template <class Predicate>
    void erase(Predicate&& isUnwanted);

private:
    void eraseAt(std::size_t index);
};

// Absent where the text is no Turtle, or empty; what is wrong is on the error stream.
std::optional<TurtleText> readTurtle(const std::string& text);
// Without a base; relative names stay relative. Absent where a statement lacks an end.
std::optional<std::string> writeTurtle(const TurtleText& turtle);

template <class Predicate>
void TurtleText::erase(Predicate&& isUnwanted) {
    for (std::size_t i = 0; i < statements.size();) {
        if (!statements[i].isEnd() && isUnwanted(statements[i]))
            eraseAt(i);
        else
            ++i;
    }
}

} // namespace QVM_NAMESPACE
