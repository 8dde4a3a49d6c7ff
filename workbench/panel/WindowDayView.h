// The day of one window, or of a spot: what it is, its time line, and what hides the sun at a moment.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "analysis/SpotAnalysis.h"
#include "calendar/CalendarDay.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/panel/DayStretches.h"

class DayLine;
class QLabel;
class QTimeEdit;
class SteadyLabel;

class WindowDayView : public QWidget {
public:
    explicit WindowDayView(QWidget* parent);

    // What the lists of the hours name entities by.
    void SetNames(NameOfEntity nameOf) { m_nameOf = std::move(nameOf); }
    // A window of a report, with the project or as it was before; both are copied.
    void SetWindow(const AnalysisReport& report, std::size_t window, bool isWithProject);
    // A spot that was clicked, and what is to be said of it.
    void SetSpot(const CString& title, const SpotRequest& request, const SpotAnswer& answer);
    // No window is chosen, and no spot.
    void Clear();
    // The day of the answer that there is, chosen windows or not; none without one.
    void SetAnswerDay(const std::optional<CalendarDay>& day);
    void Retranslate();

    // The moment of the day, hours of true solar time, from 0 to less than 24.
    double GetTime() const { return m_moment; }
    void SetTime(double hours);
    // The day whose sun the view shows at that moment; none while it shows none.
    void SetSeenDay(const std::optional<CalendarDay>& day);

    // Somebody has chosen another moment here. It is shown already.
    std::function<void(double hours)> m_onTime;
    // Receives the handle of an entity that hides the sun and was asked for.
    std::function<void(std::uint64_t)> m_onEntity;

private:
    void ShowTexts();
    void ShowMoment();
    void ShowOtherDay();
    void TakeTime(double hours);
    QString TextAt(const SunThen& then, double time) const;
    QStringList TextsOfTheDay() const;
    void SetHours(WindowHours hours, const std::vector<HiddenPeriod>& lost);
    void SetSun(const DayRequest& request, const DayAnswer& answer, const SunDirection& outward);

    NameOfEntity m_nameOf;
    CString m_name;         // of what is shown; empty for nothing
    bool m_isTold = false;  // whether its sun could be told
    WindowHours m_hours;
    SeenSun m_sun;
    double m_offset = 0.0;
    double m_moment = 12.0;
    CalendarDay m_day = {};  // of what is shown
    std::optional<CalendarDay> m_answerDay;
    std::optional<CalendarDay> m_seenDay;
    SteadyLabel* m_title;
    DayLine* m_line;
    SteadyLabel* m_stretch;
    QLabel* m_timeLabel;
    QTimeEdit* m_time;
    SteadyLabel* m_momentText;
    QLabel* m_otherDay;
};
