// The boxes are widened by the target, so that its middle can stand for all of it. What is done with a lane is written
// once, for vectors of four or eight of them.
#include "analysis/SkyWindow.h"

#include <cmath>
#include <cstring>

namespace {

typedef float Four __attribute__((vector_size(16)));
typedef float Eight __attribute__((vector_size(32)));

// A box is clipped to what lies this far (millimetres) before the target on x, where quotients by x make sense.
constexpr float kLeastX = 1e-5F;
// More than all roundings of single precision between here and the answer.
constexpr float kRounding = 2e-6F;
constexpr double kPlaceRounding = 2e-7;
constexpr double kFarthestTarget = 1e12;
constexpr float kHalfRoot = 0.7071F;  // less than the root of a half

#define ORVO_INLINE [[gnu::always_inline]] inline

template <class Lanes>
ORVO_INLINE Lanes All(float value) {
    return Lanes{} + value;
}
template <class Lanes>
ORVO_INLINE Lanes Load(const float* values) {
    Lanes lanes;
    std::memcpy(&lanes, values, sizeof lanes);
    return lanes;
}
template <class Lanes>
ORVO_INLINE Lanes Greater(Lanes a, Lanes b) {
    return a > b ? a : b;
}
template <class Lanes>
ORVO_INLINE Lanes Lesser(Lanes a, Lanes b) {
    return a < b ? a : b;
}
template <class Lanes>
ORVO_INLINE Lanes Size(Lanes a) {
    return Greater(a, -a);
}
// Down or up by what rounding may have taken.
template <class Lanes>
ORVO_INLINE Lanes Outwards(Lanes value, float sign) {
    return value + sign * kRounding * (1.0F + Size(value));
}

// From the target to the boxes along one axis.
template <class Lanes>
struct Way {
    Lanes least;
    Lanes most;

    ORVO_INLINE Way(const WideNode& node, int axis, int first, const SkyWindow::Numbers& of)
        : least(Load<Lanes>(node.least[axis] + first) - of.most[axis]),
          most(Load<Lanes>(node.most[axis] + first) - of.least[axis]) {}
    ORVO_INLINE Lanes Farthest() const { return Greater(Size(least), Size(most)); }
    // The farthest of it in a direction of which this is the part along the axis.
    ORVO_INLINE Lanes Along(float part) const { return (part < 0.0F ? least : most) * part; }
    ORVO_INLINE void TurnOver() {
        const Lanes turned = -least;
        least = -most;
        most = turned;
    }
    // Divided by all x between the nearest and the farthest, of which these are the inverses.
    ORVO_INLINE Lanes LeastQuotient(Lanes near, Lanes far) const {
        return Outwards(least * (least < 0.0F ? near : far), -1.0F);
    }
    ORVO_INLINE Lanes MostQuotient(Lanes near, Lanes far) const {
        return Outwards(most * (most < 0.0F ? far : near), 1.0F);
    }
};

// The least that the path rises, upright, for each unit of x.
template <class Lanes>
ORVO_INLINE Lanes LeastRise(const SkyWindow::Numbers& of, Lanes left, Lanes right, Lanes flattest, Lanes steepest) {
    const Lanes mostW = Lesser(1.0F + 0.5F * steepest * steepest, 1.0F + of.chord * steepest);
    const Lanes leastW = Greater(All<Lanes>(1.0F), (1.0F + flattest) * kHalfRoot);
    return of.up[0] + Lesser(of.up[1] * left, of.up[1] * right) + of.up[2] * (of.up[2] < 0.0F ? mostW : leastW);
}

template <class Lanes>
ORVO_INLINE void LookAt(const WideNode& node, int first, const SkyWindow::Numbers& of, SeenBoxes& boxes) {
    const Way<Lanes> x(node, 0, first, of);
    const Way<Lanes> y(node, 1, first, of);
    Way<Lanes> z(node, 2, first, of);
    const Lanes size = Size(x.most) + y.Farthest() + z.Farthest();
    // Whether any corner is before the target's plane.
    const Lanes depth = x.Along(of.outward[0]) + y.Along(of.outward[1]) + z.Along(of.outward[2]);
    if (of.isBelow)
        z.TurnOver();
    const Lanes near = 1.0F / Greater(x.least, All<Lanes>(kLeastX));
    const Lanes far = 1.0F / x.most;
    const Lanes left = Greater(y.LeastQuotient(near, far), All<Lanes>(of.from));
    const Lanes right = Lesser(y.MostQuotient(near, far), All<Lanes>(of.to));
    const Lanes steepest = Greater(Size(left), Size(right));
    const Lanes flattest = Greater(Greater(left, -right), All<Lanes>(0.0F));
    const Lanes height = Load<Lanes>(node.top + first) - of.lowest;
    const Lanes rise = LeastRise(of, left, right, flattest, steepest);
    const Lanes risen = rise * (rise < 0.0F ? x.most : Greater(x.least, All<Lanes>(0.0F)));
    // The path's least and greatest z/x, which are not below 0 here, are compared by their squares.
    const Lanes low = Greater(z.LeastQuotient(near, far), All<Lanes>(0.0F));
    const Lanes high = z.MostQuotient(near, far);
    const Lanes leastSquare = of.square * (1.0F + flattest * flattest) * (1.0F - 2.0F * kRounding);
    const Lanes mostSquare = of.square * (1.0F + steepest * steepest) * (1.0F + 2.0F * kRounding);
    const auto seen = (x.most > kLeastX) & (depth > -kRounding * size) & (left <= right) &
                      (risen <= height + 4.0F * kRounding * (size + Size(height))) & (low * low <= mostSquare) &
                      (high >= 0.0F) & (high * high >= leastSquare);
    std::memcpy(boxes.least + first, &left, sizeof left);
    std::memcpy(boxes.most + first, &right, sizeof right);
    constexpr int kLanes = static_cast<int>(sizeof(Lanes) / sizeof(float));
    for (int i = 0; i < kLanes; ++i)
        boxes.lanes |= seen[i] != 0 ? 1U << (first + i) : 0U;
}

SeenBoxes LookFourByFour(const WideNode& node, const SkyWindow::Numbers& of) {
    SeenBoxes boxes;
    LookAt<Four>(node, 0, of, boxes);
    LookAt<Four>(node, 4, of, boxes);
    return boxes;
}

#ifdef __x86_64__
[[gnu::target("avx2")]] SeenBoxes LookAtEight(const WideNode& node, const SkyWindow::Numbers& of) {
    SeenBoxes boxes;
    LookAt<Eight>(node, 0, of, boxes);
    return boxes;
}

const bool kHasEight = __builtin_cpu_supports("avx2") != 0;
#endif

SeenBoxes Everything(const WideNode& node, const SkyWindow::Numbers& of) {
    SeenBoxes boxes;
    for (int i = 0; i < WideNode::kWidth; ++i) {
        boxes.lanes |= node.least[0][i] <= node.most[0][i] ? 1U << i : 0U;
        boxes.least[i] = of.from;
        boxes.most[i] = of.to;
    }
    return boxes;
}

}  // namespace

