// What faces and materials tell OpenGL, call by call.
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include "GlRecorder.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

const QcGePoint kP0(0.1, 0.2, 0.3);
const QcGePoint kP1(4, 0.2, 0.3);
const QcGePoint kP2(4, 5, 0.3);
const QcGePoint kP3(0.1, 5, 0.3);

const GlCalls kTriangleCorners = {"glVertex3dv(0.1, 0.2, 0.3)", "glVertex3dv(4, 0.2, 0.3)", "glVertex3dv(4, 5, 0.3)"};
const GlCalls kQuadCorners = {"glVertex3dv(0.1, 0.2, 0.3)", "glVertex3dv(4, 0.2, 0.3)", "glVertex3dv(4, 5, 0.3)",
                              "glVertex3dv(0.1, 5, 0.3)"};
const GlCalls kSplitCorners = {"glVertex3dv(0.1, 0.2, 0.3)", "glVertex3dv(4, 0.2, 0.3)", "glVertex3dv(4, 5, 0.3)",
                               "glVertex3dv(4, 5, 0.3)",     "glVertex3dv(0.1, 5, 0.3)", "glVertex3dv(0.1, 0.2, 0.3)"};
const GlCalls kUpwards = {"glNormal3dv(0, 0, 1)"};
const GlCalls kSecondMaterial = {"glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, 0.5, 0.25, 0.125, 1)",
                                 "glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, 0.75, 0.5, 0.25, 0.5)",
                                 "glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, 1, 0.875, 0.75, 0.625)",
                                 "glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 12.5)"};

