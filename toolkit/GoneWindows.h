// Windows that have gone while the toolkit was asking about them, or drawing into them.
//
// The windows around the editor are the host's, and the one that has the keyboard is anybody's: either may go between
// two requests. In a host the toolkit has no handler for the errors that follow, and what Xlib does by itself, or GTK,
// is to end the process. The handler is one for the whole process and the host's own affair, so it stays as it is: such
// errors are taken out on the connection that they came by.
#pragma once

struct _XDisplay; // NOLINT(clang-diagnostic-reserved-identifier): Xlib's name

namespace juce {

// From now on no handler hears of errors of this connection that say that a window has gone or is no longer seen; the
// request has failed and its answer says so. All other errors are told as before. Lasts as long as the connection. Any
// thread.
void disregardGoneWindows(_XDisplay* display);

} // namespace juce
