// The day of one window: what it is, its time line, and what hides the sun at a moment.
#pragma once

#include <QWidget>
#include <functional>

#include "workbench/commands/AnalysisReport.h"
#include "workbench/panel/DayStretches.h"

class DayLine;
class QLabel;
class QTimeEdit;

class WindowDayView : public QWidget {
public:
    explicit WindowDayView(QWidget* parent);

    // What the lists of the hours name entities by.
    void SetNames(NameOfEntity nameOf) { m_nameOf = std::move(nameOf); }
    // A window of a report, with the project or as it was before; both are copied.
    void SetWindow(const AnalysisReport& report, std::size_t window, bool isWithProject);
    // No window is chosen.
    void Clear();
    void Retranslate();

    // The moment of the day, hours of true solar time.
    double GetTime() const;
    void SetTime(double hours);

    // Receives the handle of an entity that hides the sun and was asked for.
    std::function<void(std::uint64_t)> m_onEntity;

private:
    void ShowTexts();
    void ShowMoment();

    NameOfEntity m_nameOf;
    bool m_hasWindow = false;
    WindowResult m_window;  // its hours are those that are shown
    SunPeriod m_span;
    double m_offset = 0.0;
    QLabel* m_title;
    DayLine* m_line;
    QLabel* m_stretch;
    QLabel* m_timeLabel;
    QTimeEdit* m_time;
    QLabel* m_moment;
};
