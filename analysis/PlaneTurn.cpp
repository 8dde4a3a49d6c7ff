// The determinant by plain arithmetic where that is sure of the sign, else as a sum of exact parts.
#include "analysis/PlaneTurn.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace {

// A sum that loses nothing: parts that do not overlap, the greatest last, as Shewchuk adds them up.
class ExactSum {
public:
    void Add(double value) {
        for (std::size_t i = 0; i < m_count; ++i) {
            const double sum = value + m_parts[i];
            const double of = sum - value;
            m_parts[i] = (value - (sum - of)) + (m_parts[i] - of);
            value = sum;
        }
        m_parts[m_count++] = value;
    }

    void AddProduct(double a, double b) {
        const double product = a * b;
        Add(std::fma(a, b, -product));
        Add(product);
    }

    bool IsPositive() const {
        for (std::size_t i = m_count; i-- > 0;)
            if (m_parts[i] != 0.0)
                return m_parts[i] > 0.0;
        return false;
    }

private:
    static constexpr std::size_t kMostParts = 12;  // of six products
    double m_parts[kMostParts] = {};
    std::size_t m_count = 0;
};

}  // namespace

bool TurnsLeft(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
    // Three roundings of each product, and one of their difference.
    constexpr double kUnsure = 4.0 * std::numeric_limits<double>::epsilon();
    const double left = (b.x - a.x) * (c.y - a.y);
    const double right = (b.y - a.y) * (c.x - a.x);
    if (std::abs(left - right) > kUnsure * (std::abs(left) + std::abs(right)))
        return left > right;
    ExactSum turn;
    turn.AddProduct(a.x, b.y);
    turn.AddProduct(-a.y, b.x);
    turn.AddProduct(b.x, c.y);
    turn.AddProduct(-b.y, c.x);
    turn.AddProduct(c.x, a.y);
    turn.AddProduct(-c.y, a.x);
    return turn.IsPositive();
}
