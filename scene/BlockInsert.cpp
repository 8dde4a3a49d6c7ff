// Reads the groups of an INSERT, and makes placements of them.
#include "scene/BlockInsert.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/host/DxfScanner.h"
#include "scene/EntityGroups.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kName = 2;
constexpr int kScale = 41;
constexpr int kColumnStep = 44;
constexpr int kRowStep = 45;
constexpr int kAngle = 50;
constexpr int kColumns = 70;
constexpr int kRows = 71;

bool ReadCount(const EntityGroups& entity, int code, int& count) {
    if (!entity.Integer(code, count) || count < 0)
        return false;
    count = std::max(count, 1);
    return true;
}

bool ReadScale(const EntityGroups& entity, QcGePoint& scale) {
    return entity.Real(kScale, scale.x) && entity.Real(kScale + 1, scale.y) && entity.Real(kScale + 2, scale.z) &&
           scale.x != 0.0 && scale.y != 0.0 && scale.z != 0.0;
}

}  // namespace

Placement BlockInsert::At(const QcGePoint& base, int column, int row) const {
    const double angle = std::remainder(degrees, 360.0) * std::numbers::pi / 180.0;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double right = column * columnStep;
    const double up = row * rowStep;
    Placement placement;
    placement.xAxis = QcGeVector3d(axes.ToWorld({cosine * scale.x, sine * scale.x, 0.0}));
    placement.yAxis = QcGeVector3d(axes.ToWorld({-sine * scale.y, cosine * scale.y, 0.0}));
    placement.zAxis = QcGeVector3d(axes.ToWorld({0.0, 0.0, scale.z}));
    placement.origin =
        axes.ToWorld({point.x + cosine * right - sine * up, point.y + sine * right + cosine * up, point.z});
    placement.origin = placement.PointAt({-base.x, -base.y, -base.z});
    placement.isMirrored = (scale.x < 0.0) != ((scale.y < 0.0) != (scale.z < 0.0));
    placement.stretch = std::max({std::fabs(scale.x), std::fabs(scale.y), std::fabs(scale.z)});
    return placement;
}

bool ReadInsert(const EntityGroups& entity, BlockInsert& insert) {
    insert = BlockInsert();
    if (const DxfGroup* const name = entity.Find(kName))
        insert.name = TrimDxfValue(name->value);
    return !insert.name.empty() && entity.Point(kX, insert.point) && ReadScale(entity, insert.scale) &&
           entity.Real(kAngle, insert.degrees) && ReadCount(entity, kColumns, insert.columns) &&
           ReadCount(entity, kRows, insert.rows) && entity.Real(kColumnStep, insert.columnStep) &&
           entity.Real(kRowStep, insert.rowStep) && ReadExtrusion(entity, insert.axes);
}
