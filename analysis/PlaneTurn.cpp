// The determinant as a sum of exact parts.
#include "analysis/PlaneTurn.h"

#include <cmath>
#include <cstddef>

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

bool TurnsLeftExactly(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
    ExactSum turn;
    turn.AddProduct(a.x, b.y);
    turn.AddProduct(-a.y, b.x);
    turn.AddProduct(b.x, c.y);
    turn.AddProduct(-b.y, c.x);
    turn.AddProduct(c.x, a.y);
    turn.AddProduct(-c.y, a.x);
    return turn.IsPositive();
}
