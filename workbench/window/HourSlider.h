// A slider over the minutes of a day, with the hours below it.
// Why: docs/decisions/workbench.md
#pragma once

#include <QSlider>
#include <optional>
#include <vector>

#include "analysis/SunPeriod.h"

// A step is a minute of the clock that is shown. A click beside the handle goes there, and may be dragged on. The hours
// have a number each, or each second, third, fourth, sixth or twelfth one where there is less room. A stretch of the
// day can be marked between the slider and the numbers.
class HourSlider : public QSlider {
public:
    explicit HourSlider(QWidget* parent);

    // Hours of the clock that is shown, from any midnight on; none for no mark.
    void SetMark(const std::optional<SunPeriod>& mark);

    // The hours that have a number at the width that it has.
    std::vector<int> GetNumberedHours() const;
    QSize sizeHint() const override;

protected:
    void initStyleOption(QStyleOptionSlider* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    // Where the middle of the handle is at a minute.
    double XOf(double minute) const;
    int MinuteAt(double x) const;
    QRect HandleRect() const;
    int BelowSlider() const;
    void PaintMark(QPainter& painter) const;
    void PaintNumbers(QPainter& painter) const;

    std::optional<SunPeriod> m_mark;
};
