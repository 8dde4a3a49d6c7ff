// Finds the windows of results under a pixel, and draws them.
#include "workbench/view/ViewResults.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

#include "geometry/DotProduct.h"

namespace {

constexpr int kChosenRgb = 0xFF8C00;
constexpr float kChosenWidth = 5.0F;
constexpr float kEdgeWidth = 2.0F;
constexpr float kLineWidth = 2.0F;
constexpr double kSame = 1e-6;  // of the distance: what rounding makes of it

void SetColor(int rgb) {
    glColor3ub(static_cast<GLubyte>(rgb >> 16 & 255), static_cast<GLubyte>(rgb >> 8 & 255),
               static_cast<GLubyte>(rgb & 255));
}

bool IsUsable(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthestCoordinate && std::fabs(point.y) <= kFarthestCoordinate &&
           std::fabs(point.z) <= kFarthestCoordinate;
}

bool IsUsable(const ResultQuad& quad) {
    return std::all_of(quad.corners.begin(), quad.corners.end(), [](const QcGePoint& each) { return IsUsable(each); });
}

void Send(const QcGePoint& point, const QcGePoint& origin) {
    glVertex3d(point.x - origin.x, point.y - origin.y, point.z - origin.z);
}

void SendEdges(const ResultQuad& quad, const QcGePoint& origin) {
    for (std::size_t i = 0; i < quad.corners.size(); ++i) {
        Send(quad.corners[i], origin);
        Send(quad.corners[(i + 1) % quad.corners.size()], origin);
    }
}

void DrawQuads(const std::vector<ResultQuad>& quads, const QcGePoint& origin) {
    // They may lie in the plane of a wall: they step forward, their edges further than they do.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(-1.0F, -2.0F);
    glBegin(GL_QUADS);
    for (const ResultQuad& quad : quads) {
        if (!IsUsable(quad))
            continue;
        SetColor(quad.rgb);
        for (const QcGePoint& corner : quad.corners)
            Send(corner, origin);
    }
    glEnd();
    glDisable(GL_POLYGON_OFFSET_FILL);
    glLineWidth(kEdgeWidth);
    glBegin(GL_LINES);
    for (const ResultQuad& quad : quads) {
        if (!IsUsable(quad))
            continue;
        SetColor(quad.edgeRgb);
        SendEdges(quad, origin);
    }
    glEnd();
}

void DrawLines(const std::vector<ResultLine>& lines, const QcGePoint& origin) {
    glLineWidth(kLineWidth);
    glBegin(GL_LINES);
    for (const ResultLine& line : lines) {
        if (!IsUsable(line.segment.from) || !IsUsable(line.segment.to))
            continue;
        SetColor(line.rgb);
        Send(line.segment.from, origin);
        Send(line.segment.to, origin);
    }
    glEnd();
}

}  // namespace

std::optional<std::size_t> PickWindow(const ViewResults& results, const Scene& scene, const HiddenLayers& hidden,
                                      const ViewRay& ray) {
    std::optional<std::size_t> found;
    double nearest = INFINITY;
    for (const ResultQuad& quad : results.quads)
        if (const double distance = MeetQuad(ray, quad.corners); distance < nearest) {
            nearest = distance;
            found = quad.window;
        }
    if (found && nearest > MeetScene(scene, hidden, ray).distance * (1.0 + kSame))
        return std::nullopt;
    return found;
}

const ResultQuad* QuadOf(const ViewResults& results, std::size_t window) {
    for (const ResultQuad& quad : results.quads)
        if (quad.window == window)
            return &quad;
    return nullptr;
}

QcGePoint MiddleOf(const ResultQuad& quad) {
    const QcGePoint& a = quad.corners[0];
    const QcGePoint& b = quad.corners[2];
    return {a.x + (b.x - a.x) / 2.0, a.y + (b.y - a.y) / 2.0, a.z + (b.z - a.z) / 2.0};
}

bool IsInSight(const ResultQuad& quad, const Scene& scene, const HiddenLayers& hidden, const ViewCamera& camera) {
    const QcGePoint middle = MiddleOf(quad);
    const auto pixel = camera.Project(middle);
    if (!pixel ||
        !(pixel->x >= 0.0 && pixel->x < camera.GetWidth() && pixel->y >= 0.0 && pixel->y < camera.GetHeight()))
        return false;
    const ViewRay ray = camera.GetRayAt(pixel->x, pixel->y);
    const QcGeVector3d right = quad.corners[1] - quad.corners[0];
    const QcGeVector3d up = quad.corners[3] - quad.corners[0];
    if (!(Dot(right * up, ray.direction) < 0.0))
        return false;
    return Dot(middle - ray.start, ray.direction) <= MeetScene(scene, hidden, ray).distance * (1.0 + kSame);
}

void DrawResults(const ViewResults& results, std::optional<std::size_t> chosen, const QcGePoint& origin) {
    DrawQuads(results.quads, origin);
    DrawLines(results.lines, origin);
    if (const ResultQuad* const quad = chosen ? QuadOf(results, *chosen) : nullptr; quad && IsUsable(*quad)) {
        glDisable(GL_DEPTH_TEST);
        glLineWidth(kChosenWidth);
        glBegin(GL_LINES);
        SetColor(kChosenRgb);
        SendEdges(*quad, origin);
        glEnd();
        glEnable(GL_DEPTH_TEST);
    }
    glLineWidth(1.0F);
}
