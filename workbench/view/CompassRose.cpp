// Draws the compass: small, in parallel projection, with the camera's own axes.
#include "workbench/view/CompassRose.h"

#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "workbench/view/ViewCamera.h"
#include "workbench/view/WidgetText.h"

namespace {

const QColor kInk(60, 66, 74);

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
    painter.setBrush(QColor(255, 255, 255, 150));
    painter.drawPolygon(rose.Ring(1.0));
    for (int i = 0; i < 12; ++i) {
        const double angle = std::numbers::pi * i / 6.0;
        const double inner = i % 3 == 0 ? 0.84 : 0.92;
        painter.drawLine(rose.At(inner * std::sin(angle), inner * std::cos(angle), 0.0),
                         rose.At(std::sin(angle), std::cos(angle), 0.0));
    }
}

void DrawLabel(QPainter& painter, const QPointF& at, const wchar_t* text) {
    constexpr double kHalf = 40.0;
    painter.drawText(QRectF(at.x() - kHalf, at.y() - kHalf, 2 * kHalf, 2 * kHalf), Qt::AlignCenter | Qt::TextDontClip,
                     ShownSay(text));
}

// Seen on its edge the ring would say nothing.
ViewCamera LiftedAboveTheEdge(ViewCamera camera) {
    constexpr double kFlattest = 15.0;
    if (std::abs(camera.GetAltitude()) < kFlattest)
        camera.Look(camera.GetAzimuth(), camera.GetAltitude() < 0.0 ? -kFlattest : kFlattest);
    return camera;
}

}  // namespace

void DrawCompassRose(QPainter& painter, const ViewCamera& camera, const QPointF& center, double radius) {
    const Rose rose(LiftedAboveTheEdge(camera), center, radius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMarks(painter, rose);
    DrawNeedle(painter, rose);
    painter.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(rose.At(0, 0, 0), rose.At(0, 0, 0.38));
    QFont font = painter.font();
    font.setPixelSize(std::max(8, static_cast<int>(radius * 0.42)));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(kInk);
    // Just outside the ring, however flat that is.
    const QPointF toNorth = rose.At(0, 1, 0) - center;
    const double length = std::hypot(toNorth.x(), toNorth.y());
    DrawLabel(painter, center + toNorth * (1.0 + 0.36 * radius / length), L"北");
    painter.restore();
}
