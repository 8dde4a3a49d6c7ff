// For tests that draw or measure letters, in widgets or pictures, without the window of the program.
#pragma once

#include <gtest/gtest.h>

#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"

class PreparedWindows : public testing::Test {
protected:
    void SetUp() override {
        CString reason;
        const ModalDriver nobody([](const ModalWindow&) { return 0; });
        ASSERT_TRUE(PrepareWindows(reason));
    }
};
