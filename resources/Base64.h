// Base64 text to bytes, in the standard alphabet (A to Z, a to z, 0 to 9, + and /). The description carries its
// pictures as such text.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// The bytes that the text stands for. Blanks, tabs and line ends may stand anywhere; the padding must be complete.
// Text that is not base64 gives no bytes at all, never those before the mistake. Any thread.
std::vector<std::byte> decodeBase64(std::string_view text);

} // namespace QVM_NAMESPACE
