// Gathers an entity's faces and lines, and draws them in the colour of what is picked.
#include "workbench/view/MarkedShapes.h"

#include <GL/gl.h>

#include <cmath>

#include "workbench/view/ViewCamera.h"

namespace {

constexpr float kMarkedFace[] = {1.0F, 0.62F, 0.1F, 0.55F};  // light and shade stay to be seen below
constexpr float kMarkedEdge[] = {0.62F, 0.29F, 0.0F};
constexpr float kMarkedWidth = 3.0F;

// Larger entities are drawn face by face no further: the mark is to be seen, and a picture soon there.
constexpr std::size_t kMostMarked = 200'000;

bool IsUsable(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthestCoordinate && std::fabs(point.y) <= kFarthestCoordinate &&
           std::fabs(point.z) <= kFarthestCoordinate;
}

void Send(const QcGePoint& point, const QcGePoint& origin) {
    glVertex3d(point.x - origin.x, point.y - origin.y, point.z - origin.z);
}

void SendLine(const QcGePoint& from, const QcGePoint& to, const QcGePoint& origin) {
    if (!IsUsable(from) || !IsUsable(to))
        return;
    Send(from, origin);
    Send(to, origin);
}

void SendFace(const QcGeFace3dEX& face, const QcGePoint& origin) {
    const int count = face.GetCornerCount();
    for (int i = 0; i < count; ++i)
        if (!IsUsable(face.m_pt[i]))
            return;
    for (int i = 1; i + 1 < count; ++i)
        for (const int corner : {0, i, i + 1})
            Send(face.m_pt[corner], origin);
}

void SendEdges(const QcGeFace3dEX& face, const QcGePoint& origin) {
    const int count = face.GetCornerCount();
    for (int i = 0; i < count; ++i)
        if (face.m_flag[i] == 0)
            SendLine(face.m_pt[i], face.m_pt[(i + 1) % count], origin);
}

}  // namespace

MarkedShapes ShapesOf(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id) {
    MarkedShapes marked;
    if (id.isNull())
        return marked;
    for (const SceneEntity& entity : scene.entities)
        for (std::size_t i = 0; entity.id == id && i < entity.faceCount; ++i)
            if (!IsHidden(hidden, entity.layer) && marked.faces.size() < kMostMarked)
                marked.faces.push_back(scene.faces[entity.firstFace + i]);
    for (const SceneLineRun& run : scene.lines.runs)
        for (std::size_t i = 0; run.id == id && i < run.count; ++i)
            if (!IsHidden(hidden, run.layer) && marked.lines.size() < kMostMarked)
                marked.lines.push_back(scene.lines.segments[run.first + i]);
    return marked;
}

void DrawMarked(const MarkedShapes& marked, const QcGePoint& origin) {
    if (marked.faces.empty() && marked.lines.empty())
        return;
    // The same faces as below: the mark steps forward, so that it is what is seen.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(0.0F, -2.0F);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4fv(kMarkedFace);
    glBegin(GL_TRIANGLES);
    for (const QcGeFace3dEX& face : marked.faces)
        SendFace(face, origin);
    glEnd();
    glDisable(GL_BLEND);
    glDisable(GL_POLYGON_OFFSET_FILL);
    // Its edges shine through what stands before it, so that it is found there too.
    glDisable(GL_DEPTH_TEST);
    glLineWidth(kMarkedWidth);
    glColor3fv(kMarkedEdge);
    glBegin(GL_LINES);
    for (const QcGeFace3dEX& face : marked.faces)
        SendEdges(face, origin);
    for (const SceneSegment& line : marked.lines)
        SendLine(line.from, line.to, origin);
    glEnd();
    glLineWidth(1.0F);
    glEnable(GL_DEPTH_TEST);
}
