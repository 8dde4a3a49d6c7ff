// Leaves the slider itself to the style, in the upper part of the widget.
#include "workbench/window/HourSlider.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

#include "facts/ClockText.h"

namespace {

constexpr int kHours = 24;
constexpr double kLastMinute = kMinutesPerDay - 1;
constexpr int kMarkHeight = 4;
// As the line of a window's day has what counts.
const QColor kMark(46, 158, 82);

}  // namespace

HourSlider::HourSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, kMinutesPerDay - 1);
    setTickPosition(TicksBelow);
    setTickInterval(kMinutesPerHour);
}

void HourSlider::SetMark(const std::optional<SunPeriod>& mark) {
    m_mark = mark;
    update();
}

int HourSlider::BelowSlider() const {
    return kMarkHeight + fontMetrics().height();
}

QSize HourSlider::sizeHint() const {
    return QSlider::sizeHint() + QSize(0, BelowSlider());
}

void HourSlider::initStyleOption(QStyleOptionSlider* option) const {
    QSlider::initStyleOption(option);
    option->rect.setHeight(std::max(1, height() - BelowSlider()));
}

QRect HourSlider::HandleRect() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

double HourSlider::XOf(double minute) const {
    const int handle = HandleRect().width();
    return handle / 2.0 + minute / kLastMinute * std::max(1, width() - handle);
}

int HourSlider::MinuteAt(double x) const {
    const int handle = HandleRect().width();
    const double share = (x - handle / 2.0) / std::max(1, width() - handle);
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kLastMinute));
}

std::vector<int> HourSlider::GetNumberedHours() const {
    constexpr int kSteps[] = {1, 2, 3, 4, 6};
    const double room = fontMetrics().horizontalAdvance("00 ");
    const double hour = XOf(kMinutesPerHour) - XOf(0.0);
    int step = kHours / 2;
    for (const int each : kSteps)
        if (each * hour >= room) {
            step = each;
            break;
        }
    std::vector<int> hours;
    for (int each = 0; each < kHours; each += step)
        hours.push_back(each);
    return hours;
}

// A stretch may begin before midnight, or end after the next one.
void HourSlider::PaintMark(QPainter& painter) const {
    const double top = height() - BelowSlider();
    for (const double away : {-kHours, 0, kHours}) {
        const double start = std::max(0.0, (m_mark->start + away) * kMinutesPerHour);
        const double end = std::min(kLastMinute, (m_mark->end + away) * kMinutesPerHour);
        if (start < end)
            painter.fillRect(QRectF(QPointF(XOf(start), top), QPointF(XOf(end), top + kMarkHeight)), kMark);
    }
}

void HourSlider::PaintNumbers(QPainter& painter) const {
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    const double top = height() - BelowSlider() + kMarkHeight;
    for (const int hour : GetNumberedHours()) {
        const QString text = QString::number(hour);
        const double wide = fontMetrics().horizontalAdvance(text);
        const double left = std::clamp(XOf(hour * kMinutesPerHour) - wide / 2.0, 0.0, std::max(0.0, width() - wide));
        painter.drawText(QPointF(left, top + fontMetrics().ascent()), text);
    }
}

void HourSlider::paintEvent(QPaintEvent* event) {
    QSlider::paintEvent(event);
    QPainter painter(this);
    if (m_mark && isEnabled())
        PaintMark(painter);
    PaintNumbers(painter);
}

// The handle comes to the pointer, and takes the press as its own, so that it can be dragged on.
void HourSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || HandleRect().contains(event->position().toPoint()))
        return QSlider::mousePressEvent(event);
    setValue(MinuteAt(event->position().x()));
    const QPointF held = QRectF(HandleRect()).center();
    QMouseEvent press(event->type(), held, mapToGlobal(held), event->button(), event->buttons(), event->modifiers());
    QSlider::mousePressEvent(&press);
    event->accept();
}
