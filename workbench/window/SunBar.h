// The bar below the view that says when and where the sun of the view shines: the day, a slider over it, and a clock.
// Why: docs/decisions/workbench.md
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "calendar/CalendarDay.h"
#include "facts/Settings.h"
#include "workbench/view/ViewSun.h"

struct DayTerms;
class ElidedLabel;
class HourSlider;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

// The place is that of the settings in force; the day is theirs until another one is chosen here, which leaves the
// settings as they are. It begins at true solar noon, and with the sun off: then one row of it is seen. Whoever moves
// the slider, plays, or chooses a day wants to see it, so that this switches it on.
//
// The slider has a step for each minute of the clock that is shown; its arrow keys go by one, Page Up and Page Down by
// thirty, Home and End to the day's ends, and Space plays and pauses. The span that the standard in force analyses is
// marked on it. Playing goes from sunrise to sunset, over and over; where the sun does not rise or set, around the
// clock.
class SunBar : public QWidget {
public:
    explicit SunBar(QWidget* parent);

    // Takes place and day of the settings in force. A day that was chosen here stays as long as theirs does.
    void TakeSettings();
    // Degrees that true north lies counter-clockwise of the drawing's y axis.
    void SetNorth(double north);
    // Whether times are Beijing's instead of the sun's own. The moment stays.
    void SetBeijing(bool isBeijing);
    bool IsBeijing() const;
    void SetOn(bool isOn);
    // Somebody wants the sun of a moment: true solar time, any, since the day goes round.
    void ShineAt(double trueSolarTime);
    CalendarDay GetDay() const;
    bool IsOn() const;
    void Retranslate();

    // None while the sun is off, and where the settings have no usable place or day, which the bar says.
    std::optional<ViewSun> GetSun() const { return IsOn() ? m_sun : std::nullopt; }
    // Called whenever that has changed.
    std::function<void()> m_onSun;
    // What a picture says of its place and moment; nothing where there is none.
    std::vector<QString> GetStamp() const;
    // Called when somebody has chosen the other clock, or switched the sun on or off.
    std::function<void()> m_onChoice;

protected:
    // Nothing plays that is not seen.
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Build();
    void Join();
    void TakeSwitch();
    void SetPlaying(bool isPlaying);
    void Advance();
    // Any time will do: the sun's day goes round.
    void SetMoment(double trueSolarTime);
    void TakeSlider();
    // Computes the sun of place, day and moment, and shows it.
    void Change();
    void ShowTexts();
    void ShowPlace();
    void MarkSpan(const DayTerms& terms);
    CString FindFault() const;

    Settings m_settings;
    CalendarDay m_settingsDay = {};
    double m_north = 0.0;
    double m_moment = 12.0;  // true solar time, from 0 to less than 24
    CString m_fault;         // why there is no sun
    std::optional<ViewSun> m_sun;
    QTimer m_clock;                 // runs while the day plays
    std::optional<ViewSun> m_told;  // what m_onSun was last called for
    QCheckBox* m_switch = nullptr;
    QPushButton* m_play = nullptr;
    HourSlider* m_slider = nullptr;
    QLabel* m_time = nullptr;
    QWidget* m_second;  // row
    QComboBox* m_base = nullptr;
    QDateEdit* m_date = nullptr;
    ElidedLabel* m_place = nullptr;
    QLabel* m_about = nullptr;
};
