// Tells whether an X window can be seen at all: it and everything around it is mapped.
//
// The toolkit knows of its own windows only. A host that folds an editor away, or a desktop that minimises the host,
// unmaps some window around ours and tells nobody.
#pragma once

#include "toolkit/XConnection.h"

#include <cstdint>

namespace QVM_NAMESPACE {

// False while the window or one around it is unmapped. True when nobody can say: without an X server, and for what is
// no window. Asks the server, which takes some ten microseconds. Main thread.
bool isWindowViewable(XConnection& connection, std::uint64_t window);

} // namespace QVM_NAMESPACE
