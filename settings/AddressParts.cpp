#include "settings/AddressParts.h"

#include <uriparser/Uri.h>

namespace QVM_NAMESPACE {

namespace {

class ParsedUri {
public:
    // The text must outlive this.
    explicit ParsedUri(std::string_view text)
        : isValid_(uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), nullptr) == URI_SUCCESS) {}
    ~ParsedUri() {
        if (isValid_) uriFreeUriMembersA(&uri_);
    }
    ParsedUri(const ParsedUri&) = delete;
    ParsedUri& operator=(const ParsedUri&) = delete;

    explicit operator bool() const { return isValid_; }
    const UriUriA& operator*() const { return uri_; }

private:
    UriUriA uri_{};
    const bool isValid_; // the parser frees what it made of anything else
};

std::string textOf(const UriTextRangeA& range) {
    return range.first ? std::string(range.first, range.afterLast) : std::string();
}

std::string decoded(const UriTextRangeA& range) {
    std::string text = textOf(range);
    const char* const end = uriUnescapeInPlaceExA(text.data(), URI_FALSE, URI_BR_DONT_TOUCH);
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

} // namespace

std::optional<AddressParts> addressParts(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const ParsedUri parsed(text);
    if (!parsed) return std::nullopt;
    const UriUriA& uri = *parsed;
    if (!uri.scheme.first) return std::nullopt; // relative to what?

    AddressParts parts;
    parts.host = decoded(uri.hostText);
    if (parts.host.empty()) return std::nullopt;
    for (const UriPathSegmentA* segment = uri.pathHead; segment; segment = segment->next) {
        if (std::string name = decoded(segment->text); !name.empty()) parts.pathSegments.push_back(std::move(name));
    }
    if (uri.query.first) parts.query = decoded(uri.query);
    return parts;
}

} // namespace QVM_NAMESPACE
