// Triangles as geometry of our own: their boxes, and what happens where a ray comes near one.
#include "RayScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Millimetres: far more than what single precision loses on the coordinates of a district.
constexpr float kMargin = 2.0F;

}  // namespace

// The context of one ray, which holds it as it is meant.
struct RayScene::Ray {
    RTCIntersectContext context = {};  // first, so that Embree's pointer to it is one to all of this
    SlowPoint from;
    SlowPoint way;
    std::set<std::uint64_t>* handles = nullptr;  // of all that the ray meets; without it the first one ends it
};

RayScene::RayScene(const std::vector<SlowFace>& triangles)
    : m_triangles(triangles), m_device(rtcNewDevice(nullptr)), m_scene(rtcNewScene(m_device)) {
    RTCGeometry geometry = rtcNewGeometry(m_device, RTC_GEOMETRY_TYPE_USER);
    rtcSetGeometryUserPrimitiveCount(geometry, static_cast<unsigned>(triangles.size()));
    rtcSetGeometryUserData(geometry, const_cast<SlowFace*>(triangles.data()));
    rtcSetGeometryBoundsFunction(geometry, TellBounds, nullptr);
    rtcSetGeometryOccludedFunction(geometry, Meet);
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(m_scene, geometry);
    rtcReleaseGeometry(geometry);
    rtcSetSceneFlags(m_scene, RTC_SCENE_FLAG_ROBUST);
    rtcCommitScene(m_scene);
    EXPECT_EQ(rtcGetDeviceError(m_device), RTC_ERROR_NONE);
}

RayScene::~RayScene() {
    rtcReleaseScene(m_scene);
    rtcReleaseDevice(m_device);
}

void RayScene::TellBounds(const RTCBoundsFunctionArguments* asked) {
    constexpr float kFar = std::numeric_limits<float>::max();
    RTCBounds& bounds = *asked->bounds_o;
    bounds = {kFar, kFar, kFar, 0.0F, -kFar, -kFar, -kFar, 0.0F};
    for (const SlowPoint& corner : static_cast<const SlowFace*>(asked->geometryUserPtr)[asked->primID].corners) {
        const float x = static_cast<float>(corner.x), y = static_cast<float>(corner.y),
                    z = static_cast<float>(corner.z);
        bounds.lower_x = std::min(bounds.lower_x, x - kMargin);
        bounds.lower_y = std::min(bounds.lower_y, y - kMargin);
        bounds.lower_z = std::min(bounds.lower_z, z - kMargin);
        bounds.upper_x = std::max(bounds.upper_x, x + kMargin);
        bounds.upper_y = std::max(bounds.upper_y, y + kMargin);
        bounds.upper_z = std::max(bounds.upper_z, z + kMargin);
    }
}

void RayScene::Meet(const RTCOccludedFunctionNArguments* asked) {
    if (asked->valid[0] == 0)
        return;
    const Ray& ray = *reinterpret_cast<const Ray*>(asked->context);
    const SlowFace& face = static_cast<const SlowFace*>(asked->geometryUserPtr)[asked->primID];
    if (!MeetsTriangle(ray.from, ray.way, face.corners[0], face.corners[1], face.corners[2]))
        return;
    if (ray.handles)
        ray.handles->insert(face.handle);
    else
        RTCRayN_tfar(asked->ray, asked->N, 0) = -std::numeric_limits<float>::infinity();  // stopped
}

bool RayScene::Cast(Ray& ray) const {
    rtcInitIntersectContext(&ray.context);
    RTCRay cast = {};
    cast.org_x = static_cast<float>(ray.from.x);
    cast.org_y = static_cast<float>(ray.from.y);
    cast.org_z = static_cast<float>(ray.from.z);
    cast.dir_x = static_cast<float>(ray.way.x);
    cast.dir_y = static_cast<float>(ray.way.y);
    cast.dir_z = static_cast<float>(ray.way.z);
    cast.tfar = std::numeric_limits<float>::infinity();
    cast.mask = ~0U;
    rtcOccluded1(m_scene, &ray.context, &cast);
    return cast.tfar < 0.0F;
}

bool RayScene::IsStopped(const SlowPoint& from, const SlowPoint& way) const {
    Ray ray;
    ray.from = from;
    ray.way = way;
    return Cast(ray);
}

void RayScene::AddStoppers(const SlowPoint& from, const SlowPoint& way, std::set<std::uint64_t>& handles) const {
    Ray ray;
    ray.from = from;
    ray.way = way;
    ray.handles = &handles;
    Cast(ray);
}
