// Turns the faces, and puts them into a tree.
#include "analysis/DaySector.h"

#include <algorithm>
#include <cmath>

#include "analysis/Boxes.h"

DaySector::DaySector(const OccluderSet& occluders, const SunPath& path, const Vector3& middle, SunPeriod period)
    : m_path(path),
      m_middle(middle),
      m_period(period),
      m_hourAngle(0.5 * (HourAngleOf(period.start) + HourAngleOf(period.end))),
      m_cosine(std::cos(m_hourAngle)),
      m_sine(std::sin(m_hourAngle)),
      m_bodies(static_cast<std::size_t>(occluders.bodyCount)) {
    m_curve.tangent = path.SinDeclination() / path.CosDeclination();
    m_curve.up = Turned(Vector3{0.0, 0.0, 1.0});
    m_curve.widest = std::tan(HourAngleOf(period.end) - m_hourAngle);

    std::vector<CastFace> faces;
    std::vector<Box> boxes;
    std::vector<double> tops;
    faces.reserve(occluders.faces.size());
    boxes.reserve(occluders.faces.size());
    tops.reserve(occluders.faces.size());
    for (const Occluder& occluder : occluders.faces) {
        faces.push_back(FaceOf(occluder));
        const CastFace& face = faces.back();
        Box box = BoxAround(face.corners[0]);
        for (const Vector3& corner : face.corners)
            box = BoxAround(box, BoxAround(corner));
        boxes.push_back(box);
        tops.push_back(BoxAround(occluder).most.z - middle.z);
    }
    m_tree = WideTree(boxes, tops);
    m_faces.reserve(faces.size());
    for (const std::uint32_t index : m_tree.Order())
        m_faces.push_back(faces[index]);
    PutBodiesIntoBoxes();
}

CastFace DaySector::FaceOf(const Occluder& occluder) const {
    Occluder turned = occluder;
    for (Vector3& corner : turned.corners)
        corner = Turned(corner - m_middle);
    if (turned.outside == Occluder::Outside::Behind)
        std::reverse(turned.corners, turned.corners + turned.count);
    CastFace face;
    face.body = occluder.outside == Occluder::Outside::Unknown ? -1 : occluder.body;
    face.entity = occluder.entity;
    for (int i = 0; i < 4; ++i)
        face.corners[i] = turned.corners[std::min(i, turned.count - 1)];
    return face;
}

void DaySector::PutBodiesIntoBoxes() {
    std::vector<bool> isBegun(m_bodies.size(), false);
    for (const CastFace& face : m_faces) {
        if (face.body < 0)
            continue;
        const auto body = static_cast<std::size_t>(face.body);
        for (const Vector3& corner : face.corners) {
            m_bodies[body] = isBegun[body] ? BoxAround(m_bodies[body], BoxAround(corner)) : BoxAround(corner);
            isBegun[body] = true;
        }
    }
}

Vector3 DaySector::Turned(const Vector3& direction) const {
    const Vector3 sky = m_path.ToSky(direction);
    return {m_cosine * sky.x + m_sine * sky.y, m_cosine * sky.y - m_sine * sky.x, sky.z};
}

SunTarget DaySector::Turned(const SunTarget& target) const {
    SunTarget turned = target;
    turned.middle = Turned(target.middle - m_middle);
    turned.right = Turned(target.right);
    turned.up = Turned(target.up);
    turned.outward = Turned(target.outward);
    return turned;
}

TangentSpan DaySector::TangentsOf(SunPeriod period) const {
    return {std::tan(HourAngleOf(period.start) - m_hourAngle), std::tan(HourAngleOf(period.end) - m_hourAngle)};
}

SunPeriod DaySector::PeriodOf(TangentSpan span) const {
    return {HoursOf(m_hourAngle + std::atan(span.least)), HoursOf(m_hourAngle + std::atan(span.most))};
}
