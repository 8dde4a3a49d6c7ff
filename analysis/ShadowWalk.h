// The way of one question - when is a target hidden in a part of the day - through the faces.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/ConeSpans.h"
#include "analysis/DaySector.h"
#include "analysis/EntityFilter.h"
#include "analysis/ShadowHull.h"
#include "analysis/SkyWindow.h"

class ShadowWalk {
public:
    // Keeps references. `precision` as for ShadowHull.
    ShadowWalk(const DaySector& sector, const SunTarget& target, double precision, const EntityFilter& counts);

    // Goes on to the next face that hides some of what is asked; those that are wide in the sky tend to come first.
    // `isOpen(least, most)` tells whether anything between two tangents is still of interest. False when there is none
    // left.
    template <class IsOpen>
    bool Next(const IsOpen& isOpen);
    // From here on this only.
    void Ask(TangentSpan asked);

    // Of the face that Next has come to.
    std::uint32_t Entity() const { return m_face->entity; }
    template <class Take>
    void ForEachShadow(const Take& take) {
        m_shadow.ForEach(take);
    }

private:
    // A child of a node that is still to be visited, and between which tangents it lies.
    struct Step {
        std::uint32_t child;
        bool isThing;
        float least, most;

        float Width() const { return most - least; }
    };

    void LookInto(std::uint32_t number);
    bool Hides(const CastFace& face);
    bool LooksAway(const CastFace& face, const Vector3& normal, double distance) const;
    bool CutByPoint(const CastFace& face, bool isBefore);
    bool CutByHull(const CastFace& face);

    const DaySector& m_sector;
    const EntityFilter& m_counts;
    double m_precision;
    SunTarget m_target;  // in the sector's axes
    Box m_around;        // the target
    SkyWindow m_view;
    AskedSpan m_asked{TangentSpan{0.0, 0.0}};
    bool m_isBegun = false;
    std::vector<Step> m_steps;
    const CastFace* m_face = nullptr;
    ConeSpans m_shadow;
    ShadowHull m_hull;
};

template <class IsOpen>
bool ShadowWalk::Next(const IsOpen& isOpen) {
    if (!m_isBegun && !m_sector.Tree().IsEmpty())
        LookInto(0);
    m_isBegun = true;
    while (!m_steps.empty()) {
        const Step step = m_steps.back();
        m_steps.pop_back();
        if (!isOpen(step.least, step.most))
            continue;
        if (!step.isThing) {
            LookInto(step.child);
            continue;
        }
        m_face = &m_sector.FaceAt(step.child);
        if (Hides(*m_face))
            return true;
    }
    return false;
}
