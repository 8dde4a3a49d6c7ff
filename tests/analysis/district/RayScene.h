// What rays meet among many triangles. Embree says which triangles a ray comes near; whether it meets one is asked in
// double precision, since windows begin a twentieth of a millimetre beside what shades them.
#pragma once

#include <embree3/rtcore.h>

#include <cstdint>
#include <set>
#include <vector>

#include "analysis/SlowCaster.h"

class RayScene {
public:
    explicit RayScene(const std::vector<SlowFace>& triangles);
    RayScene(const RayScene&) = delete;
    RayScene& operator=(const RayScene&) = delete;
    ~RayScene();

    bool IsStopped(const SlowPoint& from, const SlowPoint& way) const;
    void AddStoppers(const SlowPoint& from, const SlowPoint& way, std::set<std::uint64_t>& handles) const;

private:
    struct Ray;
    static void TellBounds(const RTCBoundsFunctionArguments* asked);
    static void Meet(const RTCOccludedFunctionNArguments* asked);
    bool Cast(Ray& ray) const;

    const std::vector<SlowFace>& m_triangles;
    RTCDevice m_device;
    RTCScene m_scene;
};
