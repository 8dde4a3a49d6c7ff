// Joins slider, calendar and clock to one moment.
#include "workbench/window/SunBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "analysis/DayRequest.h"
#include "analysis/ShadingScene.h"
#include "facts/ClockText.h"
#include "facts/DayTerms.h"
#include "facts/DayText.h"
#include "facts/SunPosition.h"
#include "platform/base/Language.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/view/ElidedLabel.h"
#include "workbench/view/PlaceWords.h"
#include "workbench/view/SunStamp.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/HourSlider.h"

namespace {

constexpr double kHoursPerDay = 24.0;
constexpr double kPlayedHours = 2.0 / kMinutesPerHour;  // with each tick
constexpr int kTickMilliseconds = 50;
constexpr int kPageMinutes = 30;

double Wrapped(double hours) {
    const double rest = std::fmod(hours, kHoursPerDay);
    return rest < 0.0 ? rest + kHoursPerDay : rest;
}

}  // namespace

SunBar::SunBar(QWidget* parent) : QWidget(parent) {
    setObjectName("SunBar");
    m_clock.setInterval(kTickMilliseconds);
    Build();
    Join();
    Retranslate();
    TakeSettings();
}

void SunBar::Build() {
    m_switch = new QCheckBox(this);
    m_switch->setObjectName("SunSwitch");
    m_play = new QPushButton(this);
    m_play->setObjectName("SunPlay");
    m_play->setCheckable(true);
    m_slider = new HourSlider(this);
    m_slider->setObjectName("SunSlider");
    m_slider->setPageStep(kPageMinutes);
    constexpr int kShortest = 144;  // a pixel for ten minutes
    m_slider->setMinimumWidth(kShortest);
    m_slider->installEventFilter(this);
    m_time = new QLabel(this);
    m_time->setObjectName("SunTime");
    m_base = new QComboBox(this);
    m_base->setObjectName("SunBase");
    m_base->addItems({QString(), QString()});
    m_date = new QDateEdit(this);
    m_date->setObjectName("SunDate");
    m_date->setTimeSpec(Qt::UTC);
    m_date->setCalendarPopup(true);
    m_date->setDisplayFormat("yyyy-MM-dd");
    m_date->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    constexpr int kMore = 8;  // it measures itself without room for the cursor
    m_date->setMinimumWidth(m_date->sizeHint().width() + kMore);
    m_date->setKeyboardTracking(false);  // a year in the making is no date that anybody means
    m_place = new ElidedLabel(this);
    m_place->setObjectName("SunPlace");
    m_about = new QLabel(this);
    m_about->setObjectName("SunAbout");
    m_about->setTextFormat(Qt::PlainText);
    m_about->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* told = new QVBoxLayout;
    told->setSpacing(0);
    told->addWidget(m_place);
    told->addWidget(m_about);
    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(2, 2, 2, 2);
    rows->setHorizontalSpacing(3);  // the widest row of a narrow window
    rows->addWidget(m_switch, 0, 0);
    rows->addWidget(m_play, 0, 1);
    rows->addWidget(m_slider, 0, 2);
    rows->addWidget(m_time, 0, 3);
    rows->setColumnStretch(2, 1);
    // The slider stays where the mouse is when it switches the sun on: the second row has its room before, and no
    // columns in common with the first one.
    m_second = new QWidget(this);
    auto* second = new QHBoxLayout(m_second);
    second->setContentsMargins(0, 0, 0, 0);
    second->addWidget(m_base);
    second->addWidget(m_date);
    second->addLayout(told, 1);
    QSizePolicy policy = m_second->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_second->setSizePolicy(policy);
    m_second->setVisible(false);
    rows->addWidget(m_second, 1, 0, 1, 4);
}

void SunBar::Join() {
    connect(m_switch, &QCheckBox::toggled, this, [this] { TakeSwitch(); });
    connect(m_play, &QPushButton::toggled, this, [this](bool isOn) {
        SetOn(IsOn() || isOn);
        SetPlaying(isOn);
    });
    connect(&m_clock, &QTimer::timeout, this, [this] { Advance(); });
    connect(m_slider, &QSlider::valueChanged, this, [this] { TakeSlider(); });
    connect(m_date, &QDateEdit::dateChanged, this, [this] {
        SetOn(true);
        Change();
    });
    connect(m_base, &QComboBox::currentIndexChanged, this, [this] {
        Change();
        if (m_onChoice)
            m_onChoice();
    });
}

void SunBar::SetOn(bool isOn) {
    m_switch->setChecked(isOn);
}

void SunBar::ShineAt(double trueSolarTime) {
    SetMoment(trueSolarTime);
    SetOn(true);
}

CalendarDay SunBar::GetDay() const {
    const QDate date = m_date->date();
    return {date.year(), date.month(), date.day()};
}

bool SunBar::IsOn() const {
    return m_switch->isChecked();
}

void SunBar::TakeSwitch() {
    if (!IsOn())
        m_play->setChecked(false);
    m_second->setVisible(IsOn());
    Change();
    if (m_onChoice)
        m_onChoice();
}

void SunBar::TakeSettings() {
    m_settings = CurrentSettings();
    CalendarDay day = m_settings.Day();
    if (!IsRealDay(day))
        day = Today();
    if (!(day == m_settingsDay)) {
        m_settingsDay = day;
        const QSignalBlocker quiet(m_date);
        m_date->setDate(QDate(day.year, day.month, day.day));
    }
    Change();
}

void SunBar::SetNorth(double north) {
    m_north = north;
    Change();
}

void SunBar::SetBeijing(bool isBeijing) {
    const QSignalBlocker quiet(m_base);
    m_base->setCurrentIndex(isBeijing ? 1 : 0);
    Change();
}

