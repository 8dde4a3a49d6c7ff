// Turns points into the planes that flat entities are drawn in.
#include "workbench/commands/ResultSheet.h"

#include <cmath>
#include <numbers>

#include "platform/geometry/QcGeVector3d.h"
#include "platform/host/DrawingUnits.h"
#include "scene/ObjectCoordinates.h"

namespace {

NewEntity::Point PointOf(const QcGePoint& point) {
    return {point.x, point.y, point.z};
}

// What is level keeps the world's axes, whatever rounding says.
ObjectCoordinates AxesOf(QcGePoint& outward) {
    constexpr double kLevel = 1e-9;
    ObjectCoordinates axes;
    if (outward.z > 0.0 && std::hypot(outward.x, outward.y) < kLevel)
        outward = QcGePoint(0.0, 0.0, 1.0);
    else
        axes.SetExtrusion(QcGeVector3d(outward));
    return axes;
}

// Degrees, of which a text is read from below or from the right.
double ReadableTurn(const QcGePoint& along) {
    constexpr double kHalfTurn = 180.0;
    constexpr double kRounding = 1e-6;  // degrees: what runs straight up is read from the right
    const double turn = std::atan2(along.y, along.x) * kHalfTurn / std::numbers::pi;
    if (turn > 0.5 * kHalfTurn + kRounding)
        return turn - kHalfTurn;
    return turn <= -0.5 * kHalfTurn + kRounding ? turn + kHalfTurn : turn;
}

}  // namespace

ResultSheet::ResultSheet(const AcDbDatabase& drawing, const std::vector<const wchar_t*>& layers)
    : m_unitsPerMetre(1000.0 / UnitOf(drawing).millimetres.value_or(1.0)) {
    for (const wchar_t* const layer : layers) {
        m_change.emptiedLayers.emplace_back(layer);
        m_change.layers.push_back({layer});
    }
}

NewEntity& ResultSheet::Add(NewEntity::Kind kind, const wchar_t* layer, int color) {
    NewEntity& entity = m_change.entities.emplace_back();
    entity.kind = kind;
    entity.layer = layer;
    entity.colorIndex = color >= 1 && color < kColorByLayer ? color : kColorByLayer;
    return entity;
}

QcGePoint ResultSheet::InUnits(const QcGePoint& metres) const {
    return {metres.x * m_unitsPerMetre, metres.y * m_unitsPerMetre, metres.z * m_unitsPerMetre};
}

void ResultSheet::AddFace(const wchar_t* layer, const std::vector<QcGePoint>& corners, int color) {
    NewEntity& face = Add(NewEntity::Kind::Face, layer, color);
    for (const QcGePoint& corner : corners)
        face.points.push_back(PointOf(InUnits(corner)));
}

void ResultSheet::AddLine(const wchar_t* layer, const std::vector<QcGePoint>& points, bool isClosed,
                          const QcGePoint& outward, int color) {
    NewEntity& line = Add(NewEntity::Kind::Polyline, layer, color);
    line.isClosed = isClosed;
    QcGePoint extrusion = outward;
    const ObjectCoordinates axes = AxesOf(extrusion);
    line.extrusion = PointOf(extrusion);
    for (const QcGePoint& point : points) {
        line.points.push_back(PointOf(axes.FromWorld(InUnits(point))));
        line.points.back()[2] = line.points.front()[2];
    }
}

void ResultSheet::AddText(const wchar_t* layer, const Text& text) {
    NewEntity& entity = Add(NewEntity::Kind::Text, layer, text.color);
    QcGePoint extrusion = text.outward;
    const ObjectCoordinates axes = AxesOf(extrusion);
    entity.extrusion = PointOf(extrusion);
    entity.points.push_back(PointOf(axes.FromWorld(InUnits(text.middle))));
    entity.rotation = ReadableTurn(axes.FromWorld(text.along));
    entity.text = text.text;
    entity.height = text.height * m_unitsPerMetre;
    entity.isCentred = true;
}