GlCalls operator+(GlCalls left, const GlCalls& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

FaceMaterial SecondMaterial() {
    FaceMaterial material;
    material.SetAmbient(0.5F, 0.25F, 0.125F, 1.0F);
    material.SetDiffuse(0.75F, 0.5F, 0.25F, 0.5F);
    material.SetSpecular(1.0F, 0.875F, 0.75F, 0.625F);
    material.SetShininess(12.5F);
    material.SetEmission(0.0625F, 0.125F, 0.1875F, 0.25F);
    return material;
}

class FaceDrawing : public testing::Test {
protected:
    FaceDrawing() : m_triangle(kP0, kP1, kP2, true), m_quad(kP0, kP1, kP2, kP3, true) {
        m_materials[0].SetAmbient(9, 9, 9, 9);
        m_materials[0].SetDiffuse(9, 9, 9, 9);
        m_materials[0].SetSpecular(9, 9, 9, 9);
        m_materials[0].SetShininess(9);
        m_materials[1] = SecondMaterial();
        m_triangle.SetMaterialIndex(1);
        m_quad.SetMaterialIndex(1);
        TakeGlCalls();
    }

    FaceMaterial m_materials[2];
    QcGeFace3dEX m_triangle;
    QcGeFace3dEX m_quad;
};

TEST_F(FaceDrawing, DrawOpensTrianglesForATriangle) {
    m_triangle.Draw();
    EXPECT_EQ(TakeGlCalls(), GlCalls{"glBegin(GL_TRIANGLES)"} + kUpwards + kTriangleCorners + GlCalls{"glEnd()"});
}

TEST_F(FaceDrawing, DrawOpensQuadsForAQuadrilateral) {
    m_quad.Draw();
    EXPECT_EQ(TakeGlCalls(), GlCalls{"glBegin(GL_QUADS)"} + kUpwards + kQuadCorners + GlCalls{"glEnd()"});
}

TEST_F(FaceDrawing, DrawWithMaterialsSendsTheFacesMaterialBeforeItOpens) {
    m_quad.Draw(m_materials);
    EXPECT_EQ(TakeGlCalls(),
              kSecondMaterial + GlCalls{"glBegin(GL_QUADS)"} + kUpwards + kQuadCorners + GlCalls{"glEnd()"});
    m_triangle.Draw(m_materials);
    EXPECT_EQ(TakeGlCalls(),
              kSecondMaterial + GlCalls{"glBegin(GL_TRIANGLES)"} + kUpwards + kTriangleCorners + GlCalls{"glEnd()"});
}

TEST_F(FaceDrawing, VertexsLeaveOpeningAndClosingToTheCaller) {
    m_triangle.DrawVertexs();
    EXPECT_EQ(TakeGlCalls(), kUpwards + kTriangleCorners);
    m_quad.DrawVertexs();
    EXPECT_EQ(TakeGlCalls(), kUpwards + kQuadCorners);
}

TEST_F(FaceDrawing, VertexsWithMaterialsSendTheMaterialFirst) {
    m_triangle.DrawVertexs(m_materials);
    EXPECT_EQ(TakeGlCalls(), kSecondMaterial + kUpwards + kTriangleCorners);
    m_quad.DrawVertexs(m_materials);
    EXPECT_EQ(TakeGlCalls(), kSecondMaterial + kUpwards + kQuadCorners);
}

TEST_F(FaceDrawing, SplitsAQuadrilateralIntoTwoTriangles) {
    m_triangle.DrawVertexAsTriangles();
    EXPECT_EQ(TakeGlCalls(), kUpwards + kTriangleCorners);
    m_quad.DrawVertexAsTriangles();
    EXPECT_EQ(TakeGlCalls(), kUpwards + kSplitCorners);
}

TEST_F(FaceDrawing, SplitWithMaterialsSendsTheMaterialFirst) {
    m_triangle.DrawVertexAsTriangles(m_materials);
    EXPECT_EQ(TakeGlCalls(), kSecondMaterial + kUpwards + kTriangleCorners);
    m_quad.DrawVertexAsTriangles(m_materials);
    EXPECT_EQ(TakeGlCalls(), kSecondMaterial + kUpwards + kSplitCorners);
}

TEST_F(FaceDrawing, SendsTheStoredNormalAlsoWhereItIsNotTheCorners) {
    m_quad.SetNormal({0.25, -3, 1e-30});
    m_quad.DrawVertexs();
    EXPECT_EQ(TakeGlCalls(), GlCalls{"glNormal3dv(0.25, -3, 1e-30)"} + kQuadCorners);
}

TEST_F(FaceDrawing, ComputesAndKeepsANormalThatIsNotReady) {
    ASSERT_FALSE(m_quad.IsNormalReady());
    m_quad.Draw();
    EXPECT_TRUE(m_quad.IsNormalReady());
}

TEST_F(FaceDrawing, DrawsAFaceWithoutStorageForItsNormal) {
    QcGeFace3dEX face(kP0, kP2, kP1, false);
    face.DrawVertexs();
    EXPECT_EQ(TakeGlCalls().front(), "glNormal3dv(0, 0, -1)");
}

TEST_F(FaceDrawing, DropsTheFourthCornerWithTheCount) {
    m_quad.SetPointNum(3);
    m_quad.Draw();
    EXPECT_EQ(TakeGlCalls(), GlCalls{"glBegin(GL_TRIANGLES)"} + kUpwards + kTriangleCorners + GlCalls{"glEnd()"});
}

TEST_F(FaceDrawing, NeverSendsMoreThanTheFourSlots) {
    const QcGePoint corners[6] = {kP0, kP1, kP2, kP3, kP0, kP1};
    QcGeFace3dEX face(corners, 6, true);
    face.Draw();
    EXPECT_EQ(TakeGlCalls(), GlCalls{"glBegin(GL_QUADS)"} + kUpwards + kQuadCorners + GlCalls{"glEnd()"});
}

TEST(FaceMaterial, DrawsAmbientDiffuseSpecularAndShininessAndNoEmission) {
    TakeGlCalls();
    SecondMaterial().Draw();
    EXPECT_EQ(TakeGlCalls(), kSecondMaterial);
}

TEST(FaceMaterial, GivesBackEachColour) {
    const FaceMaterial material = SecondMaterial();
    float colour[5] = {0, 0, 0, 0, -1};
    material.GetAmbient(colour);
    EXPECT_TRUE(colour[0] == 0.5F && colour[1] == 0.25F && colour[2] == 0.125F && colour[3] == 1.0F);
    material.GetDiffuse(colour);
    EXPECT_TRUE(colour[0] == 0.75F && colour[1] == 0.5F && colour[2] == 0.25F && colour[3] == 0.5F);
    material.GetSpecular(colour);
    EXPECT_TRUE(colour[0] == 1.0F && colour[1] == 0.875F && colour[2] == 0.75F && colour[3] == 0.625F);
    EXPECT_EQ(colour[4], -1.0F);
}

TEST(FaceMaterial, GivesEmissionAndShininessThroughTheGettersThatAreCalledLikeSetters) {
    const FaceMaterial material = SecondMaterial();
    float emission[5] = {0, 0, 0, 0, -1};
    material.SetEmission(emission);
    EXPECT_TRUE(emission[0] == 0.0625F && emission[1] == 0.125F && emission[2] == 0.1875F && emission[3] == 0.25F);
    EXPECT_EQ(emission[4], -1.0F);
    EXPECT_EQ(material.SetShininess(), 12.5F);
}

void ExpectSame(const FaceMaterial& copy, const FaceMaterial& original) {
    float left[4];
    float right[4];
    const auto same = [&] { return std::memcmp(left, right, sizeof left) == 0; };
    copy.GetAmbient(left), original.GetAmbient(right);
    EXPECT_TRUE(same());
    copy.GetDiffuse(left), original.GetDiffuse(right);
    EXPECT_TRUE(same());
    copy.GetSpecular(left), original.GetSpecular(right);
    EXPECT_TRUE(same());
    copy.SetEmission(left), original.SetEmission(right);
    EXPECT_TRUE(same());
    EXPECT_EQ(copy.SetShininess(), original.SetShininess());
    EXPECT_TRUE(std::memcmp(copy.m_nUser, original.m_nUser, sizeof copy.m_nUser) == 0);
}

TEST(FaceMaterial, CopiesAndAssignsEveryField) {
    FaceMaterial original = SecondMaterial();
    original.m_nUser[0] = 17;
    original.m_nUser[1] = -2;
    original.m_nUser[2] = 300;
    const FaceMaterial copy(original);
    ExpectSame(copy, original);
    FaceMaterial assigned;
    EXPECT_EQ(&(assigned = original), &assigned);
    ExpectSame(assigned, original);
}

TEST(FaceMaterial, IsDestroyedThroughItsTable) {
    static_assert(std::has_virtual_destructor_v<FaceMaterial>);
    struct Counted : FaceMaterial {
        explicit Counted(int& aCount) : count(aCount) {}
        Counted(const Counted&) = delete;
        Counted& operator=(const Counted&) = delete;
        ~Counted() override { ++count; }
        int& count;
    };
    int count = 0;
    const FaceMaterial* material = new Counted(count);
    delete material;
    EXPECT_EQ(count, 1);
}

}  // namespace
