// A part of the day of at most a third of a turn, with the faces as it sees them.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/OccluderSet.h"
#include "analysis/SkyWindow.h"
#include "analysis/SunPath.h"

// A face in the axes of a sector. Two lines of a cache: most of the time of a question goes by waiting for faces.
struct alignas(128) CastFace {
    Vector3 corners[4];      // of a triangle the last one twice; of a body's face the normal points out of the body
    std::int32_t body = -1;  // of the closed bodies whose outside is known; else -1
    std::uint32_t entity = 0;

    // Of any length.
    Vector3 Normal() const { return Cross(corners[2] - corners[0], corners[3] - corners[1]); }
};

// In axes of its own: the sky's (SunPath.h), turned around the pole so that x points to the middle of the part. All
// that the sun can be behind has a positive x there. A plain value.
class DaySector {
public:
    // `middle` becomes the origin. The period has a length.
    DaySector(const OccluderSet& occluders, const SunPath& path, const Vector3& middle, SunPeriod period);

    const SunPeriod& Period() const { return m_period; }
    const SunCurve& Curve() const { return m_curve; }
    SunTarget Turned(const SunTarget& target) const;

    // Of a period within the sector, and back.
    TangentSpan TangentsOf(SunPeriod period) const;
    SunPeriod PeriodOf(TangentSpan span) const;

    const WideTree& Tree() const { return m_tree; }
    // A thing of the tree by its place.
    const CastFace& FaceAt(std::uint32_t place) const { return m_faces[place]; }
    // Around the body of a face that has one.
    const Box& BodyOf(const CastFace& face) const { return m_bodies[static_cast<std::size_t>(face.body)]; }

private:
    Vector3 Turned(const Vector3& direction) const;
    CastFace FaceOf(const Occluder& occluder) const;
    void PutBodiesIntoBoxes();

    SunPath m_path;
    Vector3 m_middle;
    SunPeriod m_period;
    double m_hourAngle;  // of the part's middle, radians
    double m_cosine;     // of that
    double m_sine;
    SunCurve m_curve;
    std::vector<CastFace> m_faces;
    std::vector<Box> m_bodies;
    WideTree m_tree;
};
