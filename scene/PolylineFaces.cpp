// Makes walls, bottom and top of a body from the outline of a polyline and its thickness.
#include "scene/PolylineFaces.h"

#include <algorithm>
#include <cmath>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/FlatPath.h"
#include "scene/GroupCodes.h"
#include "scene/OutlineBody.h"

namespace {

std::vector<QcGePoint> PointsAt(double height, const OutlineBody& body, const ObjectCoordinates& axes) {
    std::vector<QcGePoint> points;
    points.reserve(body.GetPoints().size());
    for (const OutlinePoint& point : body.GetPoints())
        points.push_back(axes.ToWorld({point.x, point.y, height}));
    return points;
}

}  // namespace

bool HasThickness(const EntityGroups& entity) {
    double thickness = 0.0;
    return !entity.Real(kThickness, thickness) || std::fabs(thickness) > g_fZero;
}

bool AddExtruded(const FlatPath& path, ArcDivision& division, FaceList& faces) {
    // So far up that the thickness is lost in the rounding, there is no body.
    const double end = path.elevation + path.thickness;
    if (!(std::fabs(end - path.elevation) > g_fZero))
        return false;
    OutlineBody body;
    if (!body.Prepare(path, division))
        return false;
    body.AddFaces(PointsAt(std::min(path.elevation, end), body, path.axes),
                  PointsAt(std::max(path.elevation, end), body, path.axes), faces);
    return true;
}

bool AddLwPolyline(const EntityGroups& entity, ArcDivision& division, FaceList& faces) {
    FlatPath path;
    return ReadLwPolyline(entity, path) && AddExtruded(path, division, faces);
}

bool AddPolyline2d(const EntityGroups& entity, const std::vector<PolylineVertex>& vertices, ArcDivision& division,
                   FaceList& faces) {
    FlatPath path;
    return ReadPolyline2d(entity, vertices, path) && AddExtruded(path, division, faces);
}
