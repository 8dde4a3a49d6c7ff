// Draws the compass: small, in parallel projection, with the camera's own axes.
#include "workbench/view/CompassRose.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "workbench/view/ViewCamera.h"
#include "workbench/view/WidgetText.h"

namespace {

const QColor kInk(60, 66, 74);
const QColor kRim(255, 255, 255, 200);
constexpr double kGap = 3.0;  // between ring and label

class Rose {
public:
    Rose(const ViewCamera& camera, const QPointF& center, double radius)
        : m_right(camera.GetRight()), m_up(camera.GetUp()), m_center(center), m_radius(radius) {}

    QPointF At(double east, double north, double above) const {
        const double x = east * m_right.x + north * m_right.y + above * m_right.z;
        const double y = east * m_up.x + north * m_up.y + above * m_up.z;
        return m_center + QPointF(x, -y) * m_radius;
    }
    QPolygonF Ring(double size) const {
        constexpr int kCorners = 48;
        QPolygonF ring;
        for (int i = 0; i < kCorners; ++i) {
            const double angle = 2.0 * std::numbers::pi * i / kCorners;
            ring << At(size * std::sin(angle), size * std::cos(angle), 0.0);
        }
        return ring;
    }

private:
    QcGeVector3d m_right, m_up;
    QPointF m_center;
    double m_radius;
};

void DrawNeedle(QPainter& painter, const Rose& rose) {
    constexpr double kTip = 0.8;
    constexpr double kWaist = 0.2;
    painter.setPen(QPen(kInk, 0.8));
    painter.setBrush(QColor(214, 48, 49));
    painter.drawPolygon(QPolygonF() << rose.At(-kWaist, 0, 0) << rose.At(0, kTip, 0) << rose.At(kWaist, 0, 0));
    painter.setBrush(QColor(245, 246, 248));
    painter.drawPolygon(QPolygonF() << rose.At(-kWaist, 0, 0) << rose.At(0, -kTip, 0) << rose.At(kWaist, 0, 0));
}

void DrawMarks(QPainter& painter, const Rose& rose) {
    painter.setPen(QPen(kInk, 1.0));
    painter.setBrush(kRim);
    painter.drawPolygon(rose.Ring(1.0));
    for (int i = 0; i < 12; ++i) {
        const double angle = std::numbers::pi * i / 6.0;
        const double inner = i % 3 == 0 ? 0.84 : 0.92;
        painter.drawLine(rose.At(inner * std::sin(angle), inner * std::cos(angle), 0.0),
                         rose.At(std::sin(angle), std::cos(angle), 0.0));
    }
}

QFont LabelFont(QFont font, double radius) {
    font.setPixelSize(std::max(8, static_cast<int>(radius * 0.42)));
    font.setBold(true);
    return font;
}

QString LabelText() {
    return ShownSay(L"北");
}

// With a rim of light, since the ground behind it may be dark.
void DrawLabel(QPainter& painter, const QRectF& room) {
    QPainterPath letters;
    const QFontMetricsF metrics(painter.font());
    letters.addText(QPointF(room.left(), room.top() + metrics.ascent()), painter.font(), LabelText());
    painter.strokePath(letters, QPen(kRim, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, kInk);
}

// North up and so on as the world has it, whatever the drawing's axes.
ViewCamera TurnedBy(ViewCamera camera, double north) {
    if (north != 0.0)
        camera.Orbit(north, 0.0);
    return camera;
}

// Seen on its edge the ring would say nothing.
ViewCamera LiftedAboveTheEdge(ViewCamera camera) {
    constexpr double kFlattest = 15.0;
    if (std::abs(camera.GetAltitude()) < kFlattest)
        camera.Look(camera.GetAzimuth(), camera.GetAltitude() < 0.0 ? -kFlattest : kFlattest);
    return camera;
}

}  // namespace

void DrawCompassRose(QPainter& painter, const ViewCamera& camera, double north, const QPointF& center, double radius) {
    const Rose rose(LiftedAboveTheEdge(TurnedBy(camera, north)), center, radius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMarks(painter, rose);
    DrawNeedle(painter, rose);
    painter.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(rose.At(0, 0, 0), rose.At(0, 0, 0.38));
    painter.setFont(LabelFont(painter.font(), radius));
    const QFontMetricsF metrics(painter.font());
    const QSizeF size(metrics.horizontalAdvance(LabelText()), metrics.height());
    // Just outside the ring, however flat that is, and however wide the word.
    const QPointF toNorth = rose.At(0, 1, 0) - center;
    const double length = std::hypot(toNorth.x(), toNorth.y());
    const QPointF way = toNorth / length;
    const double beyond = kGap + std::abs(way.x()) * size.width() / 2.0 + std::abs(way.y()) * size.height() / 2.0;
    const QPointF middle = center + way * (length + beyond);
    DrawLabel(painter, QRectF(middle - QPointF(size.width(), size.height()) / 2.0, size));
    painter.restore();
}

QSizeF ReachOfCompassRose(const QFont& font, double radius) {
    const QFontMetricsF metrics(LabelFont(font, radius));
    const double around = radius + kGap + kGap;  // the second one for strokes and the rim
    return {around + metrics.horizontalAdvance(LabelText()), around + metrics.height()};
}
