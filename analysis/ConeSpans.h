// The part of a span in which the sun is within a cone.
#pragma once

#include <algorithm>

#include "analysis/TangentSpan.h"

// Cut out of what is asked by one plane through the target after the other. On the inner side of the plane with the
// normal n the sun is while
//
//     f(u) = a w + b + c u >= 0,    a = t n_z,  b = n_x,  c = n_y    (TangentSpan.h).
//
// w is convex, so f is convex where a > 0 and concave where a < 0, and has no more than two roots. They are among those
// of (c^2 - a^2) u^2 + 2 b c u + (b^2 - a^2) = 0; the others are of the plane with -a.
class ConeSpans {
public:
    // From all that is asked, with no plane yet.
    void Restart(const AskedSpan& asked);
    // Cuts off what is on the outer side of a plane. False when nothing is left; there is nothing to ask then. At most
    // kMostPlanes in turn.
    bool Cut(double a, double b, double c) {
        const double atLeast = a * m_asked.wAtLeast + b + c * m_asked.least;
        const double atMost = a * m_asked.wAtMost + b + c * m_asked.most;
        // Most planes: f has no root between, as it is bent.
        if (atLeast >= 0.0 && atMost >= 0.0 && a <= 0.0)
            return true;
        if (atLeast < 0.0 && atMost < 0.0 && a >= 0.0)
            return false;
        return CutAtRoots(a, b, c, atLeast, atMost);
    }
    // Calls take(TangentSpan) for each part, in order.
    template <class Take>
    void ForEach(const Take& take);

    // A face of four corners, one more where it is clipped, and a rectangle: no cone has more sides.
    static constexpr int kMostPlanes = 20;

private:
    bool CutAtRoots(double a, double b, double c, double atLeast, double atMost);
    bool CutGap(double a, double b, double c);
    bool CutEnds(double a, double b, double c);
    bool IsWithin(double root) const;
    double Crossing(double a, double b, double c, bool isRising) const;

    AskedSpan m_asked{TangentSpan{0.0, 0.0}};
    double m_least = 0.0;
    double m_most = 0.0;
    int m_gapCount = 0;
    TangentSpan m_gaps[kMostPlanes];
};

template <class Take>
void ConeSpans::ForEach(const Take& take) {
    std::sort(m_gaps, m_gaps + m_gapCount,
              [](const TangentSpan& one, const TangentSpan& other) { return one.least < other.least; });
    double from = m_least;
    for (int i = 0; i < m_gapCount && m_gaps[i].least < m_most; ++i) {
        if (from < m_gaps[i].least)
            take(TangentSpan{from, m_gaps[i].least});
        from = std::max(from, m_gaps[i].most);
    }
    if (from < m_most)
        take(TangentSpan{from, m_most});
}
