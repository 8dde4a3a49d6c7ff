// The face that casts and catches shadows: a triangle or quadrilateral in space, with its normal, its plane, the light
// on it and its drawing.
// Why: docs/decisions/geometry.md
#pragma once

#include "geometry/FaceMaterial.h"
#include "geometry/Plane.h"
#include "geometry/PlaneEquation.h"
#include "geometry/QcGeVector3dEX.h"
#include "geometry/Relation3d.h"
#include "platform/base/Api.h"
#include "platform/geometry/QcGeBasePlane.h"
#include "platform/geometry/QcGeFace.h"

class Cylinder;

// Three or four corners in the slots m_pt[0] to m_pt[3]; in a triangle the last slot repeats corner 0. The front is the
// side from which corners 0, 1, 2 run counter-clockwise; the normal points there. Four corners need not lie in one
// plane: the normal and the plane are those of corners 0, 1, 2.
//
// The normal is computed when it is first asked for. Where it is stored (the default; a constructor's bSaveNormal says
// otherwise), it is kept until a corner changes through SetPoint. Writing to m_pt directly goes past that: such a face
// keeps a normal that it had. The three states are: not stored (each query computes it), stored but not ready, ready.
//
// Light directions are those in which the light travels, from the sun to the scene, of any length. Nothing here looks
// at numbers that are not finite: they run through the formulas, and nothing throws. When there is no memory for
// storing a normal, the face does without.
class ORVO_API QcGeFace3dEX : public QcGeFace {
public:
    // A triangle whose corners are all at the origin, without a material.
    QcGeFace3dEX() : QcGeFace3dEX(true) {}
    // The same; whether its normal is stored is told.
    explicit QcGeFace3dEX(bool bSaveNormal);
    // A quadrilateral or a triangle of these corners, without a material.
    QcGeFace3dEX(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3, bool bSaveNormal);
    QcGeFace3dEX(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, bool bSaveNormal);
    // n corners. The count is taken as it is, without a check, and it is the caller's to give 3 or 4; whatever it says,
    // no more than the four slots are ever written or read.
    QcGeFace3dEX(const QcGePoint* pts, int n, bool bSaveNormal);
    // The corners and flags of a plain face, as a triangle where that is one; the normal is stored.
    QcGeFace3dEX(const QcGeFace& face);
    // A copy with its own storage for the normal, when the other one has storage.
    QcGeFace3dEX(const QcGeFace3dEX& other);
    // Assigning copies as constructing does, and gives a copy of the result by value. The storage that held the normal
    // before is abandoned, not freed: a reference from Normal() may still be in use (see Abandon.h).
    QcGeFace3dEX operator=(const QcGeFace& face);
    QcGeFace3dEX operator=(const QcGeFace3dEX& other);
    ~QcGeFace3dEX() override;

    // ---- Corners. ----

    // Replaces all corners, and makes a quadrilateral or a triangle of the face. A ready normal is given up.
    void SetPoint(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3);
    void SetPoint(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2);
    // Replaces one corner. False when the face has no corner i. A point equal to the corner (exactly) changes nothing,
    // and a ready normal stays ready.
    bool SetPoint(const QcGePoint& point, int i);
    // Replaces all corners by n others. False when n is neither 3 nor 4.
    bool SetPoint(const QcGePoint* pts, int n);
    // Makes a triangle of a quadrilateral or the other way round. False when n is neither 3 nor 4. A ready normal is
    // given up only when a corner is added: dropping the fourth corner does not turn the face.
    bool SetPointNum(int n);
    // A copy of slot i, which must be 0 to 3.
    QcGePoint operator[](int i) const { return m_pt[i]; }
    // The count of corners as it was given: 3 or 4, unless a constructor was told otherwise.
    int GetPointNum() const { return m_nPointNum; }
    // Whether there are three corners.
    bool IsTriangle() const { return m_nPointNum == 3; }
    // Whether there are four corners; they need not form a rectangle.
    bool IsRectangle() const { return m_nPointNum == 4; }
    // How many slots hold corners: the count, but never more than the four there are.
    int GetCornerCount() const { return m_nPointNum < kSlots ? m_nPointNum : kSlots; }

    // ---- Material: an index into the caller's array, -1 for none. ----

    // False, with nothing changed, for a negative index.
    bool SetMaterialIndex(int i);
    // The face has no material afterwards.
    void CancelMaterial() { m_nMaterial = kNoMaterial; }
    // -1 for none.
    int GetMaterialIndex() const { return m_nMaterial; }
    // Whether the face has a material.
    bool IsMaterialReady() const { return m_nMaterial != kNoMaterial; }
    // Whether it has this one.
    bool IsThisMaterialIndex(int i) const { return m_nMaterial == i; }

    // ---- Normal. ----

