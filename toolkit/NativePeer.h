// What the toolkit's window on an X screen can be asked beyond its public face. Each call leaves any other kind of peer
// alone. Message thread.
#pragma once

#include <functional>
#include <optional>

namespace juce {

class ComponentPeer;

// Sets how often the peer calls back to refresh and looks whether it has something to paint, until the window is moved
// or resized, or the next call. Zero is the display's own rate. The toolkit keeps to that rate, or a hundred times a
// second where it is unknown, as long as the window is open, which is most of what an idle editor costs.
void setPeerRefreshRate(ComponentPeer& peer, int timesPerSecond);

// While it lives it tells when the server has told something about a window: while the event is being taken, before it
// is dispatched. Word that a picture has arrived does not count. From when a peer's rate or keys are set.
class EventWatch {
public:
    using Handler = std::function<void(const ComponentPeer&)>;
    explicit EventWatch(Handler wasToldOf);
    ~EventWatch();
    EventWatch(const EventWatch&) = delete;
    EventWatch& operator=(const EventWatch&) = delete;

private:
    Handler wasToldOf_;
};

// Whether keys come to this window. Those that do not go on to the window it is embedded in: otherwise the host would
// get none while the pointer is over the editor, focus or not.
enum class PeerKeys : unsigned char { taken, leftToParent };
void setPeerKeys(ComponentPeer& peer, PeerKeys keys);

// A key as the X server told of it.
struct NativeKey {
    unsigned char code; // the server's number of the key
    bool isMenuKey;     // the one that opens a context menu
    bool isDown;
    bool isSynthetic;   // made by another program, not by a hand
    unsigned int state; // modifiers and buttons held
    unsigned long time; // the server's, in milliseconds
};
// The key event that is being dispatched, as far as any is: from the toolkit's callbacks about keys. Only after keys
// were set for a peer once.
std::optional<NativeKey> dispatchedKey();

// Sends what the toolkit keeps for the X server, pictures among it, and sees to it that the events which have arrived
// are dispatched next. Call after every frame and with every refresh; costs next to nothing while there is nothing to
// do. Does nothing without an X server.
//
// The toolkit reads events whenever it sends something or waits for an answer, and by itself sleeps on them until the
// server sends more: a click that was read that way would be acted on with the next one. From when a peer's rate or
// keys are set they are dispatched after each such call.
void exchangeEvents();

// Whether a Super key is held. Asks the X server.
bool isSuperKeyDown(ComponentPeer& peer);

// Whether no button of the pointer is held, whatever the toolkit believes: it keeps to the releases that it was sent,
// and those of a window that was hidden in mid-press go elsewhere. The one asks the X server, the other looks at the
// event that is being dispatched and knows of moves only.
bool areButtonsUp(ComponentPeer& peer);
bool isMovedWithButtonsUp();

} // namespace juce
