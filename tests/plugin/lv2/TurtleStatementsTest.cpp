#include "plugin/lv2/TurtleStatements.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* text = "@prefix a: <https://a.example/> .\n\n"
                             "a:one\n\ta a:Thing ;\n\ta:has [\n\t\ta:part [\n\t\t\ta:size 1.5\n\t\t] ;\n"
                             "\t\ta:name \"B \\\"2\\\"\"@en\n\t] ;\n\ta:order ( 1 2 ) ;\n\ta:file <x.ttl> .\n";

TEST(TurtleStatements, NamesAreSpeltOut) {
    const TurtleText turtle = readTurtle(text).value();
    const TurtleStatement& first = turtle.statements.at(0);
    EXPECT_EQ(turtle.full(first.subject), "https://a.example/one");
    EXPECT_EQ(turtle.full(first.predicate), "http://www.w3.org/1999/02/22-rdf-syntax-ns#type");
    EXPECT_EQ(turtle.full(first.object), "https://a.example/Thing");
}

TEST(TurtleStatements, WhatIsWrittenIsReadAsTheSame) {
    const TurtleText turtle = readTurtle(text).value();
    EXPECT_EQ(readTurtle(writeTurtle(turtle).value()).value().statements, turtle.statements);
}

TEST(TurtleStatements, WhatStandsInBracketsGoesWithItsStatement) {
    TurtleText turtle = readTurtle(text).value();
    turtle.erase([&](const TurtleStatement& s) { return turtle.full(s.predicate) == "https://a.example/has"; });
    const std::string rest = "@prefix a: <https://a.example/> . a:one a a:Thing ; a:order ( 1 2 ) ; a:file <x.ttl> .";
    const TurtleText wanted = readTurtle(rest).value();
    ASSERT_EQ(turtle.statements.size(), wanted.statements.size());
    EXPECT_EQ(writeTurtle(turtle), writeTurtle(wanted));
}

TEST(TurtleStatements, TextThatIsNoTurtleIsRefused) {
    for (const char* wrong : {"a:one a:two", "<x> <y> \"z .", "{}"})
        EXPECT_FALSE(readTurtle(wrong)) << wrong;
    EXPECT_TRUE(readTurtle("")->statements.empty());
}

TEST(TurtleStatements, AStatementWithoutAnObjectIsNotWritten) {
    TurtleText turtle = readTurtle(text).value();
    turtle.statements.at(0).object = {};
    EXPECT_FALSE(writeTurtle(turtle));
}

} // namespace
} // namespace QVM_NAMESPACE
