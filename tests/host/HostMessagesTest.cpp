// The numbers that the host and its plug-ins agree on.
#include "platform/host/HostMessages.h"

#include <gtest/gtest.h>

#include "platform/host/ErrorStatus.h"

namespace {

TEST(HostMessages, AreNumberedFromOneToFive) {
    EXPECT_EQ(AcRx::kInitAppMsg, 1);
    EXPECT_EQ(AcRx::kUnloadAppMsg, 2);
    EXPECT_EQ(AcRx::kLoadDwgMsg, 3);
    EXPECT_EQ(AcRx::kUnloadDwgMsg, 4);
    EXPECT_EQ(AcRx::kInvkSubrMsg, 5);
}

TEST(HostMessages, AreAnsweredWithZeroWhenAllIsWell) {
    EXPECT_EQ(AcRx::kRetOK, 0);
    EXPECT_NE(AcRx::kRetError, AcRx::kRetOK);
    EXPECT_EQ(Acad::eOk, 0);
}

}  // namespace
