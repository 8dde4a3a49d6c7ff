// Outlines on paper: what many polygons cover together, drawn by its border alone.
#pragma once

#include <string>
#include <vector>

// Hundredths of a millimetre; y grows downwards.
struct PaperPoint {
    int x = 0;
    int y = 0;
    bool operator==(const PaperPoint&) const = default;
};
using PaperLoop = std::vector<PaperPoint>;

inline constexpr double kPaperUnits = 100.0;  // in a millimetre

struct PaperBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool Meets(const PaperBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool Holds(const PaperBox& other) const {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};
// Of at least one point.
PaperBox BoxAround(const std::vector<PaperLoop>& loops);

// Polygons put together: sides that two of them share, or parts of sides, are gone. Filled by the rule "nonzero" the
// loops are what the polygons cover, however these overlap.
class PaperUnion {
public:
    // In either sense; one without an area is passed over.
    void Add(const PaperLoop& polygon);
    bool IsEmpty() const { return m_sides.empty(); }
    // Corners in one line with their neighbours are left out. The sides are used up.
    std::vector<PaperLoop> TakeLoops();

private:
    // From `from` to `to` as often as `count` says, the other way round where that is negative; `from` comes first in
    // the order of points.
    struct Side {
        PaperPoint from;
        PaperPoint to;
        int count = 0;
    };

    void AddSide(PaperPoint from, PaperPoint to, int count);
    void SumUp();
    void DivideAtCorners();

    std::vector<Side> m_sides;
};

// Whether a box lies wholly in what the loops cover by the rule "nonzero".
bool Cover(const std::vector<PaperLoop>& loops, const PaperBox& box);

// Adds a loop, or an open line, to the data of a path: as few characters as there can be.
void AppendLoop(std::string& path, const PaperLoop& loop);
void AppendLine(std::string& path, const PaperLoop& line);
