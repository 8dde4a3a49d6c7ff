// The day of one window, or of a spot: what it is, its time line, and what hides the sun at a moment.
#pragma once

#include <QWidget>
#include <functional>

#include "analysis/SpotAnalysis.h"
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
    // A spot that was clicked, and what is to be said of it.
    void SetSpot(const CString& title, const SpotAnswer& answer);
    // No window is chosen, and no spot.
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
    void SetHours(WindowHours hours, const std::vector<HiddenPeriod>& lost, const DayAnswer& answer);

    CString m_name;         // of what is shown; empty for nothing
    bool m_isTold = false;  // whether its sun could be told
    WindowHours m_hours;
    double m_offset = 0.0;
    QLabel* m_title;
    DayLine* m_line;
    QLabel* m_stretch;
    QLabel* m_timeLabel;
    QTimeEdit* m_time;
    QLabel* m_moment;
};
