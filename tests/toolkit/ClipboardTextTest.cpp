// Without a display; what goes over one is in the stand-alone program's clipboard check.
#include "toolkit/ClipboardText.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(ClipboardText, WithoutADisplayNobodyHasTheClipboard) {
    XConnection connection;
    ClipboardText clipboard(connection);
    EXPECT_EQ(clipboard.textOfOthers(100), std::nullopt);
    clipboard.clipboardWasTaken();
    EXPECT_FALSE(clipboard.isOurs());
}

} // namespace
} // namespace QVM_NAMESPACE
