// Things that are joined in pairs, and the sets that come of it.
#pragma once

#include <cstdint>
#include <numeric>
#include <vector>

class JoinedSets {
public:
    explicit JoinedSets(std::size_t count) : m_parent(count) { std::iota(m_parent.begin(), m_parent.end(), 0U); }

    void Join(std::uint32_t a, std::uint32_t b) {
        a = Root(a);
        b = Root(b);
        // The least member stands for the set, so that the order of joining does not show.
        if (a < b)
            m_parent[b] = a;
        else
            m_parent[a] = b;
    }
    // The member that stands for its set.
    std::uint32_t Root(std::uint32_t each) {
        while (m_parent[each] != each) {
            m_parent[each] = m_parent[m_parent[each]];
            each = m_parent[each];
        }
        return each;
    }

private:
    std::vector<std::uint32_t> m_parent;
};
