// Where the ground ends, how deep the picture is, and what is drawn in which order.
#include "workbench/view/SunPicture.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

#include "workbench/view/DrawnScene.h"
#include "workbench/view/Sky.h"

namespace {

constexpr float kGroundColor[] = {0.83F, 0.84F, 0.82F, 1.0F};
constexpr float kNight = 0.35F;

// The side of the map for a picture: about two of its pixels for one of the picture, and one where speed counts.
int MapSizeFor(const ViewCamera& camera, bool isFine) {
    constexpr int kLeast = 1024;
    constexpr int kMost = 8192;
    const int wanted = std::max(camera.GetWidth(), camera.GetHeight()) * (isFine ? 2 : 1);
    int size = kLeast;
    while (size < wanted && size < kMost)
        size *= 2;
    return size;
}

// The box around both, as far as they are there.
std::optional<ViewBox> Joined(const std::optional<ViewBox>& box, const std::optional<ViewBox>& other) {
    if (!box || !other)
        return box ? box : other;
    const QcGePoint& a = box->least;
    const QcGePoint& b = other->least;
    const QcGePoint& c = box->most;
    const QcGePoint& d = other->most;
    return ViewBox{{std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)},
                   {std::max(c.x, d.x), std::max(c.y, d.y), std::max(c.z, d.z)}};
}

// A disc of ground that is some times as wide as what stands on it.
ViewBox GroundBelow(const std::optional<ViewBox>& shown) {
    constexpr double kWidth = 4.0;
    const ViewBox box = shown.value_or(ViewBox{{-0.5, -0.5, 0.0}, {0.5, 0.5, 0.0}});
    const double reach = std::max((box.most - box.least).Length() / 2.0, 1e-6) * kWidth;
    const double x = box.least.x + (box.most.x - box.least.x) / 2.0;
    const double y = box.least.y + (box.most.y - box.least.y) / 2.0;
    return {{x - reach, y - reach, box.least.z}, {x + reach, y + reach, box.least.z}};
}

void LoadMatrix(GLenum kind, const std::array<double, 16>& matrix) {
    glMatrixMode(kind);
    glLoadMatrixd(matrix.data());
}

// The camera's projection, as deep as what is seen.
std::array<double, 16> ProjectionFor(const ViewCamera& camera, const SeenSpace& seen) {
    std::array<double, 16> matrix = camera.GetProjectionMatrix();
    if (seen.corners.empty())
        return matrix;
    const double room = (seen.farthest - seen.nearest) * 1e-3 + std::fabs(seen.farthest) * 1e-6;
    const double nearest = camera.IsParallel() ? seen.nearest - room : seen.nearest * 0.99;
    const double farthest = seen.farthest + room;
    const double depth = farthest - nearest;
    if (camera.IsParallel()) {
        matrix[10] = -2.0 / depth;
        matrix[14] = -(farthest + nearest) / depth;
    } else {
        matrix[10] = -(farthest + nearest) / depth;
        matrix[14] = -2.0 * farthest * nearest / depth;
    }
    return matrix;
}

}  // namespace

bool SunPicture::Aim(const ViewCamera& camera, const QcGeVector3d& direction, const DrawnScene& scene, bool isFine) {
    const double length = direction.Length();
    m_toSun = length > 0.0 ? QcGeVector3d(direction.x / length, direction.y / length, direction.z / length)
                           : QcGeVector3d(0.0, 0.0, -1.0);
    const std::optional<ViewBox> faces =
        Joined(scene.lists.GetBox(), scene.marks ? scene.marks->GetBox() : std::nullopt);
    const std::optional<ViewBox>& lines = scene.lists.GetLineBox();
    const std::optional<ViewBox> shown = Joined(faces, lines);
    m_ground = GroundBelow(faces ? faces : lines);
    m_hasGround = camera.IsParallel() ? camera.GetForward().z < 0.0 : camera.GetEye().z > m_ground.least.z;
    // Each for itself: an eye above the ground beside the scene is amidst neither, and need not see what is right
    // before it, which would cost the depths far away their digits.
    m_seen = shown ? FindSeenSpace(camera, *shown) : SeenSpace();
    if (m_hasGround)
        m_seen = JoinSeen(m_seen, FindSeenSpace(camera, m_ground));
    m_frame.reset();
    if (m_toSun.z > 0.0 && scene.lists.GetBox())
        m_frame = FrameSun(m_toSun, *scene.lists.GetBox(), m_seen.corners);
    return !m_frame || DrawMap(scene, MapSizeFor(camera, isFine));
}

bool SunPicture::DrawMap(const DrawnScene& scene, int size) {
    if (!m_map.Begin(size))
        return false;
    // From 0..1 to -1..1.
    std::array<double, 16> matrix = m_frame->GetMatrix(scene.lists.GetOrigin());
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 3; ++row)
            matrix[4 * column + row] = 2.0 * matrix[4 * column + row] - (column == 3 ? 1.0 : 0.0);
    LoadMatrix(GL_PROJECTION, matrix);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_LIGHTING);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    scene.lists.DrawFaces(scene.hidden, scene.isStopped);
    m_map.End();
    return true;
}

bool SunPicture::Draw(const ViewCamera& camera, const DrawnScene& scene, bool edges) {
    const QcGePoint& origin = scene.lists.GetOrigin();
    glClear(GL_DEPTH_BUFFER_BIT);
    DrawSky(m_toSun.z > 0.0 ? 1.0F : kNight);
    LoadMatrix(GL_PROJECTION, ProjectionFor(camera, m_seen));
    LoadMatrix(GL_MODELVIEW, camera.GetViewMatrix(origin));
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    SunShading shading;
    shading.toSun = m_toSun;
    shading.frame = m_frame ? &*m_frame : nullptr;
    shading.map = m_map.GetTexture();
    shading.mapSize = m_map.GetSize();
    shading.origin = origin;
    const QcGeVector3d eye = camera.GetEye() - origin;
    const QcGeVector3d forward = camera.GetForward();
    if (camera.IsParallel())
        shading.toEye = {-forward.x, -forward.y, -forward.z, 0.0};
    else
        shading.toEye = {eye.x, eye.y, eye.z, 1.0};
    if (!m_shader.Begin(shading))
        return false;
    DrawFaces(scene);
    m_shader.End();
    DrawThinParts(scene, edges);
    return true;
}

// Each steps back a little from what is drawn in its plane: the ground from faces, and faces from marks and edges.
void SunPicture::DrawFaces(const DrawnScene& scene) {
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(2.0F, 4.0F);
    if (m_hasGround)
        DrawGround(scene.lists.GetOrigin());
    glPolygonOffset(1.0F, 1.0F);
    scene.lists.DrawFaces(scene.hidden, scene.isStopped);
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (scene.marks)
        scene.marks->DrawFaces({}, scene.isStopped);
}

void SunPicture::DrawGround(const QcGePoint& origin) {
    const double left = m_ground.least.x - origin.x;
    const double right = m_ground.most.x - origin.x;
    const double front = m_ground.least.y - origin.y;
    const double back = m_ground.most.y - origin.y;
    const double level = m_ground.least.z - origin.z;
    m_shader.FadeAt((right - left) / 2.0, {(left + right) / 2.0, (front + back) / 2.0, level});
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, kGroundColor);
    glBegin(GL_QUADS);
    glNormal3d(0.0, 0.0, 1.0);
    glVertex3d(left, front, level);
    glVertex3d(right, front, level);
    glVertex3d(right, back, level);
    glVertex3d(left, back, level);
    glEnd();
    glDisable(GL_BLEND);
    m_shader.FadeAt(0.0);
}
