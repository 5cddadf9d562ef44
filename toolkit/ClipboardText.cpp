#include "toolkit/ClipboardText.h"

#include <xcb/xcb.h>

#include <poll.h>

#include <chrono>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds longestWait{1000};

xcb_atom_t atomOf(xcb_connection_t* x, std::string_view name) {
    const XReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : XCB_NONE;
}

xcb_window_t ownerOf(xcb_connection_t* x, xcb_atom_t selection) {
    const XReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, selection), nullptr));
    return reply ? reply->owner : XCB_NONE;
}

xcb_window_t clipboardOwner(xcb_connection_t* x) {
    return ownerOf(x, atomOf(x, "CLIPBOARD"));
}

// One request for the clipboard's text. The owner puts its answer on a window that is never shown and is there for this
// request alone, so that an answer which comes too late is nobody's.
class Request {
public:
    explicit Request(xcb_connection_t* x) : x_(x), window_(xcb_generate_id(x)), answer_(atomOf(x, "SLANTWISE_ANSWER")) {
        const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
        xcb_create_window(x, 0, window_, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          0, nullptr);
    }
    ~Request() {
        xcb_destroy_window(x_, window_);
        xcb_flush(x_);
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    // The text in one format.
    std::optional<std::string> converted(xcb_atom_t format, std::size_t maxBytes) const {
        xcb_convert_selection(x_, window_, atomOf(x_, "CLIPBOARD"), format, answer_, XCB_CURRENT_TIME);
        xcb_flush(x_);
        if (!waitForAnswer(format)) return std::nullopt;
        const auto words = static_cast<std::uint32_t>(maxBytes / 4 + 1);
        const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            x_, xcb_get_property(x_, 1, window_, answer_, XCB_GET_PROPERTY_TYPE_ANY, 0, words), nullptr));
        // What comes in pieces is of another type, and longer than is wanted here.
        if (!reply || reply->type != format || reply->format != 8 || reply->bytes_after != 0) return std::nullopt;
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        if (length > maxBytes) return std::nullopt;
        return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
    }

private:
    // False also when the owner says that it has nothing in this format.
    bool waitForAnswer(xcb_atom_t format) const {
        while (xcb_connection_has_error(x_) == 0) {
            while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(x_)}) {
                if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY) continue;
                const auto* const told = reinterpret_cast<const xcb_selection_notify_event_t*>(event.get());
                if (told->requestor == window_ && told->target == format) return told->property == answer_;
            }
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now()).count();
            if (left <= 0) return false;
            pollfd descriptor{xcb_get_file_descriptor(x_), POLLIN, 0};
            poll(&descriptor, 1, static_cast<int>(left));
        }
        return false;
    }

    xcb_connection_t* const x_;
    const xcb_window_t window_;
    const xcb_atom_t answer_;
    const Clock::time_point end_ = Clock::now() + longestWait; // for all formats together
};

} // namespace

void ClipboardText::clipboardWasTaken() {
    xcb_connection_t* const x = connection_.get();
    if (!x) return;
    owner_ = clipboardOwner(x);
    // Whoever else has the primary selection by now keeps it.
    if (owner_ == XCB_NONE || ownerOf(x, XCB_ATOM_PRIMARY) != owner_) return;
    xcb_set_selection_owner(x, XCB_NONE, XCB_ATOM_PRIMARY, XCB_CURRENT_TIME);
    xcb_flush(x);
}

bool ClipboardText::isOurs() {
    xcb_connection_t* const x = owner_ != XCB_NONE ? connection_.get() : nullptr;
    return x && clipboardOwner(x) == owner_;
}

std::optional<std::string> ClipboardText::textOfOthers(std::size_t maxBytes) {
    xcb_connection_t* const x = connection_.get();
    if (!x || clipboardOwner(x) == XCB_NONE) return std::nullopt;
    const Request request(x);
    std::optional<std::string> text = request.converted(atomOf(x, "UTF8_STRING"), maxBytes);
    // Older programs know the other format only; an address is the same in both.
    return text ? text : request.converted(XCB_ATOM_STRING, maxBytes);
}

} // namespace QVM_NAMESPACE
