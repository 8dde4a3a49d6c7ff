// Projects the sun's directions of a day, as seen from the ground in the middle of the scene.
#include "workbench/view/SunPath.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "workbench/view/ViewSun.h"

namespace {

const QColor kHalo(255, 255, 255, 190);
const QColor kArc(222, 120, 0);
const QColor kDisc(255, 196, 0);
const QColor kInk(60, 40, 0);
constexpr double kDiscRadius = 9.0;
constexpr int kSteps = 24 * 12;  // every few minutes is round enough

// Light below, dark above: seen before every colour.
void Stroke(QPainter& painter, const QPainterPath& path, double width) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kHalo, width + 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setPen(QPen(kArc, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

bool IsUp(const ViewSun& sun, double trueSolarTime) {
    return SunInDrawing(sun.day, sun.north, trueSolarTime).direction.z > 0.0;
}

QcGePoint MiddleOf(const ViewBox& box) {
    return {box.least.x + (box.most.x - box.least.x) / 2.0, box.least.y + (box.most.y - box.least.y) / 2.0,
            box.least.z};
}

QcGePoint PointAt(const ViewBox& box, const ViewSun& sun, double trueSolarTime) {
    const double radius = (box.most - box.least).Length() / 2.0;
    const QcGeVector3d to = SunInDrawing(sun.day, sun.north, trueSolarTime).direction;
    const QcGePoint middle = MiddleOf(box);
    return {middle.x + to.x * radius, middle.y + to.y * radius, middle.z + to.z * radius};
}

QFont LabelFont(QFont font) {
    font.setPixelSize(12);
    font.setBold(true);
    return font;
}

// Hours from one time of the clock to another, whichever way is shorter.
double HoursBetween(double a, double b) {
    return std::abs(std::remainder(a - b, 24.0));
}

// Beside a point, first above it; none where all is taken.
std::optional<QRectF> FreeRoom(const QPointF& point, const QSizeF& size, const QRectF& within,
                               const std::vector<QRectF>& taken) {
    constexpr double kAway = 4.0;
    const double dx = size.width() / 2.0 + kAway;
    const double dy = size.height() / 2.0 + kAway;
    for (const double further : {1.0, 2.0})
        for (const QPointF& way :
             {QPointF(0, -dy), QPointF(dx, -dy), QPointF(-dx, -dy), QPointF(dx, 0), QPointF(-dx, 0), QPointF(0, dy)}) {
            QRectF room(QPointF(), size);
            room.moveCenter(point + way * further);
            if (within.contains(room) &&
                std::none_of(taken.begin(), taken.end(), [&](const QRectF& each) { return each.intersects(room); }))
                return room;
        }
    return {};
}

}  // namespace

std::vector<QcGePoint> SunPath::ArcAround(const ViewBox& box, const ViewSun& sun) {
    std::vector<QcGePoint> arc;
    for (int i = 0; i <= kSteps; ++i) {
        const double time = i * 24.0 / kSteps;
        if (IsUp(sun, time))
            arc.push_back(PointAt(box, sun, time));
    }
    return arc;
}

std::optional<ViewPixel> SunPath::PlaceOf(const ViewSun& sun, double trueSolarTime) const {
    return m_camera.Project(PointAt(m_box, sun, trueSolarTime));
}

std::vector<PathLabel> SunPath::LabelsOf(const ViewSun& sun, double scale, const QFont& font,
                                         const std::vector<QRectF>& taken) const {
    const QFontMetricsF metrics(LabelFont(font));
    std::vector<PathHour> hours = HoursOfPath(sun);
    std::stable_sort(hours.begin(), hours.end(), [&](const PathHour& a, const PathHour& b) {
        return HoursBetween(a.trueSolarTime, sun.trueSolarTime) < HoursBetween(b.trueSolarTime, sun.trueSolarTime);
    });
    std::vector<QRectF> full = taken;
    if (const auto disc = PlaceOf(sun, sun.trueSolarTime); disc && IsUp(sun, sun.trueSolarTime))
        full.emplace_back(disc->x / scale - kDiscRadius, disc->y / scale - kDiscRadius, 2 * kDiscRadius,
                          2 * kDiscRadius);
    const QRectF picture(0, 0, m_camera.GetWidth() / scale, m_camera.GetHeight() / scale);
    std::vector<PathLabel> labels;
    for (const PathHour& hour : hours) {
        const auto at = PlaceOf(sun, hour.trueSolarTime);
        if (!at)
            continue;
        const QSizeF size(metrics.horizontalAdvance(QString::number(hour.hour)), metrics.ascent());
        const QPointF place(at->x / scale, at->y / scale);
        std::optional<QRectF> room = FreeRoom(place, size, picture, full);
        if (!room && labels.empty() && picture.contains(place))
            room = QRectF(place - QPointF(size.width() / 2.0, size.height()), size);
        if (!room)
            continue;
        labels.push_back({hour.hour, *room});
        full.push_back(*room);
    }
    return labels;
}

void SunPath::Draw(QPainter& painter, const ViewSun& sun, double scale, const std::vector<QRectF>& taken) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawArc(painter, sun, scale);
    DrawDisc(painter, sun, scale);
    DrawHours(painter, sun, scale, taken);
    painter.restore();
}

void SunPath::DrawArc(QPainter& painter, const ViewSun& sun, double scale) const {
    QPainterPath path;
    bool isDrawing = false;
    for (int i = 0; i <= kSteps; ++i) {
        const double time = i * 24.0 / kSteps;
        const auto at = PlaceOf(sun, time);
        const bool isSeen = at && IsUp(sun, time);
        if (isSeen && isDrawing)
            path.lineTo(at->x / scale, at->y / scale);
        else if (isSeen)
            path.moveTo(at->x / scale, at->y / scale);
        isDrawing = isSeen;
    }
    Stroke(painter, path, 1.5);
}

void SunPath::DrawHours(QPainter& painter, const ViewSun& sun, double scale, const std::vector<QRectF>& taken) const {
    constexpr double kDot = 2.5;
    for (const PathHour& hour : HoursOfPath(sun)) {
        const auto at = PlaceOf(sun, hour.trueSolarTime);
        if (!at)
            continue;
        painter.setPen(QPen(kHalo, 1.0));
        painter.setBrush(kArc);
        painter.drawEllipse(QPointF(at->x / scale, at->y / scale), kDot, kDot);
    }
    const std::vector<PathLabel> labels = LabelsOf(sun, scale, painter.font(), taken);
    painter.setFont(LabelFont(painter.font()));
    for (const PathLabel& label : labels) {
        const QString text = QString::number(label.hour);
        painter.setPen(kHalo);
        for (const QPointF& away : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
            painter.drawText(label.room.translated(away), Qt::AlignCenter | Qt::TextDontClip, text);
        painter.setPen(kInk);
        painter.drawText(label.room, Qt::AlignCenter | Qt::TextDontClip, text);
    }
}

// With a line to where its light goes.
void SunPath::DrawDisc(QPainter& painter, const ViewSun& sun, double scale) const {
    if (!IsUp(sun, sun.trueSolarTime))
        return;
    const auto at = PlaceOf(sun, sun.trueSolarTime);
    const auto middle = m_camera.Project(MiddleOf(m_box));
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
