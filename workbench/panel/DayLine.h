// A day as a time line: a row for each kind of stretch, with the hours below.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "workbench/panel/DayStretches.h"

// What a stretch is stands in its tooltip. The arrow keys, Home and End go from one to the next; which one it is is
// marked, and told to screen readers and to m_onCurrent. A click asks for the moment that it is at, Enter and Space for
// the middle of the marked stretch.
class DayLine : public QWidget {
public:
    explicit DayLine(QWidget* parent);

    // Hours of the span that is shown; none are shown where it has no length.
    void SetDay(std::vector<DayStretch> stretches, SunPeriod span);
    // The moment that is marked, in hours.
    void SetTime(double hours);
    void Retranslate();

    const std::vector<DayStretch>& GetStretches() const { return m_stretches; }
    // Where a stretch is drawn; empty for one beyond the end.
    QRect RectOf(std::size_t stretch) const;
    int GetCurrent() const { return m_current; }  // -1 for none

    std::function<void()> m_onCurrent;
    std::function<void(double hours)> m_onTime;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {140, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    int RowHeight() const;
    int LabelWidth() const;
    double XOf(double hours) const;
    int At(const QPoint& place) const;
    void AskForTimeAt(int x);
    void AskForMiddle();
    void SetCurrent(int stretch);
    void TellReaders();
    void PaintHours(QPainter& painter) const;

    std::vector<DayStretch> m_stretches;
    SunPeriod m_span;
    double m_time = 12.0;
    int m_current = -1;
};
