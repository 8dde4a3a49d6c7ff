// Joins the time line, the moment and what is told of both.
#include "workbench/panel/WindowDayView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <QVBoxLayout>
#include <cmath>

#include "facts/Angles.h"
#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/CompassWords.h"
#include "workbench/panel/DayLine.h"
#include "workbench/panel/SteadyLabel.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr double kSecondsPerHour = 3600.0;

void AddText(QVBoxLayout& column, QLabel& label, const char* name) {
    label.setObjectName(name);
    label.setWordWrap(true);
    label.setTextFormat(Qt::PlainText);
    label.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column.addWidget(&label);
}

}  // namespace

WindowDayView::WindowDayView(QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    m_title = new SteadyLabel(this, 1);
    AddText(*column, *m_title, "WindowTitle");
    m_line = new DayLine(this);
    column->addWidget(m_line);
    m_stretch = new SteadyLabel(this, 0);  // few ask for stretches: its room comes with the first one
    AddText(*column, *m_stretch, "StretchText");
    auto* row = new QHBoxLayout;
    m_timeLabel = new QLabel(this);
    m_time = new QTimeEdit(QTime(12, 0), this);
    m_time->setObjectName("Moment");
    m_time->setDisplayFormat("HH:mm");
    m_timeLabel->setBuddy(m_time);
    row->addWidget(m_timeLabel);
    row->addWidget(m_time);
    row->addStretch(1);
    column->addLayout(row);
    constexpr int kUsualLines = 2;
    m_momentText = new SteadyLabel(this, kUsualLines);
    AddText(*column, *m_momentText, "MomentText");
    m_momentText->setTextFormat(Qt::RichText);
    m_momentText->setTextInteractionFlags(Qt::TextBrowserInteraction);
    m_otherDay = new QLabel(this);
    AddText(*column, *m_otherDay, "OtherDay");
    m_line->m_onCurrent = [this] { ShowTexts(); };
    m_line->m_onTime = [this](double hours) { TakeTime(hours); };
    connect(m_time, &QTimeEdit::timeChanged, this,
            [this](QTime time) { TakeTime(QTime(0, 0).secsTo(time) / kSecondsPerHour); });
    connect(m_momentText, &QLabel::linkActivated, this, [this](const QString& link) {
        if (m_onEntity)
            m_onEntity(link.toULongLong(nullptr, 16));
    });
    Retranslate();
}

void WindowDayView::Retranslate() {
    m_timeLabel->setText(ShownSay(L"太阳时刻(&T)"));
    m_time->setAccessibleName(ShownSay(L"真太阳时"));
    m_time->setToolTip(ShownSay(L"真太阳时：看这时谁遮住太阳"));
    m_momentText->setAccessibleDescription(ShownSay(L"这时的太阳"));
    m_line->Retranslate();
    ShowTexts();
    ShowMoment();
    ShowOtherDay();
}

void WindowDayView::SetWindow(const AnalysisReport& report, std::size_t window, bool isWithProject) {
    const WindowResult& shown = report.answer.windows[window];
    const bool isBefore = !isWithProject && shown.before;
    m_name = WindowLabel(shown);
    m_isTold = IsAnalysed(shown);
    if (shown.facing)
        m_name += SayFormat(L"，朝%s", CompassWord(*shown.facing));
    const double facing = shown.facing.value_or(0.0) * kRadiansPerDegree;
    SetSun(report.request, report.answer, {std::cos(facing), std::sin(facing), 0.0});
    if (isBefore)
        SetHours(*shown.before, {});
    else
        SetHours(shown, shown.lost);
}

void WindowDayView::SetSpot(const CString& title, const SpotRequest& request, const SpotAnswer& answer) {
    m_name = title;
    m_isTold = true;
    const double north = request.north * kRadiansPerDegree;
    const QcGeVector3d& outward = request.outward;
    SetSun(request, answer,
           {outward.x * std::cos(north) + outward.y * std::sin(north),
            outward.y * std::cos(north) - outward.x * std::sin(north), outward.z});
    SetHours(answer.hours, {});
}

void WindowDayView::SetSun(const DayRequest& request, const DayAnswer& answer, const SunDirection& outward) {
    m_day = request.terms.day;
    m_offset = answer.beijingOffset;
    m_sun = {ComputeSunDay(request.terms, *request.settings.place), answer.span, request.leastAltitude.value_or(0.0),
             outward};
}

