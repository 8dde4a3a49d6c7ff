// Lays the stretches of a day out in rows, and finds them by mouse and keys.
#include "workbench/panel/DayLine.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "workbench/view/WidgetText.h"

namespace {

using Kind = DayStretch::Kind;

constexpr Kind kKinds[] = {Kind::Lit, Kind::Counted, Kind::Dropped, Kind::Hidden, Kind::Lost};
constexpr int kRowCount = 5;
constexpr int kGap = 3;
constexpr int kRight = 12;  // room for half of the last hour's number

// To be told apart on light and on dark paper, also by who does not tell red from green: rows have their names.
QColor ColorOf(Kind kind) {
    switch (kind) {
        case Kind::Lit:
            return {245, 176, 32};
        case Kind::Counted:
            return {46, 158, 82};
        case Kind::Dropped:
            return {150, 150, 150};
        case Kind::Hidden:
            return {86, 108, 158};
        default:
            return {206, 62, 46};
    }
}

}  // namespace

DayLine::DayLine(QWidget* parent) : QWidget(parent) {
    setObjectName("DayLine");
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    Retranslate();
}

void DayLine::Retranslate() {
    setAccessibleName(ShownSay(L"一天的时间线"));
    TellReaders();
    update();
}

void DayLine::SetDay(std::vector<DayStretch> stretches, SunPeriod span) {
    m_stretches = std::move(stretches);
    m_span = span;
    m_current = -1;
    TellReaders();
    update();
}

void DayLine::SetTime(double hours) {
    m_time = hours;
    update();
}

void DayLine::TellReaders() {
    QStringList texts;
    if (m_current >= 0)
        texts << Shown(m_stretches[static_cast<std::size_t>(m_current)].text);
    else
        for (const DayStretch& stretch : m_stretches)
            texts << Shown(stretch.text);
    setAccessibleDescription(texts.join('\n'));
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

int DayLine::RowHeight() const {
    return fontMetrics().height() + 2;
}

int DayLine::LabelWidth() const {
    int width = 0;
    for (const Kind kind : kKinds)
        width = std::max(width, fontMetrics().horizontalAdvance(Shown(KindWord(kind))));
    return width + 2 * kGap;
}

QSize DayLine::sizeHint() const {
    return {300, RowHeight() * (kRowCount + 1) + 2 * kGap};
}

double DayLine::XOf(double hours) const {
    const int left = LabelWidth();
    const double share = (hours - m_span.start) / std::max(1e-9, m_span.end - m_span.start);
    return left + share * std::max(1, width() - left - kRight);
}

QRect DayLine::RectOf(std::size_t stretch) const {
    if (stretch >= m_stretches.size())
        return {};
    const DayStretch& shown = m_stretches[stretch];
    const int row = static_cast<int>(std::find(std::begin(kKinds), std::end(kKinds), shown.kind) - std::begin(kKinds));
    const int left = static_cast<int>(std::lround(XOf(std::max(shown.period.start, m_span.start))));
    const int right = static_cast<int>(std::lround(XOf(std::min(shown.period.end, m_span.end))));
    constexpr int kLeast = 3;  // a minute is to be seen, too
    return {left, kGap + row * RowHeight() + 1, std::max(kLeast, right - left), RowHeight() - 2};
}

int DayLine::At(const QPoint& place) const {
    for (std::size_t i = 0; i < m_stretches.size(); ++i)
        if (RectOf(i).contains(place))
            return static_cast<int>(i);
    return -1;
}

void DayLine::PaintHours(QPainter& painter) const {
    const int bottom = kGap + kRowCount * RowHeight();
    const int widest = fontMetrics().horizontalAdvance("00") + 2 * kGap;
    double free = -1e9;
    for (int hour = static_cast<int>(std::ceil(m_span.start)); hour <= m_span.end; ++hour) {
        const double x = XOf(hour);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(QPointF(x, kGap), QPointF(x, bottom));
        if (x < free)
            continue;
        free = x + widest;
        painter.setPen(palette().color(QPalette::WindowText));
        const QRectF room(x - widest / 2.0, bottom, widest, RowHeight());
        painter.drawText(room, Qt::AlignCenter, QString::number(hour));
    }
}

void DayLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int rows = RowHeight() * kRowCount;
    painter.fillRect(QRect(LabelWidth(), kGap, width() - LabelWidth() - kRight, rows), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::WindowText));
    for (int i = 0; i < kRowCount; ++i)
        painter.drawText(QRect(kGap, kGap + i * RowHeight(), LabelWidth(), RowHeight()),
                         Qt::AlignLeft | Qt::AlignVCenter, Shown(KindWord(kKinds[i])));
    if (m_span.end > m_span.start)
        PaintHours(painter);
    for (std::size_t i = 0; i < m_stretches.size(); ++i) {
        painter.fillRect(RectOf(i), ColorOf(m_stretches[i].kind));
        if (static_cast<int>(i) != m_current)
            continue;
        painter.setPen(QPen(palette().color(QPalette::WindowText), 2));
        painter.drawRect(RectOf(i));
    }
    if (m_span.end > m_span.start && m_time >= m_span.start && m_time <= m_span.end) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DashLine));
        painter.drawLine(QPointF(XOf(m_time), kGap), QPointF(XOf(m_time), kGap + rows));
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void DayLine::SetCurrent(int stretch) {
    m_current = stretch;
    TellReaders();
    update();
    if (m_onCurrent)
        m_onCurrent();
}

void DayLine::keyPressEvent(QKeyEvent* event) {
    const int last = static_cast<int>(m_stretches.size()) - 1;
    int to = 0;
    if (event->key() == Qt::Key_Right || event->key() == Qt::Key_Down)
        to = std::min(m_current + 1, last);
    else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Up)
        to = std::max(m_current - 1, 0);
    else if (event->key() == Qt::Key_End)
        to = last;
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) &&
             m_current >= 0)
        return AskForMiddle();
    else if (event->key() != Qt::Key_Home)
        return QWidget::keyPressEvent(event);
    if (last >= 0)
        SetCurrent(to);
}

void DayLine::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    SetCurrent(At(place));
    AskForTimeAt(place.x());
}

// The shortest stretches are drawn broader than they are.
void DayLine::AskForTimeAt(int x) {
    const double first = XOf(m_span.start);
    const double last = XOf(m_span.end);
    if (!m_onTime || m_span.end <= m_span.start || x < first || x > last)
        return;
    const double time = m_span.start + (x - first) / (last - first) * (m_span.end - m_span.start);
    if (m_current < 0)
        return m_onTime(time);
    const SunPeriod& period = m_stretches[static_cast<std::size_t>(m_current)].period;
    m_onTime(std::clamp(time, period.start, period.end));
}

void DayLine::AskForMiddle() {
    const SunPeriod& period = m_stretches[static_cast<std::size_t>(m_current)].period;
    if (m_onTime)
        m_onTime((period.start + period.end) / 2.0);
}

void DayLine::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

bool DayLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const int at = At(help->pos());
    if (at < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), Shown(m_stretches[static_cast<std::size_t>(at)].text), this);
    return true;
}
