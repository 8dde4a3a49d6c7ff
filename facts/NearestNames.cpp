// The edit distance between names, and the ranking by it.
#include "facts/NearestNames.h"

#include <algorithm>
#include <numeric>

#include "facts/FactsTexts.h"
#include "platform/base/PlainText.h"

namespace {

constexpr std::size_t kMostCharacters = 100;
constexpr std::size_t kMostNames = 3;

std::u32string Folded(const CString& text) {
    std::u32string points = CodePoints(text);
    points.resize(std::min(points.size(), kMostCharacters));
    for (char32_t& point : points)
        point += point >= U'A' && point <= U'Z' ? U'a' - U'A' : 0;
    return points;
}

int Distance(const std::u32string& left, const std::u32string& right) {
    std::vector<int> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < left.size(); ++i) {
        int diagonal = row[0];
        row[0] = static_cast<int>(i) + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const int replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

// Smaller is nearer; negative when more than half of the characters differ.
int Score(const std::u32string& name, const std::u32string& candidate) {
    if (name.empty() || candidate.empty())
        return -1;
    const int distance = Distance(name, candidate);
    const bool isHeld = candidate.find(name) != std::u32string::npos || name.find(candidate) != std::u32string::npos;
    if (isHeld)
        return distance;
    const int longer = static_cast<int>(std::max(name.size(), candidate.size()));
    return 2 * distance > longer ? -1 : static_cast<int>(kMostCharacters) + distance;
}

}  // namespace

std::vector<CString> NearestNames(const CString& name, const std::vector<CString>& candidates) {
    struct Ranked {
        int score;
        const CString* name;
    };
    const std::u32string wanted = Folded(name);
    std::vector<Ranked> ranked;
    for (const CString& candidate : candidates) {
        const int score = Score(wanted, Folded(candidate));
        if (score >= 0)
            ranked.push_back({score, &candidate});
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked& a, const Ranked& b) { return a.score < b.score; });
    std::vector<CString> nearest;
    for (std::size_t i = 0; i < ranked.size() && nearest.size() < kMostNames; ++i)
        if (std::find(nearest.begin(), nearest.end(), *ranked[i].name) == nearest.end())
            nearest.push_back(*ranked[i].name);
    return nearest;
}

CString JoinNames(const std::vector<CString>& names) {
    CString joined;
    for (const CString& name : names) {
        if (!joined.IsEmpty())
            joined += FactsText(L"、");
        joined += Printable(name);
    }
    return joined;
}