void WindowDayView::SetHours(WindowHours hours, const std::vector<HiddenPeriod>& lost) {
    m_hours = std::move(hours);
    m_line->SetDay(StretchesOf(m_hours, lost, m_offset, m_nameOf), m_sun.span);
    m_momentText->SetChoices(TextsOfTheDay());
    m_stretch->SetChoices({});  // those of this day come with the first one that is pointed at
    ShowTexts();
    ShowMoment();
    ShowOtherDay();
}

void WindowDayView::Clear() {
    m_name.Empty();
    m_line->SetDay({}, {});
    m_momentText->SetChoices({});
    m_stretch->SetChoices({});
    ShowTexts();
    ShowMoment();
    ShowOtherDay();
}

void WindowDayView::SetAnswerDay(const std::optional<CalendarDay>& day) {
    m_answerDay = day;
    ShowOtherDay();
}

void WindowDayView::SetTime(double hours) {
    m_moment = hours;
    const QSignalBlocker quiet(m_time);
    m_time->setTime(QTime(0, 0).addSecs(static_cast<int>(std::lround(hours * kSecondsPerHour))));
    ShowMoment();
}

void WindowDayView::TakeTime(double hours) {
    SetTime(hours);
    if (m_onTime)
        m_onTime(hours);
}

void WindowDayView::SetSeenDay(const std::optional<CalendarDay>& day) {
    m_seenDay = day;
    ShowOtherDay();
}

// The same moment of two days is not the same sun, and neither are the shadows in the view those of the table.
void WindowDayView::ShowOtherDay() {
    const std::optional<CalendarDay> shown = m_name.IsEmpty() ? m_answerDay : m_day;
    const bool isOther = m_seenDay && shown && *m_seenDay != *shown;
    m_otherDay->setVisible(isOther);
    m_otherDay->setText(isOther ? Shown(SayFormat(L"这里是 %s 的结果，视图里的太阳是 %s 的", FromUtf8(IsoDay(*shown)),
                                                  FromUtf8(IsoDay(*m_seenDay))))
                                : QString());
}

void WindowDayView::ShowTexts() {
    const FieldWords words;
    if (m_name.IsEmpty()) {
        m_title->setText(ShownSay(L"在表里或视图里选一个窗，或点击一个面，看它的一天"));
        m_stretch->hide();
        return;
    }
    CString title = m_name;
    if (m_isTold)
        title += Say(L"，") + DurationText(m_hours.judged);
    if (m_hours.passes)
        title += Say(L"，") + VerdictWord(m_hours.passes);
    for (const WindowNote note : m_hours.notes)
        title += L"\n" + NoteWord(note);
    m_title->setText(Shown(title));
    const int current = m_line->GetCurrent();
    if (current < 0)
        return m_stretch->hide();
    QStringList choices;
    for (const DayStretch& stretch : m_line->GetStretches())
        choices << Shown(stretch.text);
    m_stretch->SetChoices(choices);
    m_stretch->setText(choices[current]);
    m_stretch->show();
}

void WindowDayView::ShowMoment() {
    const double time = m_moment;
    m_line->SetTime(time);
    // Without a word in it it would only stop who goes through the window by Tab.
    const bool hasHours = !m_name.IsEmpty() && m_isTold;
    m_momentText->setVisible(hasHours);
    if (!hasHours)
        return m_momentText->clear();
    m_momentText->setText(TextAt(SunAt(m_hours, m_sun, time), time));
}

QString WindowDayView::TextAt(const SunThen& then, double time) const {
    QString text = Shown(SayFormat(L"北京时间 %s：", ClockText(time + m_offset))).toHtmlEscaped();
    text += Shown(SunThenText(then)).toHtmlEscaped();
    for (std::size_t i = 0; i < then.by.size(); ++i) {
        const QString name = Shown(m_nameOf(then.by[i])).toHtmlEscaped();
        text += i == 0 ? " " : ", ";
        text += then.by[i] == 0 ? name : QString("<a href=\"%1\">%2</a>").arg(then.by[i], 0, 16).arg(name);
    }
    return text;
}

// All that the moment may be told to be, so that its text has the room from the beginning.
QStringList WindowDayView::TextsOfTheDay() const {
    QStringList texts;
    using State = SunThen::State;
    for (const State state : {State::Lit, State::Outside, State::Down, State::Low, State::Behind, State::Invalid})
        texts << TextAt({state, {}, {}}, 0.0);
    for (const DroppedPeriod& dropped : m_hours.dropped)
        texts << TextAt({State::Dropped, {}, dropped.reason}, 0.0);
    for (const HiddenPeriod& hidden : m_hours.hidden)
        texts << TextAt({State::Hidden, hidden.by, {}}, 0.0);
    return texts;
}
