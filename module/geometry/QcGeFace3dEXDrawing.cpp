// Sending a face to OpenGL.
#include <GL/gl.h>

#include <initializer_list>

#include "geometry/QcGeFace3dEX.h"

namespace {

void SendCorner(const QcGePoint& corner) {
    const double coordinates[] = {corner.x, corner.y, corner.z};
    glVertex3dv(coordinates);
}

void SendNormal(const QcGeVector3dEX& normal) {
    const double components[] = {normal.x, normal.y, normal.z};
    glNormal3dv(components);
}

}  // namespace

void QcGeFace3dEX::Draw(FaceMaterial* materials) {
    materials[m_nMaterial].Draw();
    Draw();
}

void QcGeFace3dEX::Draw() {
    glBegin(IsTriangle() ? GL_TRIANGLES : GL_QUADS);
    SendNormal(GetNormal());
    for (int i = 0; i < GetCornerCount(); ++i)
        SendCorner(m_pt[i]);
    glEnd();
}

void QcGeFace3dEX::DrawVertexs(FaceMaterial* materials) {
    materials[m_nMaterial].Draw();
    DrawVertexs();
}

void QcGeFace3dEX::DrawVertexs() {
    SendNormal(GetNormal());
    for (int i = 0; i < 3; ++i)
        SendCorner(m_pt[i]);
    if (IsRectangle())
        SendCorner(m_pt[3]);
}

void QcGeFace3dEX::DrawVertexAsTriangles(FaceMaterial* materials) {
    materials[m_nMaterial].Draw();
    DrawVertexAsTriangles();
}

void QcGeFace3dEX::DrawVertexAsTriangles() {
    SendNormal(GetNormal());
    for (const int i : {0, 1, 2})
        SendCorner(m_pt[i]);
    if (IsTriangle())
        return;
    for (const int i : {2, 3, 0})
        SendCorner(m_pt[i]);
}
