// Reading the settings, and changing the value that was read.
#include "facts/Settings.h"

#include <cmath>

#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "facts/PlaceSearch.h"
#include "facts/SettingsEdit.h"
#include "facts/StandardSearch.h"
#include "settings/OrvoDataSet.h"

namespace {

ClockTime ToMinute(double hours) {
    const int minutes = static_cast<int>(std::lround(hours * kMinutesPerHour));
    return {minutes / kMinutesPerHour, minutes % kMinutesPerHour};
}

}  // namespace

void Settings::UsePlace(const Place& other) {
    place = other;
    placeName = other.city;
}

void Settings::UseDay(const CalendarDay& day) {
    ownDay = day;
    if (standard)
        standard->day = day;
}

void Settings::UseStandard(const Standard& other) {
    standard = other;
    ownDay = other.day;
    if (other.HasSpan()) {
        start = ToMinute(other.start);
        end = ToMinute(other.end);
    }
    if (other.HasStep())
        step = static_cast<int>(other.step);
}

Settings ReadSettings(const OrvoDataSet& settings) {
    Settings value;
    value.placeName = settings.m_strCurCity;
    value.place = FindPlace(settings.m_strCurCity);
    value.ownDay = DayOf(settings.m_date);
    value.start = {settings.m_nStartHour, settings.m_nStartMinute};
    value.end = {settings.m_nEndHour, settings.m_nEndMinute};
    value.step = settings.m_nSpace;
    if (const OrvoStdSet* standard = StandardAt(settings, settings.m_nCurStd))
        value.standard = StandardOf(*standard);
    return value;
}

Settings CurrentSettings() {
    return ReadSettings(g_SunDataSet);
}

CString NoteOf(const Settings& settings) {
    OrvoDataSet note;  // the module's words, for these values
    note.m_strCurCity = settings.placeName;
    SetOwnDay(note, settings.ownDay);
    note.m_nStartHour = settings.start.hour;
    note.m_nStartMinute = settings.start.minute;
    note.m_nEndHour = settings.end.hour;
    note.m_nEndMinute = settings.end.minute;
    note.m_nSpace = settings.step;
    note.m_nCurStd = kNoStandard;
    if (settings.standard) {
        OrvoStdSet standard;
        standard.m_strName = settings.standard->name;
        standard.m_date =
            OrvoDate(settings.standard->day.year, settings.standard->day.month, settings.standard->day.day);
        note.NewStd(standard);
        note.m_nCurStd = 0;
    }
    return note.GetNoteString();
}
