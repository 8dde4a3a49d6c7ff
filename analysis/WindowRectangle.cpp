// Fits an upright rectangle to corners: two of them tell its direction in plan, all of them its extent, and then each
// must lie on it.
#include "analysis/WindowRectangle.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

double DistanceInPlan(const Vector3& a, const Vector3& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// The corner that lies farthest from a place, seen from above; of equals the first.
const Vector3& FarthestInPlan(const std::vector<Vector3>& corners, const Vector3& from) {
    return *std::max_element(corners.begin(), corners.end(), [&](const Vector3& a, const Vector3& b) {
        return DistanceInPlan(from, a) < DistanceInPlan(from, b);
    });
}

bool IsNear(double a, double b) {
    return std::fabs(a - b) <= kWindowTolerance;
}

// The rectangle lying flat: from its lower left corner to the right and up.
struct FlatRectangle {
    double width = 0.0;
    double height = 0.0;

    // Its own corner that a point is, counted from the lower left one counter-clockwise; -1 for none.
    int CornerAt(double x, double y) const {
        const bool isLeft = IsNear(x, 0.0);
        const bool isLow = IsNear(y, 0.0);
        if ((!isLeft && !IsNear(x, width)) || (!isLow && !IsNear(y, height)))
            return -1;
        return isLow ? (isLeft ? 0 : 1) : (isLeft ? 3 : 2);
    }
    // Its side that a point lies on, from the corner of that number to the next; -1 for none.
    int SideAt(double x, double y) const {
        return IsNear(y, 0.0) ? 0 : IsNear(x, width) ? 1 : IsNear(y, height) ? 2 : IsNear(x, 0.0) ? 3 : -1;
    }
};

// Follows an outline around a rectangle.
class Walk {
public:
    // False when it goes astray.
    bool Visit(const FlatRectangle& rectangle, double x, double y) {
        const int corner = rectangle.CornerAt(x, y);
        if (corner < 0) {
            const int side = rectangle.SideAt(x, y);
            if (side < 0)
                return false;
            m_steps.push_back({side, false});
        } else if (m_steps.empty() || !m_steps.back().isCorner || m_steps.back().number != corner) {
            m_steps.push_back({corner, true});
        }
        return true;
    }
    // Whether it went from each corner to the next, once around, along the sides between.
    bool IsOnceAround() {
        const auto first = std::find_if(m_steps.begin(), m_steps.end(), [](const Step& step) { return step.isCorner; });
        if (first == m_steps.end())
            return false;
        std::rotate(m_steps.begin(), first, m_steps.end());
        m_steps.push_back(m_steps.front());
        int turns = 0;
        for (std::size_t from = 0, to = 0; from + 1 < m_steps.size(); from = to) {
            for (to = from + 1; !m_steps[to].isCorner; ++to) {
            }
            const int step = StepOf(m_steps[from].number, m_steps[to].number);
            const int side = step > 0 ? m_steps[from].number : m_steps[to].number;
            for (std::size_t i = from + 1; i < to; ++i)
                if (step == 0 || m_steps[i].number != side)
                    return false;
            if (step == 0 && m_steps[from].number != m_steps[to].number)
                return false;
            turns += step;
            m_corners += step != 0 ? 1 : 0;
        }
        return m_corners == 4 && (turns == 4 || turns == -4);
    }

private:
    struct Step {
        int number;
        bool isCorner;
    };
    // 1 to the next corner, -1 to the one before, else 0.
    static int StepOf(int from, int to) { return (from + 1) % 4 == to ? 1 : (to + 1) % 4 == from ? -1 : 0; }

    std::vector<Step> m_steps;
    int m_corners = 0;
};

}  // namespace

std::optional<DrawnWindow> RectangleOf(const std::vector<Vector3>& corners) {
    if (corners.size() < 4)
        return {};
    const Vector3& one = FarthestInPlan(corners, corners[0]);
    const Vector3& other = FarthestInPlan(corners, one);
    const auto [low, high] = std::minmax_element(corners.begin(), corners.end(),
                                                 [](const Vector3& a, const Vector3& b) { return a.z < b.z; });
    const FlatRectangle rectangle{DistanceInPlan(one, other), high->z - low->z};
    if (!(rectangle.width > kWindowTolerance) || !(rectangle.height > kWindowTolerance) ||
        rectangle.width > kWidestWindow || rectangle.height > kWidestWindow)
        return {};
    const Vector3 right{(other.x - one.x) / rectangle.width, (other.y - one.y) / rectangle.width, 0.0};
    Walk walk;
    for (const Vector3& corner : corners) {
        const Vector3 to = corner - one;
        if (!IsNear(to.x * right.y - to.y * right.x, 0.0) ||
            !walk.Visit(rectangle, to.x * right.x + to.y * right.y, corner.z - low->z))
            return {};
    }
    if (!walk.IsOnceAround())
        return {};
    DrawnWindow window;
    window.lowerLeft = {one.x, one.y, low->z};
    window.right = right;
    window.width = rectangle.width;
    window.height = rectangle.height;
    return window;
}
