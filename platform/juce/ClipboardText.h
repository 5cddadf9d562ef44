// The clipboard of an X display as this process's own connection sees it: the text of other programs, and of nothing
// else. The toolkit, asked for a clipboard without text, answers with what was last selected anywhere.
#pragma once

#include "description/BuildNamespace.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class ClipboardText {
public:
    ClipboardText();
    ~ClipboardText();

    // Call when the toolkit has just taken the clipboard for a text of ours, with the server told of it: takes note of
    // the owner, and gives up the primary selection, which the toolkit takes as well and nobody selected anything for.
    void clipboardWasTaken();
    // Whether the clipboard is still what was noted. False with no display.
    bool isOurs();
    // The text that another program offers, in whatever bytes it sends; absent when it offers none, when it has over
    // `maxBytes`, or when it does not answer within a second. Blocks for as long. Main thread.
    std::optional<std::string> textOfOthers(std::size_t maxBytes);

private:
    struct Connection;
    Connection* connection();

    std::unique_ptr<Connection> connection_;
    bool isTried_ = false;
    std::uint32_t owner_ = 0; // a window
};

} // namespace QVM_NAMESPACE