SkyWindow::SkyWindow(const SunTarget& target, const SunCurve& curve) {
    Numbers& of = m_numbers;
    constexpr double Vector3::*kAxes[] = {&Vector3::x, &Vector3::y, &Vector3::z};
    const auto reach = [&](double right, double up) {
        return std::abs(right) * target.halfWidth + std::abs(up) * target.halfHeight;
    };
    double rounding = 0.0;
    for (int i = 0; i < 3; ++i) {
        const auto axis = kAxes[i];
        const double middle = target.middle.*axis;
        const double half = reach(target.right.*axis, target.up.*axis) + kPlaceRounding * std::abs(middle);
        of.least[i] = static_cast<float>(middle - half);
        of.most[i] = static_cast<float>(middle + half);
        of.outward[i] = static_cast<float>(target.outward.*axis);
        of.up[i] = static_cast<float>(curve.up.*axis * (i == 2 ? curve.tangent : 1.0));
        rounding += kPlaceRounding * std::abs(middle);
    }
    const double lowest = Dot(target.middle, curve.up) - reach(Dot(target.right, curve.up), Dot(target.up, curve.up));
    of.lowest = static_cast<float>(lowest - rounding);
    of.chord = static_cast<float>((std::sqrt(1.0 + curve.widest * curve.widest) - 1.0) / curve.widest *
                                  (1.0 + kPlaceRounding));
    of.square = static_cast<float>(curve.tangent * curve.tangent);
    of.isBelow = curve.tangent < 0.0;
    of.isFar = !(rounding < kPlaceRounding * kFarthestTarget);
}

void SkyWindow::Want(TangentSpan wanted) {
    const auto least = static_cast<float>(wanted.least);
    const auto most = static_cast<float>(wanted.most);
    m_numbers.from = least - kRounding * (1.0F + std::abs(least));
    m_numbers.to = most + kRounding * (1.0F + std::abs(most));
}

SeenBoxes SkyWindow::Look(const WideNode& node) const {
#ifdef __x86_64__
    if (kHasEight && !m_numbers.isFar)
        return LookAtEight(node, m_numbers);
#endif
    return LookPlainly(node);
}

SeenBoxes SkyWindow::LookPlainly(const WideNode& node) const {
    return m_numbers.isFar ? Everything(node, m_numbers) : LookFourByFour(node, m_numbers);
}
