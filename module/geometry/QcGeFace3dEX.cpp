// A face's corners, its normal and its planes.
#include "geometry/QcGeFace3dEX.h"

#include <algorithm>
#include <new>

#include "geometry/DotProduct.h"
#include "geometry/GetFaceNormal.h"
#include "platform/base/Abandon.h"

namespace {

QcGeVector3dEX* NewStorage() {
    return new (std::nothrow) QcGeVector3dEX();
}

bool IsCount(int n) {
    return n == 3 || n == 4;
}

}  // namespace

QcGeFace3dEX::QcGeFace3dEX(bool bSaveNormal)
    : m_nPointNum(3),
      m_nMaterial(kNoMaterial),
      m_bNormalReady(false),
      m_pNormal(bSaveNormal ? NewStorage() : nullptr) {}

QcGeFace3dEX::QcGeFace3dEX(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3,
                           bool bSaveNormal)
    : QcGeFace3dEX(bSaveNormal) {
    QcGeFace3dEX::SetPoint(p0, p1, p2, p3);
}

QcGeFace3dEX::QcGeFace3dEX(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, bool bSaveNormal)
    : QcGeFace3dEX(bSaveNormal) {
    QcGeFace3dEX::SetPoint(p0, p1, p2);
}

QcGeFace3dEX::QcGeFace3dEX(const QcGePoint* pts, int n, bool bSaveNormal) : QcGeFace3dEX(bSaveNormal) {
    TakeCorners(pts, n);
}

QcGeFace3dEX::QcGeFace3dEX(const QcGeFace& face) : QcGeFace3dEX(true) {
    m_nPointNum = face.IsTriangle() ? 3 : 4;
    CopyCorners(face);
}

QcGeFace3dEX::QcGeFace3dEX(const QcGeFace3dEX& other)
    : QcGeFace(other),
      m_nPointNum(other.m_nPointNum),
      m_nMaterial(other.m_nMaterial),
      m_bNormalReady(other.IsNormalReady()),
      m_pNormal(other.CopyOfStorage()) {}

// Callers get a copy, as they always did.
QcGeFace3dEX QcGeFace3dEX::operator=(const QcGeFace& face) {
    m_nPointNum = face.IsTriangle() ? 3 : 4;
    CopyCorners(face);
    m_nMaterial = kNoMaterial;
    m_bNormalReady = false;
    Abandon(m_pNormal);
    m_pNormal = NewStorage();
    return *this;
}

// Callers get a copy, as they always did.
QcGeFace3dEX QcGeFace3dEX::operator=(const QcGeFace3dEX& other) {
    QcGeVector3dEX* const pStorage = other.CopyOfStorage();  // before ours goes: the other face may be this one
    m_bNormalReady = other.IsNormalReady();
    m_nPointNum = other.m_nPointNum;
    m_nMaterial = other.m_nMaterial;
    CopyCorners(other);
    Abandon(m_pNormal);
    m_pNormal = pStorage;
    return *this;
}

QcGeFace3dEX::~QcGeFace3dEX() {
    delete m_pNormal;
}

void QcGeFace3dEX::CopyCorners(const QcGeFace& face) {
    static_cast<QcGeFace&>(*this) = face;
}

// New zeroed storage with the normal in it where that is ready; null when there is none to copy.
QcGeVector3dEX* QcGeFace3dEX::CopyOfStorage() const {
    QcGeVector3dEX* const pStorage = IsNormalSaved() ? NewStorage() : nullptr;
    if (pStorage != nullptr && m_bNormalReady)
        *pStorage = *m_pNormal;
    return pStorage;
}

// The points may be this face's own.
void QcGeFace3dEX::TakeCorners(const QcGePoint* pts, int n) {
    m_nPointNum = n;
    for (int i = 0; i < GetCornerCount(); ++i)
        m_pt[i] = pts[i];
    if (IsTriangle())
        m_pt[3] = m_pt[0];
    m_bNormalReady = false;
}

void QcGeFace3dEX::SetPoint(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2, const QcGePoint& p3) {
    const QcGePoint corners[] = {p0, p1, p2, p3};
    TakeCorners(corners, 4);
}

void QcGeFace3dEX::SetPoint(const QcGePoint& p0, const QcGePoint& p1, const QcGePoint& p2) {
    const QcGePoint corners[] = {p0, p1, p2};
    TakeCorners(corners, 3);
}

bool QcGeFace3dEX::SetPoint(const QcGePoint& point, int i) {
    if (i < 0 || i >= GetCornerCount())
        return false;
    if (point != m_pt[i]) {
        m_bNormalReady = false;
        m_pt[i] = point;
        if (i == 0 && IsTriangle())
            m_pt[3] = m_pt[0];
    }
    return true;
}

bool QcGeFace3dEX::SetPoint(const QcGePoint* pts, int n) {
    if (!IsCount(n))
        return false;
    TakeCorners(pts, n);
    return true;
}

bool QcGeFace3dEX::SetPointNum(int n) {
    if (!IsCount(n))
        return false;
    if (n > m_nPointNum)
        m_bNormalReady = false;
    m_nPointNum = n;
    if (IsTriangle())
        m_pt[3] = m_pt[0];
    return true;
}

bool QcGeFace3dEX::SetMaterialIndex(int i) {
    if (i < 0)
        return false;
    m_nMaterial = i;
    return true;
}

QcGeVector3dEX QcGeFace3dEX::ComputeNormal() {
    const QcGeVector3dEX normal = GetFaceNormal(*this);
    SetNormal(normal);
    return normal;
}

bool QcGeFace3dEX::SetNormal(const QcGeVector3dEX& normal) {
    if (m_pNormal == nullptr)
        return false;
    *m_pNormal = normal;
    m_bNormalReady = true;
    return true;
}

void QcGeFace3dEX::SetNormalSaved(bool bSave) {
    if (IsNormalSaved() == bSave)
        return;
    delete m_pNormal;
    m_pNormal = bSave ? NewStorage() : nullptr;
}

PlaneEquation QcGeFace3dEX::GetPlaneEquation() {
    const QcGeVector3dEX n = GetNormal();
    return {n.x, n.y, n.z, -Dot(n, m_pt[0])};
}

void QcGeFace3dEX::GetXPlane(QcGeBasePlane& plane) {
    const QcGeVector3dEX n = GetNormal();
    plane.a = n.x;
    plane.b = n.y;
    plane.c = n.z;
    plane.d = -(plane.a * m_pt[0].x + plane.b * m_pt[0].y + plane.c * m_pt[0].z);
}