bool SunBar::IsBeijing() const {
    return m_base->currentIndex() == 1;
}

void SunBar::Retranslate() {
    {
        const QSignalBlocker quiet(m_base);
        m_base->setItemText(0, ShownSay(L"真太阳时"));
        m_base->setItemText(1, ShownSay(L"北京时间"));
    }
    const bool isChinese = g_strCurLanguage == L"Chs";
    m_date->setLocale(isChinese ? QLocale(QLocale::Chinese, QLocale::China)
                                : QLocale(QLocale::English, QLocale::UnitedStates));
    m_switch->setText(ShownSay(L"太阳和阴影"));
    m_switch->setToolTip(ShownSay(L"这一刻的阴影和太阳的路径 (F6)"));
    m_slider->setAccessibleName(ShownSay(L"一天中的时刻"));
    m_slider->setToolTip(ShownSay(L"点击、拖动，或用方向键、Page Up 和 Page Down 改变时刻；空格播放和暂停") + "\n" +
                         ShownSay(L"绿色的一段是当前标准计算日照的时段"));
    m_base->setAccessibleName(ShownSay(L"时刻按"));
    m_date->setAccessibleName(ShownSay(L"太阳的日期"));
    m_date->setToolTip(ShownSay(L"只换视图里太阳的日期，不改变日照设置"));
    SetPlaying(m_clock.isActive());
    ShowTexts();
}

void SunBar::hideEvent(QHideEvent* /*event*/) {
    m_play->setChecked(false);
}

bool SunBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_slider || event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space)
        return QWidget::eventFilter(watched, event);
    m_play->toggle();
    return true;
}

std::vector<QString> SunBar::GetStamp() const {
    if (!GetSun())
        return {};
    return SunStamp(PlaceInWords(*m_settings.place), GetDay(), m_sun->day, m_moment);
}

void SunBar::SetPlaying(bool isPlaying) {
    m_play->setText(isPlaying ? ShownSay(L"暂停") : ShownSay(L"播放"));
    m_play->setAccessibleName(isPlaying ? ShownSay(L"暂停") : ShownSay(L"播放一天的阴影"));
    if (isPlaying && !m_clock.isActive())
        m_clock.start();
    else if (!isPlaying)
        m_clock.stop();
}

void SunBar::Advance() {
    if (!m_sun)
        return;
    const SunDay& day = m_sun->day;
    double next = m_moment + kPlayedHours;
    const double rise = 12.0 - day.dayLength / 2.0;
    if (day.kind == SunDay::Kind::Ordinary && (next < rise || next > kHoursPerDay - rise))
        next = rise;
    SetMoment(next);
}

void SunBar::SetMoment(double trueSolarTime) {
    m_moment = Wrapped(trueSolarTime);
    Change();
}

void SunBar::TakeSlider() {
    ShineAt(m_slider->value() / static_cast<double>(kMinutesPerHour) - (m_sun ? m_sun->shownLater : 0.0));
}

CString SunBar::FindFault() const {
    if (!m_settings.place)
        return SayFormat(L"地区数据库里没有“%s”：请在日照设置里选一个地区", Printable(m_settings.placeName));
    if (!m_settings.place->IsOnTheGlobe())
        return SayFormat(L"地区“%s”的位置不在地球上，算不出太阳的时刻。", Printable(m_settings.place->FullName()));
    return CString();
}

void SunBar::Change() {
    m_fault = FindFault();
    m_sun.reset();
    if (m_fault.IsEmpty()) {
        const DayTerms terms = TermsFor(GetDay());
        if (terms.IsReasonable()) {
            const SunDay day = ComputeSunDay(terms, *m_settings.place);
            m_sun = ViewSun{day, m_north, m_moment, IsBeijing() ? day.BeijingTime(0.0) : 0.0};
            MarkSpan(terms);
        } else {
            m_fault = UnreasonableTermsText();
        }
    }
    ShowTexts();
    if (GetSun() == m_told)
        return;
    m_told = GetSun();
    if (m_onSun)
        m_onSun();
}

// By the rules of an analysis, whose clock may be the other one.
void SunBar::MarkSpan(const DayTerms& terms) {
    DayRequest request;
    request.settings = m_settings;
    request.terms = terms;
    std::optional<SunPeriod> span = FindSpan(request);
    if (span)
        span = SunPeriod{span->start + m_sun->shownLater, span->end + m_sun->shownLater};
    m_slider->SetMark(span);
}

void SunBar::ShowTexts() {
    m_slider->setEnabled(m_sun.has_value());
    m_play->setEnabled(m_sun.has_value());
    if (m_sun) {
        const double shown = Wrapped(m_moment + m_sun->shownLater);
        const CString clock = ClockText(shown);
        const QSignalBlocker quiet(m_slider);
        m_slider->setValue(static_cast<int>(std::lround(shown * kMinutesPerHour)) % kMinutesPerDay);
        m_time->setText(Shown(clock));
        m_slider->setAccessibleDescription(Shown(clock));  // its value is a number of minutes
    } else {
        m_time->setText(QString());
    }
    ShowPlace();
}

// Why there is no sun has the room of both lines, and as many as it takes.
void SunBar::ShowPlace() {
    m_place->setVisible(m_sun.has_value());
    m_about->setWordWrap(!m_sun);
    if (!m_sun)
        return m_about->setText(Shown(m_fault));
    m_place->ShowText(Shown(Printable(PlaceInWords(*m_settings.place))));
    m_about->setText(SunPositionText(PositionOfSun(m_sun->day, m_moment)));
}