    // Of unit length, save for one that SetNormal has stored; computed and stored when it is not ready. Where corners
    // 0, 1, 2 give none, what GetFaceNormal says.
    QcGeVector3dEX GetNormal() {
        if (IsNormalReady()) [[likely]]
            return *m_pNormal;
        return ComputeNormal();
    }
    // Stores a normal as it is, which then stands in for the one of the corners until these change. False without
    // storage.
    bool SetNormal(const QcGeVector3dEX& normal);
    // The storage itself, whatever is in it. There must be storage.
    QcGeVector3dEX& Normal() const { return *m_pNormal; }
    // Whether GetNormal only reads: it may then be called on several threads.
    bool IsNormalReady() const { return m_pNormal != nullptr && m_bNormalReady; }
    // Whether there is storage for a normal.
    bool IsNormalSaved() const { return m_pNormal != nullptr; }
    // Gives the face storage, or takes it away. Whether the normal counts as ready is left as it was: storage taken
    // away and given back holds (0, 0, 0), and that is the normal of a face whose normal was ready, until a corner
    // changes.
    void SetNormalSaved(bool bSave);

    // ---- Planes, all with the face's normal and through corner 0. ----

    // As an equation, as a plane, and written into the platform's plane.
    PlaneEquation GetPlaneEquation();
    Plane GetPlane() { return {GetNormal(), m_pt[0]}; }
    void GetXPlane(QcGeBasePlane& plane);

    // ---- Light and shadow. ----

    // UPFACE in front of the face, DOWNFACE behind it, ONFACE in its plane or closer than 1e-12 to corner 0. The
    // tolerance of 1e-12 is on the cosine between the normal and the way from the point to corner 0: a point far away
    // in the plane's direction counts as in it. That is n.(P0 - P) / |P0 - P|; the difference comes first, so that a
    // place far from the origin costs no digits.
    RELATION3D CompareWithPoint(const QcGePoint& point);
    // Whether a light at this point is off the face's plane, before it or behind.
    bool IsPosLightOn(const QcGePoint& lightPos);
    // Whether sunlight falls on the front: n.L < -1e-12, so that the light's length counts. bOn says whether the sun
    // shines at all.
    bool IsSunLightOn(const QcGeVector3dEX& lightDir, bool bOn);
    // The matrix that moves each point P along the light L onto the face's plane n.P + d = 0:
    //
    //     P' = P - L (n.P + d) / (n.L)        m[i][j] = (i == j) - L[j] c[i] / (n.L),  c = (n.x, n.y, n.z, d)
    //
    // which is where the ray P - t L meets the plane, by the textbook: parallel light, so that the light's length
    // cancels. In the order that OpenGL reads (m[column][row]); the fourth row is 0, 0, 0, 1. Untouched when bOn is
    // false. Light along the plane gives numbers that are not finite.
    //
    // Error: each element is formed in double and rounded to float, to within 6e-8 of itself, so that a coordinate of
    // P' is off by up to 6e-8 of the sum of |m[i][j] P[i]|, however exactly the matrix is applied. In millimetres, for
    // light at 6 degrees or more to the face and points up to 50 m away from it: at most 0.1 within 100 m of the
    // origin, but hundreds on walls and slopes at 500 km (5e8), where floats themselves are 32 apart. On level faces
    // only heights count, and 0.1 holds anywhere. Bring a drawing near the origin before its shadows are drawn.
    void CreateShadowMatrix(float m[4][4], const QcGeVector3dEX& lightDir, bool bOn);
    // Fills the cylinder with the face's own plane and one plane along the light through each edge, with the normal
    // edge x light, the edge at unit length. For a light that falls on the front they bound the half-infinite prism
    // from the face towards the sun: where an occluder has to be to shade the face.
    void ContructLightHalfCylinder(Cylinder& cylinder, const QcGeVector3dEX& lightDir);
    // Whether no corner of this face is in front of the other one (behind, for IsUpFace). Corners in its plane pass.
    bool IsDownFace(QcGeFace3dEX& other);
    bool IsUpFace(QcGeFace3dEX& other);
    // How the other face lies for the order in which faces cast shadows: DOWNFACE when it is before or in this face's
    // plane, or this face is behind it; CROSSFACE when each has corners on both sides of the other; else UPFACE.
    RELATION3D GetShadowRelation(QcGeFace3dEX& other);

    // ---- Drawing, with OpenGL's current context. All corners are drawn with the face's one normal. ----
    //
    // Those with materials draw with materials[GetMaterialIndex()], unchecked: the face must have a material. The
    // DrawVertex forms leave glBegin and glEnd to the caller, who draws many faces in one batch: of triangles, of
    // quadrilaterals, or of both as GL_TRIANGLES with DrawVertexAsTriangles.

    // Draws the face by itself, with its material or as OpenGL's current one has it.
    void Draw(FaceMaterial* materials);
    void Draw();
    // Gives OpenGL the normal and the corners, three or four.
    void DrawVertexs(FaceMaterial* materials);
    void DrawVertexs();
    // The same as one or two triangles.
    void DrawVertexAsTriangles(FaceMaterial* materials);
    void DrawVertexAsTriangles();

private:
    static constexpr int kSlots = 4;
    static constexpr int kNoMaterial = -1;

    QcGeVector3dEX ComputeNormal();
    void TakeCorners(const QcGePoint* pts, int n);
    void CopyCorners(const QcGeFace& face);
    QcGeVector3dEX* CopyOfStorage() const;
    RELATION3D ClassifyFace(const QcGeFace3dEX& other);

    int m_nPointNum;
    int m_nMaterial;
    bool m_bNormalReady;
    QcGeVector3dEX* m_pNormal;
};
