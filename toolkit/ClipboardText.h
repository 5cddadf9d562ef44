// The clipboard of an X display: the text of other programs, and of nothing else. The toolkit, asked for a clipboard
// without text, answers with what was last selected anywhere.
#pragma once

#include "toolkit/XConnection.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// Main thread. Without a display there is no text, and nothing happens.
class ClipboardText {
public:
    // The connection is borrowed.
    explicit ClipboardText(XConnection& connection) : connection_(connection) {}

    // Call when the toolkit has just taken the clipboard for a text of ours, with the server told of it: takes note of
    // the owner, and gives up the primary selection, which the toolkit takes as well and nobody selected anything for.
    void clipboardWasTaken();
    // Whether the clipboard is still what was noted.
    bool isOurs();
    // The text that another program offers, in whatever bytes it sends; absent when it offers none, when it has over
    // `maxBytes`, or when it does not answer within a second. Blocks for as long.
    std::optional<std::string> textOfOthers(std::size_t maxBytes);

private:
    XConnection& connection_;
    std::uint32_t owner_ = 0; // a window; 0: none
};

} // namespace QVM_NAMESPACE
