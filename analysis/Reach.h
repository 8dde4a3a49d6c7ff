// How far the module's parameters of scope let an analysis look.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/BoxTree.h"
#include "analysis/OccluderSet.h"

// Lengths in millimetres, with the names of the parameters that they come from (AnalysisParameters.h).
struct ReachLimits {
    double mainScopeRadius = 0.0;      // g_nMainScopeRadius
    double scopeFactorOfHeight = 0.0;  // g_nScopeFactorOfHeight, a factor
    double buildingHeightLimit = 0.0;  // g_nBuildingHeightLimit
};

// An entity counts for a window when, in plan, it comes as near as `mainScopeRadius`, and as near as
// `scopeFactorOfHeight` times how far it rises over the window's sill, of which no more than `buildingHeightLimit` is
// taken. All that the drawing shows of it together does, so that a project does not change what else counts.
class Reach {
public:
    // Keeps a reference. Without the project entities are what else they show.
    Reach(const OccluderSet& occluders, const ReachLimits& limits, bool isWithProject = true);

    // Whether an entity counts for a window with its sill's middle here; one of the project only with it.
    bool Counts(std::uint32_t entity, const Vector3& sill) const;

private:
    // Its faces, which lie together.
    struct Entity {
        Box box;
        std::size_t firstFace = 0;
        std::size_t faceCount = 0;
    };

    const OccluderSet& m_occluders;
    ReachLimits m_limits;
    std::vector<Entity> m_entities;  // by DrawnAs
};
