// Opening OpenGL in a test: where the machine has none, the test says so and counts as skipped, never as passed.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include "platform/media/OffscreenGl.h"

inline std::unique_ptr<OffscreenGl> OpenGlOrComplain(int width, int height) {
    CString reason;
    std::unique_ptr<OffscreenGl> gl = OffscreenGl::Open(width, height, reason);
    if (!gl)
        std::fprintf(stderr, "\n*** NOT TESTED: nothing can be drawn here. %ls\n\n", reason.GetString());
    return gl;
}

// Declares `gl`, a current context, or skips the test it stands in.
#define ORVO_OPEN_GL(gl, width, height)                                      \
    const std::unique_ptr<OffscreenGl> gl = OpenGlOrComplain(width, height); \
    if (!(gl))                                                               \
    GTEST_SKIP() << "no EGL: what is drawn was not looked at"
