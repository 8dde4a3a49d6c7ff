// Projects the sun's directions of a day, as seen from the ground in the middle of the scene.
#include "workbench/view/SunPath.h"

#include <QPainter>
#include <QPainterPath>

#include "workbench/view/ViewSun.h"

namespace {

const QColor kHalo(255, 255, 255, 190);
const QColor kArc(222, 120, 0);
const QColor kDisc(255, 196, 0);
const QColor kInk(60, 40, 0);
constexpr double kDiscRadius = 9.0;

// Light below, dark above: seen before every colour.
void Stroke(QPainter& painter, const QPainterPath& path, double width) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kHalo, width + 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setPen(QPen(kArc, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

}  // namespace

QcGePoint SunPath::GetMiddle() const {
    return {m_box.least.x + (m_box.most.x - m_box.least.x) / 2.0, m_box.least.y + (m_box.most.y - m_box.least.y) / 2.0,
            m_box.least.z};
}

std::optional<ViewPixel> SunPath::PlaceOf(const ViewSun& sun, double trueSolarTime) const {
    const double radius = (m_box.most - m_box.least).Length() / 2.0;
    const QcGeVector3d to = SunInDrawing(sun.day, sun.north, trueSolarTime).direction;
    const QcGePoint middle = GetMiddle();
    return m_camera.Project({middle.x + to.x * radius, middle.y + to.y * radius, middle.z + to.z * radius});
}

void SunPath::Draw(QPainter& painter, const ViewSun& sun, double scale) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawArc(painter, sun, scale);
    DrawDisc(painter, sun, scale);
    DrawHours(painter, sun, scale);
    painter.restore();
}

// Every few minutes is round enough.
void SunPath::DrawArc(QPainter& painter, const ViewSun& sun, double scale) const {
    constexpr int kSteps = 24 * 12;
    QPainterPath path;
    bool isDrawing = false;
    for (int i = 0; i <= kSteps; ++i) {
        const double time = i * 24.0 / kSteps;
        const auto at = PlaceOf(sun, time);
        const bool isUp = at && SunInDrawing(sun.day, sun.north, time).direction.z > 0.0;
        if (isUp && isDrawing)
            path.lineTo(at->x / scale, at->y / scale);
        else if (isUp)
            path.moveTo(at->x / scale, at->y / scale);
        isDrawing = isUp;
    }
    Stroke(painter, path, 1.5);
}

void SunPath::DrawHours(QPainter& painter, const ViewSun& sun, double scale) const {
    constexpr double kDot = 2.5;
    constexpr double kAbove = 17.0;  // the disc
    constexpr double kHalf = 20.0;
    constexpr double kNear = 16.0;  // closer ones would be written over each other
    QFont small = painter.font();
    small.setPixelSize(12);
    small.setBold(true);
    painter.setFont(small);
    QPointF last(-1e9, -1e9);
    for (const PathHour& hour : HoursOfPath(sun)) {
        const auto at = PlaceOf(sun, hour.trueSolarTime);
        if (!at)
            continue;
        const QPointF place(at->x / scale, at->y / scale);
        painter.setPen(QPen(kHalo, 1.0));
        painter.setBrush(kArc);
        painter.drawEllipse(place, kDot, kDot);
        if (QPointF(place - last).manhattanLength() < kNear)
            continue;
        last = place;
        const QRectF room(place.x() - kHalf, place.y() - kAbove - kHalf, 2 * kHalf, 2 * kHalf);
        painter.setPen(kHalo);
        for (const QPointF& away : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
            painter.drawText(room.translated(away), Qt::AlignCenter, QString::number(hour.hour));
        painter.setPen(kInk);
        painter.drawText(room, Qt::AlignCenter, QString::number(hour.hour));
    }
}

// With a line to where its light goes.
void SunPath::DrawDisc(QPainter& painter, const ViewSun& sun, double scale) const {
    if (SunInDrawing(sun.day, sun.north, sun.trueSolarTime).direction.z <= 0.0)
        return;
    const auto at = PlaceOf(sun, sun.trueSolarTime);
    const auto middle = m_camera.Project(GetMiddle());
    if (!at)
        return;
    const QPointF place(at->x / scale, at->y / scale);
    if (middle) {
        painter.setPen(QPen(kArc, 1.0, Qt::DashLine));
        painter.drawLine(place, QPointF(middle->x / scale, middle->y / scale));
    }
    painter.setPen(QPen(kArc, 2.0));
    painter.setBrush(kDisc);
    painter.drawEllipse(place, kDiscRadius, kDiscRadius);
}
