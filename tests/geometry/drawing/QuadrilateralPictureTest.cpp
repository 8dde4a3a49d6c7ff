// The ways to draw a quadrilateral cover the same pixels, each once.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include "geometry/QcGeFace3dEX.h"
#include "support/OffscreenGlForTests.h"

namespace {

constexpr int kSide = 200;

// Adds 64 of 255 to each pixel that a face covers, so that a pixel covered twice shows.
template <class DrawFace>
GlPicture Covered(OffscreenGl& gl, DrawFace drawFace) {
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, kSide, 0, kSide, -1, 1);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glColor3ub(64, 64, 64);
    drawFace();
    GlPicture picture;
    EXPECT_TRUE(gl.Read(picture));
    return picture;
}

// Whether the middle of a pixel lies inside all four edges, and further than `margin` pixels from each.
bool IsInside(const QcGeFace& face, int column, int row, double margin) {
    const QcGePoint middle(column + 0.5, kSide - row - 0.5, 0);
    for (int i = 0; i < 4; ++i) {
        const QcGeVector3d edge = face.m_pt[(i + 1) % 4] - face.m_pt[i];
        const QcGeVector3d way = middle - face.m_pt[i];
        if (edge.x * way.y - edge.y * way.x <= margin * std::hypot(edge.x, edge.y))
            return false;
    }
    return true;
}

class QuadrilateralPicture : public testing::Test {
protected:
    QcGeFace3dEX m_face{{20.3, 30.7, 0}, {171.9, 11.2, 0}, {183.4, 150.8, 0}, {44.6, 187.1, 0}, true};
};

TEST_F(QuadrilateralPicture, IsCoveredOnceWhereItLies) {
    ORVO_OPEN_GL(gl, kSide, kSide);
    const GlPicture picture = Covered(*gl, [this] {
        glBegin(GL_TRIANGLES);
        m_face.DrawVertexAsTriangles();
        glEnd();
    });
    int inside = 0;
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            const int value = picture.rgba[static_cast<std::size_t>(row * kSide + column) * 4];
            if (IsInside(m_face, column, row, 1)) {
                ++inside;
                ASSERT_EQ(value, 64) << column << ", " << row;
            } else if (!IsInside(m_face, column, row, -1)) {
                ASSERT_EQ(value, 0) << column << ", " << row;
            }
        }
    }
    EXPECT_GT(inside, kSide * kSide / 2);
}

TEST_F(QuadrilateralPicture, IsTheSameWholeInABatchAndSplit) {
    ORVO_OPEN_GL(gl, kSide, kSide);
    const GlPicture whole = Covered(*gl, [this] { m_face.Draw(); });
    const GlPicture batch = Covered(*gl, [this] {
        glBegin(GL_QUADS);
        m_face.DrawVertexs();
        glEnd();
    });
    const GlPicture split = Covered(*gl, [this] {
        glBegin(GL_TRIANGLES);
        m_face.DrawVertexAsTriangles();
        glEnd();
    });
    EXPECT_TRUE(whole.rgba == batch.rgba);
    EXPECT_TRUE(whole.rgba == split.rgba);
}

}  // namespace
