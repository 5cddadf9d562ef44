#include "platform/juce/ClipboardText.h"

#include <xcb/xcb.h>

#include <poll.h>

#include <chrono>
#include <cstdlib>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds longestWait{1000};

template <class T>
struct Freed {
    void operator()(T* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Freed<T>>;

} // namespace

struct ClipboardText::Connection {
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    xcb_window_t window = XCB_NONE; // never shown: where others put their answer
    xcb_atom_t clipboard = XCB_NONE, utf8 = XCB_NONE, answer = XCB_NONE;

    Connection() {
        if (!isUsable()) return;
        const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
        window = xcb_generate_id(x);
        xcb_create_window(x, 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          0, nullptr);
        clipboard = atom("CLIPBOARD");
        utf8 = atom("UTF8_STRING");
        answer = atom("SLANTWISE_ANSWER");
    }
    ~Connection() { xcb_disconnect(x); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool isUsable() const { return xcb_connection_has_error(x) == 0; }

    xcb_atom_t atom(std::string_view name) const {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            x, xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
        return reply ? reply->atom : XCB_NONE;
    }
    xcb_window_t clipboardOwner() const {
        const Reply<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, clipboard), nullptr));
        return reply ? reply->owner : XCB_NONE;
    }
    // Who holds it may be the next to ask; whoever else has it by now keeps it.
    void releasePrimaryOf(xcb_window_t owner) const {
        const Reply<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, XCB_ATOM_PRIMARY), nullptr));
        if (!reply || reply->owner != owner) return;
        xcb_set_selection_owner(x, XCB_NONE, XCB_ATOM_PRIMARY, XCB_CURRENT_TIME);
        xcb_flush(x);
    }
    // Asks the clipboard's owner for its text in one format.
    std::optional<std::string> converted(xcb_atom_t format, std::size_t maxBytes) const {
        xcb_delete_property(x, window, answer); // of an owner that answered too late
        xcb_convert_selection(x, window, clipboard, format, answer, XCB_CURRENT_TIME);
        xcb_flush(x);
        if (!waitForAnswer(format)) return std::nullopt;
        const auto words = static_cast<std::uint32_t>(maxBytes / 4 + 1);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            x, xcb_get_property(x, 1, window, answer, XCB_GET_PROPERTY_TYPE_ANY, 0, words), nullptr));
        // What comes in pieces is of another type, and longer than is wanted here.
        if (!reply || reply->type != format || reply->format != 8 || reply->bytes_after != 0) return std::nullopt;
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        if (length > maxBytes) return std::nullopt;
        return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
    }
    // False also when the owner says that it has nothing in this format.
    bool waitForAnswer(xcb_atom_t format) const {
        for (const auto end = Clock::now() + longestWait; isUsable();) {
            while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x)}) {
                if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY) continue;
                const auto* const told = reinterpret_cast<const xcb_selection_notify_event_t*>(event.get());
                if (told->target == format) return told->property == answer;
            }
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
            if (left <= 0) return false;
            pollfd descriptor{xcb_get_file_descriptor(x), POLLIN, 0};
            poll(&descriptor, 1, static_cast<int>(left));
        }
        return false;
    }
};

ClipboardText::ClipboardText() = default;
ClipboardText::~ClipboardText() = default;

ClipboardText::Connection* ClipboardText::connection() {
    if (!isTried_) {
        isTried_ = true;
        if (std::getenv("DISPLAY")) connection_ = std::make_unique<Connection>();
    }
    return connection_ && connection_->isUsable() ? connection_.get() : nullptr;
}

void ClipboardText::clipboardWasTaken() {
    const Connection* const x = connection();
    if (!x) return;
    owner_ = x->clipboardOwner();
    if (owner_ != XCB_NONE) x->releasePrimaryOf(owner_);
}

bool ClipboardText::isOurs() {
    const Connection* const x = owner_ != XCB_NONE ? connection() : nullptr;
    return x && x->clipboardOwner() == owner_;
}

std::optional<std::string> ClipboardText::textOfOthers(std::size_t maxBytes) {
    const Connection* const x = connection();
    if (!x || x->clipboardOwner() == XCB_NONE) return std::nullopt;
    std::optional<std::string> text = x->converted(x->utf8, maxBytes);
    // Older programs know the other format only; an address is the same in both.
    return text ? text : x->converted(XCB_ATOM_STRING, maxBytes);
}

} // namespace QVM_NAMESPACE
