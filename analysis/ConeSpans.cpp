// Finds where the sun goes through a plane, knowing its sides at the ends of what is asked.
#include "analysis/ConeSpans.h"

#include <cmath>

namespace {

// So far (a tangent) a root may lie beyond the end that it stands for.
constexpr double kAtEnd = 1e-9;

// Of the quadratic: the plane's and those of the plane with -a.
struct Roots {
    double one = 0.0;
    double other = 0.0;
    bool areThere = false;

    // `a` is not 0.
    Roots(double a, double b, double c) {
        const double square = b * b + c * c - a * a;
        if (!(square > 0.0))
            return;
        // a^2 times the square, as a product: the difference of products that it stands for loses its sign where the
        // plane nearly holds the pole.
        const double root = std::abs(a) * std::sqrt(square);
        const double product = b * c;
        const double sum = product < 0.0 ? -product + root : -product - root;
        one = sum / ((c - a) * (c + a));  // infinite where the root is a quarter of a turn away
        other = (b - a) * (b + a) / sum;
        areThere = true;
    }
    TangentSpan Between() const { return {std::min(one, other), std::max(one, other)}; }
};

bool IsOfPlane(double a, double b, double c, double root) {
    return a * (b + c * root) <= 0.0;
}

bool AreOfPlane(double a, double b, double c, const Roots& roots) {
    return roots.areThere && IsOfPlane(a, b, c, roots.one) && IsOfPlane(a, b, c, roots.other);
}

}  // namespace

void ConeSpans::Restart(const AskedSpan& asked) {
    m_asked = asked;
    m_least = asked.least;
    m_most = asked.most;
    m_gapCount = 0;
}

bool ConeSpans::CutAtRoots(double a, double b, double c, double atLeast, double atMost) {
    if (atLeast >= 0.0 && atMost >= 0.0)
        return CutGap(a, b, c);
    if (atLeast < 0.0 && atMost < 0.0)
        return CutEnds(a, b, c);
    const bool isRising = atLeast < 0.0;
    const double root = Crossing(a, b, c, isRising);
    if (isRising)
        m_least = std::max(m_least, root);
    else
        m_most = std::min(m_most, root);
    return m_least < m_most;
}

// Inside at both ends; between them a convex f may dip below 0. Two roots between, or none: what lies elsewhere is no
// matter here, as in the next one.
bool ConeSpans::CutGap(double a, double b, double c) {
    const Roots roots(a, b, c);
    if (AreOfPlane(a, b, c, roots) && IsWithin(roots.one) && IsWithin(roots.other))
        m_gaps[m_gapCount++] = roots.Between();
    return true;
}

// Outside at both ends; between them a concave f may rise above 0.
bool ConeSpans::CutEnds(double a, double b, double c) {
    const Roots roots(a, b, c);
    if (!AreOfPlane(a, b, c, roots) || !IsWithin(roots.one) || !IsWithin(roots.other))
        return false;
    m_least = std::max(m_least, roots.Between().least);
    m_most = std::min(m_most, roots.Between().most);
    return m_least < m_most;
}

// At an end, too: much of what is asked ends where another face's shadow does, on an edge that both have.
bool ConeSpans::IsWithin(double root) const {
    return root >= m_asked.least - kAtEnd && root <= m_asked.most + kAtEnd;
}

// Where f goes through 0 between ends of which one is inside.
double ConeSpans::Crossing(double a, double b, double c, bool isRising) const {
    const auto within = [&](double root) { return std::clamp(root, m_asked.least, m_asked.most); };
    if (a == 0.0)
        return within(-b / c);
    const Roots roots(a, b, c);
    if (!roots.areThere)  // it touches 0 at an end, and rounding made a crossing of that
        return isRising ? m_asked.most : m_asked.least;
    const bool isOne = IsOfPlane(a, b, c, roots.one);
    if (isOne != IsOfPlane(a, b, c, roots.other))
        return within(isOne ? roots.one : roots.other);
    // A concave f rises at the lesser of two, a convex one at the greater.
    return within((a < 0.0) == isRising ? roots.Between().least : roots.Between().most);
}
