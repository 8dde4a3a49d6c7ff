// The off-screen context: opening, sizes, reading pictures, several contexts at once.
#include "platform/media/OffscreenGl.h"

#include <gtest/gtest.h>

#include <GL/gl.h>

#include <array>
#include <string>

#include "support/OffscreenGlForTests.h"

namespace {

using Colour = std::array<int, 4>;

Colour At(const GlPicture& picture, int x, int y) {
    const std::size_t at =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(x)) * 4;
    return {picture.rgba[at], picture.rgba[at + 1], picture.rgba[at + 2], picture.rgba[at + 3]};
}

void Fill(float r, float g, float b) {
    glClearColor(r, g, b, 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

TEST(OffscreenGl, IsACompatibilityContextWithDepthAndStencil) {
    ORVO_OPEN_GL(gl, 16, 16);
    GLint depth = 0;
    GLint stencil = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    glGetIntegerv(GL_STENCIL_BITS, &stencil);
    EXPECT_GE(depth, 24);
    EXPECT_GE(stencil, 8);
    glNewList(1, GL_COMPILE);
    glBegin(GL_QUADS);
    glEnd();
    glEndList();
    EXPECT_EQ(glIsList(1), GL_TRUE);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(OffscreenGl, ReadsRowsFromTopToBottom) {
    ORVO_OPEN_GL(gl, 5, 3);
    Fill(0, 0, 1);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 2, 5, 1);  // OpenGL counts from the lowest row
    Fill(1, 0, 0);
    glScissor(4, 0, 1, 1);
    Fill(0, 1, 0);
    GlPicture picture;
    ASSERT_TRUE(gl->Read(picture));
    ASSERT_EQ(picture.width, 5);
    ASSERT_EQ(picture.height, 3);
    ASSERT_EQ(picture.rgba.size(), 60U);
    for (int x = 0; x < 5; ++x) {
        EXPECT_EQ(At(picture, x, 0), (Colour{255, 0, 0, 255}));
        EXPECT_EQ(At(picture, x, 1), (Colour{0, 0, 255, 255}));
        EXPECT_EQ(At(picture, x, 2), x == 4 ? (Colour{0, 255, 0, 255}) : (Colour{0, 0, 255, 255}));
    }
}

TEST(OffscreenGl, ReadsInFullRowsWhateverThePackingWas) {
    ORVO_OPEN_GL(gl, 3, 2);
    Fill(1, 1, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 8);
    GlPicture picture;
    ASSERT_TRUE(gl->Read(picture));
    EXPECT_EQ(picture.rgba, std::vector<unsigned char>(24, 255));
}

TEST(OffscreenGl, ResizingKeepsStateAndWidensTheViewport) {
    ORVO_OPEN_GL(gl, 10, 10);
    glNewList(7, GL_COMPILE);
    glEndList();
    ASSERT_TRUE(gl->Resize(40, 20));
    EXPECT_EQ(gl->GetWidth(), 40);
    EXPECT_EQ(gl->GetHeight(), 20);
    GLint viewport[4] = {0, 0, 0, 0};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 40);
    EXPECT_EQ(viewport[3], 20);
    EXPECT_EQ(glIsList(7), GL_TRUE);
    Fill(0, 1, 1);
    GlPicture picture;
    ASSERT_TRUE(gl->Read(picture));
    EXPECT_EQ(At(picture, 39, 19), (Colour{0, 255, 255, 255}));
}

TEST(OffscreenGl, RefusesSizesThatNoPictureHas) {
    ORVO_OPEN_GL(gl, 8, 6);
    const int tooMuch = gl->GetMaxSize() + 1;
    for (const auto& [width, height] :
         {std::pair(0, 5), std::pair(5, 0), std::pair(-1, 5), std::pair(tooMuch, 5), std::pair(5, tooMuch)}) {
        EXPECT_FALSE(gl->Resize(width, height));
        CString reason;
        EXPECT_EQ(OffscreenGl::Open(width, height, reason), nullptr);
        EXPECT_GE(reason.Find(std::to_wstring(tooMuch - 1).c_str()), 0) << "the reason names the longest side";
    }
    EXPECT_EQ(gl->GetWidth(), 8);
    EXPECT_EQ(gl->GetHeight(), 6);
    Fill(1, 0, 1);  // still current
    GlPicture picture;
    ASSERT_TRUE(gl->Read(picture));
    EXPECT_EQ(At(picture, 7, 5), (Colour{255, 0, 255, 255}));
}

TEST(OffscreenGl, SeveralContextsKeepTheirPictures) {
    ORVO_OPEN_GL(first, 4, 4);
    Fill(1, 0, 0);
    ORVO_OPEN_GL(second, 4, 4);
    Fill(0, 1, 0);
    ASSERT_TRUE(first->MakeCurrent());
    GlPicture picture;
    ASSERT_TRUE(first->Read(picture));
    EXPECT_EQ(At(picture, 0, 0), (Colour{255, 0, 0, 255}));
    ASSERT_TRUE(second->Read(picture));  // reading makes a context current by itself
    EXPECT_EQ(At(picture, 0, 0), (Colour{0, 255, 0, 255}));
}

TEST(OffscreenGl, OpensAndClosesManyTimes) {
    for (int round = 0; round < 20; ++round) {
        ORVO_OPEN_GL(gl, 64, 64);
        Fill(0, 0, 0);
        GlPicture picture;
        ASSERT_TRUE(gl->Read(picture));
    }
}

}  // namespace
