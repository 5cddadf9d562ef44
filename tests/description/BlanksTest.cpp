#include "description/Blanks.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(Blanks, AroundATextAreTakenOff) {
    EXPECT_EQ(withoutBlanks(" \t\r\n1.5 dB \n\r\t "), "1.5 dB");
    EXPECT_EQ(withoutBlanks("1.5 dB"), "1.5 dB");
}

TEST(Blanks, AloneLeaveNothing) {
    EXPECT_EQ(withoutBlanks(" \t\r\n"), "");
    EXPECT_EQ(withoutBlanks(""), "");
}

} // namespace
} // namespace QVM_NAMESPACE
