#include "plugin/lv2/TurtleStatements.h"

#include <algorithm>
#include <memory>
#include <serd/serd.h>
#include <set>

namespace QVM_NAMESPACE {

namespace {

template <class T, void (*free)(T*)>
struct Freeing {
    void operator()(T* object) const { free(object); }
};
using Reader = std::unique_ptr<SerdReader, Freeing<SerdReader, serd_reader_free>>;
using Writer = std::unique_ptr<SerdWriter, Freeing<SerdWriter, serd_writer_free>>;
using Environment = std::unique_ptr<SerdEnv, Freeing<SerdEnv, serd_env_free>>;

std::string textOf(const SerdNode& node) {
    return {reinterpret_cast<const char*>(node.buf), node.n_bytes};
}

TurtleTerm termOf(const SerdNode* node) {
    using Kind = TurtleTerm::Kind;
    if (!node || node->type == SERD_NOTHING) return {};
    const Kind kind = node->type == SERD_LITERAL ? Kind::literal
                      : node->type == SERD_URI   ? Kind::uri
                      : node->type == SERD_CURIE ? Kind::prefixed
                                                 : Kind::blank;
    return {kind, textOf(*node)};
}

// Points into the term, which has to stay.
SerdNode nodeOf(TurtleTerm&&) = delete;
SerdNode nodeOf(const TurtleTerm& term) {
    constexpr SerdType types[] = {SERD_NOTHING, SERD_LITERAL, SERD_URI, SERD_CURIE, SERD_BLANK};
    if (term.kind == TurtleTerm::Kind::none) return SERD_NODE_NULL;
    return serd_node_from_string(types[static_cast<int>(term.kind)],
                                 reinterpret_cast<const std::uint8_t*>(term.text.c_str()));
}

SerdStatus takePrefix(void* turtle, const SerdNode* name, const SerdNode* uri) {
    static_cast<TurtleText*>(turtle)->prefixes.push_back({textOf(*name), textOf(*uri)});
    return SERD_SUCCESS;
}

SerdStatus takeStatement(void* turtle, SerdStatementFlags flags, const SerdNode*, const SerdNode* subject,
                         const SerdNode* predicate, const SerdNode* object, const SerdNode* datatype,
                         const SerdNode* language) {
    static_cast<TurtleText*>(turtle)->statements.push_back(
        {termOf(subject), termOf(predicate), termOf(object), termOf(datatype), termOf(language), flags});
    return SERD_SUCCESS;
}

SerdStatus takeEnd(void* turtle, const SerdNode* node) {
    TurtleStatement end;
    end.subject = termOf(node);
    static_cast<TurtleText*>(turtle)->statements.push_back(end);
    return SERD_SUCCESS;
}

std::size_t append(const void* bytes, std::size_t count, void* text) {
    static_cast<std::string*>(text)->append(static_cast<const char*>(bytes), count);
    return count;
}

SerdStatus write(SerdWriter* writer, const TurtleStatement& statement) {
    const SerdNode subject = nodeOf(statement.subject), predicate = nodeOf(statement.predicate);
    const SerdNode object = nodeOf(statement.object);
    const SerdNode datatype = nodeOf(statement.datatype), language = nodeOf(statement.language);
    if (statement.isEnd()) return serd_writer_end_anon(writer, &subject);
    return serd_writer_write_statement(writer, statement.flags, nullptr, &subject, &predicate, &object, &datatype,
                                       &language);
}

} // namespace

std::string TurtleText::full(const TurtleTerm& term) const {
    if (term.kind != TurtleTerm::Kind::prefixed) return term.text;
    const std::size_t colon = term.text.find(':');
    for (const TurtlePrefix& prefix : prefixes)
        if (prefix.name == term.text.substr(0, colon)) return prefix.uri + term.text.substr(colon + 1);
    return term.text;
}

void TurtleText::eraseAt(std::size_t index) {
    std::set<std::string> goneNodes;
    const auto note = [&goneNodes](const TurtleTerm& term) {
        if (term.kind == TurtleTerm::Kind::blank) goneNodes.insert(term.text);
    };
    note(statements[index].object);
    statements.erase(statements.begin() + static_cast<std::ptrdiff_t>(index));
    // What is said of a node in brackets stands behind the statement that it is in.
    std::erase_if(statements, [&](const TurtleStatement& statement) {
        const bool isGone = goneNodes.contains(statement.subject.text);
        if (isGone) note(statement.object);
        return isGone;
    });
}

std::optional<TurtleText> readTurtle(const std::string& text) {
    TurtleText turtle;
    const Reader reader(serd_reader_new(SERD_TURTLE, &turtle, nullptr, nullptr, takePrefix, takeStatement, takeEnd));
    const std::string lines = text + "\n"; // the library reads beyond the end of a text of no bytes
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(lines.c_str());
    if (serd_reader_read_string(reader.get(), bytes) != SERD_SUCCESS) return {};
    return turtle;
}

std::optional<std::string> writeTurtle(const TurtleText& turtle) {
    std::string text;
    const Environment environment(serd_env_new(nullptr));
    const Writer writer(
        serd_writer_new(SERD_TURTLE, SERD_STYLE_ABBREVIATED, environment.get(), nullptr, append, &text));
    for (const TurtlePrefix& prefix : turtle.prefixes) {
        const TurtleTerm nameTerm{TurtleTerm::Kind::literal, prefix.name}, uriTerm{TurtleTerm::Kind::uri, prefix.uri};
        const SerdNode name = nodeOf(nameTerm), uri = nodeOf(uriTerm);
        serd_env_set_prefix(environment.get(), &name, &uri);
        serd_writer_set_prefix(writer.get(), &name, &uri);
    }
    for (const TurtleStatement& statement : turtle.statements)
        if (write(writer.get(), statement) != SERD_SUCCESS) return {};
    if (serd_writer_finish(writer.get()) != SERD_SUCCESS) return {};
    return text;
}

} // namespace QVM_NAMESPACE
