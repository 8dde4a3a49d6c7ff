// Places the points of an outline, and the same points as far away as the height is.
#include "scene/RaisedOutline.h"

#include <algorithm>
#include <cmath>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"
#include "scene/Placement.h"

namespace {

// Of an extrusion of length 1: by so much it may point down and still be level, which rounding makes of it.
constexpr double kLevel = 1e-9;

bool IsNear(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest && std::fabs(point.z) <= kFarthest;
}

}  // namespace

// An outline that is enlarged has its chords as far from its arcs as they may be once they are enlarged. Copies of the
// same size share them.
bool RaisedOutline::Prepare(double stretch, ArcDivision& division) {
    if (m_stretch == stretch || (m_stretch > 0.0 && !m_hasArcs))
        return m_isSound;
    ArcDivision finer = division;
    finer.sagitta /= stretch;
    m_stretch = stretch;
    m_isSound = m_body.Prepare(m_path, finer);
    m_hasArcs = finer.arcs != division.arcs;
    division.spareChords = finer.spareChords;
    division.arcs = finer.arcs;
    return m_isSound;
}

bool RaisedOutline::AddBody(const Placement& placement, double height, ArcDivision& division, FaceList& faces) {
    if (!Prepare(std::max(1.0, placement.stretch), division))
        return false;
    QcGeVector3d way = placement.DirectionAt(m_path.axes.ToWorld({0.0, 0.0, 1.0}));
    const double length = way.Length();
    const bool isDown = way.z < -kLevel * length;
    const double rise = isDown ? -height : height;
    way = {way.x / length * rise, way.y / length * rise, way.z / length * rise};
    std::vector<QcGePoint> lower, upper;
    for (const OutlinePoint& point : m_body.GetPoints()) {
        lower.push_back(placement.PointAt(m_path.axes.ToWorld({point.x, point.y, m_path.elevation})));
        const QcGePoint foot = lower.back();
        upper.emplace_back(foot.x + way.x, foot.y + way.y, foot.z + way.z);
        if (!IsNear(upper.back()) || !((upper.back() - foot).Length() > g_fZero))
            return false;
    }
    // Seen from the body's end the outline runs as it does in its plane, unless it was mirrored or the body goes the
    // other way.
    if (placement.isMirrored != isDown)
        lower.swap(upper);
    m_body.AddFaces(lower, upper, faces);
    return true;
}
