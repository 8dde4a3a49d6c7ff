// Remembering and restoring the settings.
#include "workbench/commands/SettingsSnapshot.h"

#include "settings/OrvoDataSet.h"

namespace {

Day DayOf(const OrvoDate& date) {
    return {date.m_nYear, date.m_nMonth, date.m_nDay};
}

void Assign(OrvoDate& date, const Day& day) {
    date.SetYear(day.year);
    date.SetMonth(day.month);
    date.SetDay(day.day);
}

}  // namespace

SettingsSnapshot::SettingsSnapshot(OrvoDataSet& settings)
    : m_record(settings),
      m_city(settings.m_strCurCity),
      m_day(DayOf(settings.m_date)),
      m_start(settings.m_dgStartTime),
      m_end(settings.m_dgEndTime),
      m_step(settings.m_dSpace),
      m_wholeNumbers{settings.m_nStartHour, settings.m_nStartMinute, settings.m_nEndHour, settings.m_nEndMinute,
                     settings.m_nSpace},
      m_currentStandard(settings.m_nCurStd) {
    for (int i = 0; i < settings.m_listStd.GetLength(); ++i) {
        const OrvoStdSet& standard = settings.GetStd(i);
        m_standards.push_back(
            {DayOf(standard.m_date), standard.m_dgStartTime, standard.m_dgEndTime, standard.m_dSpace});
    }
}

void SettingsSnapshot::Restore(OrvoDataSet& settings) const {
    static_cast<OrvoZoneRecord&>(settings) = m_record;
    settings.m_strCurCity = m_city;
    Assign(settings.m_date, m_day);
    settings.m_dgStartTime = m_start;
    settings.m_dgEndTime = m_end;
    settings.m_dSpace = m_step;
    settings.m_nStartHour = m_wholeNumbers[0];
    settings.m_nStartMinute = m_wholeNumbers[1];
    settings.m_nEndHour = m_wholeNumbers[2];
    settings.m_nEndMinute = m_wholeNumbers[3];
    settings.m_nSpace = m_wholeNumbers[4];
    settings.SetCurStdIndex(m_currentStandard);
    for (std::size_t i = 0; i < m_standards.size(); ++i) {
        OrvoStdSet& standard = settings.GetStd(static_cast<int>(i));
        Assign(standard.m_date, m_standards[i].day);
        standard.m_dgStartTime = m_standards[i].start;
        standard.m_dgEndTime = m_standards[i].end;
        standard.m_dSpace = m_standards[i].step;
    }
}
