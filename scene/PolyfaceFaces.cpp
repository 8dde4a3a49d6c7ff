// Reads the faces of polyface meshes and of polygon meshes.
#include "scene/PolyfaceFaces.h"

#include <cstddef>

#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kRows = 71;
constexpr int kColumns = 72;
constexpr int kSmoothRows = 73;
constexpr int kSmoothColumns = 74;
constexpr int kClosedInRows = 1;
constexpr int kSmoothed = 4;
constexpr int kClosedInColumns = 32;

bool AddFaceRecord(const PolylineVertex& record, const std::vector<QcGePoint>& locations, FaceList& faces) {
    std::vector<FaceCorner> corners;
    for (const int number : record.corners) {
        if (number == 0)
            continue;
        const long long index = number < 0 ? -static_cast<long long>(number) : number;
        if (static_cast<unsigned long long>(index) > locations.size())
            return false;
        corners.push_back({locations[static_cast<std::size_t>(index - 1)], number < 0});
    }
    faces.AddPolygon(std::move(corners));
    return true;
}

struct Grid {
    std::size_t rows, columns;
    std::vector<QcGePoint> points;

    FaceCorner At(std::size_t row, std::size_t column) const {
        return {points[row % rows * columns + column % columns], false};
    }
};

bool ReadGrid(const EntityGroups& polyline, const std::vector<PolylineVertex>& vertices, bool isSmoothed, Grid& grid) {
    int rows = 0;
    int columns = 0;
    if (!polyline.Integer(isSmoothed ? kSmoothRows : kRows, rows) ||
        !polyline.Integer(isSmoothed ? kSmoothColumns : kColumns, columns) || rows < 2 || columns < 2)
        return false;
    for (const PolylineVertex& vertex : vertices) {
        if (((vertex.flags & kVertexOfSpline) != 0) != isSmoothed)
            continue;
        if (!vertex.hasPoint)
            return false;
        grid.points.push_back(vertex.point);
    }
    grid.rows = static_cast<std::size_t>(rows);
    grid.columns = static_cast<std::size_t>(columns);
    return grid.points.size() / grid.rows == grid.columns && grid.points.size() % grid.rows == 0;
}

}  // namespace

bool AddPolyface(const std::vector<PolylineVertex>& vertices, FaceList& faces) {
    std::vector<QcGePoint> locations;
    for (const PolylineVertex& vertex : vertices) {
        if ((vertex.flags & kPolyfacePart) == 0 || (vertex.flags & kPolyfaceLocation) == 0)
            continue;
        if (!vertex.hasPoint)
            return false;
        locations.push_back(vertex.point);
    }
    for (const PolylineVertex& vertex : vertices)
        if ((vertex.flags & kPolyfacePart) != 0 && (vertex.flags & kPolyfaceLocation) == 0 &&
            !AddFaceRecord(vertex, locations, faces))
            return false;
    return true;
}

bool AddPolygonMesh(const EntityGroups& polyline, const std::vector<PolylineVertex>& vertices, FaceList& faces) {
    const int flags = polyline.IntegerOr(kFlags, 0);
    Grid grid;
    if (!ReadGrid(polyline, vertices, (flags & kSmoothed) != 0, grid))
        return false;
    const std::size_t rows = grid.rows - ((flags & kClosedInRows) != 0 ? 0 : 1);
    const std::size_t columns = grid.columns - ((flags & kClosedInColumns) != 0 ? 0 : 1);
    for (std::size_t m = 0; m < rows; ++m)
        for (std::size_t n = 0; n < columns; ++n)
            faces.AddPolygon({grid.At(m, n), grid.At(m, n + 1), grid.At(m + 1, n + 1), grid.At(m + 1, n)});
    return true;
}
