// Writes single values into the settings and into their current standard, and takes a chosen standard's over.
#include "facts/SettingsEdit.h"

#include <cmath>

#include "facts/ClockText.h"
#include "facts/PlaceSearch.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "settings/OrvoDataSet.h"

namespace {

OrvoDegree TimeOf(int minutes) {
    return OrvoDegree(minutes / kMinutesPerHour, minutes % kMinutesPerHour, 0);
}

// Year, month and day one by one: assigning a whole date would put the built-in terms behind the target's own.
void Assign(OrvoDate& date, const CalendarDay& day) {
    date.SetYear(day.year);
    date.SetMonth(day.month);
    date.SetDay(day.day);
}

}  // namespace

void SetPlace(OrvoDataSet& settings, const Place& place) {
    static_cast<OrvoZoneRecord&>(settings) = RecordOf(place);
    settings.CurCity() = place.city;
}

void SetOwnDay(OrvoDataSet& settings, const CalendarDay& day) {
    Assign(settings.m_date, day);
}

void SetOwnStart(OrvoDataSet& settings, int minutes) {
    settings.m_dgStartTime = TimeOf(minutes);
    settings.m_nStartHour = minutes / kMinutesPerHour;
    settings.m_nStartMinute = minutes % kMinutesPerHour;
}

void SetOwnEnd(OrvoDataSet& settings, int minutes) {
    settings.m_dgEndTime = TimeOf(minutes);
    settings.m_nEndHour = minutes / kMinutesPerHour;
    settings.m_nEndMinute = minutes % kMinutesPerHour;
}

void SetOwnStep(OrvoDataSet& settings, int minutes) {
    settings.m_dSpace = minutes;
    settings.m_nSpace = minutes;
}

void SetDay(OrvoDataSet& settings, const CalendarDay& day) {
    SetOwnDay(settings, day);
    if (HasCurrentStandard(settings))
        Assign(settings.CurDate(), day);
}

void SetStart(OrvoDataSet& settings, int minutes) {
    SetOwnStart(settings, minutes);
    if (HasCurrentStandard(settings))
        settings.CurStd().m_dgStartTime = TimeOf(minutes);
}

void SetEnd(OrvoDataSet& settings, int minutes) {
    SetOwnEnd(settings, minutes);
    if (HasCurrentStandard(settings))
        settings.CurStd().m_dgEndTime = TimeOf(minutes);
}

void SetStep(OrvoDataSet& settings, int minutes) {
    SetOwnStep(settings, minutes);
    if (HasCurrentStandard(settings))
        settings.CurStd().m_dSpace = minutes;
}

void UseStandard(OrvoDataSet& settings, int index) {
    settings.SetCurStdIndex(index);
    const OrvoStdSet* chosen = StandardAt(settings, index);
    if (!chosen)
        return;
    const Standard standard = StandardOf(*chosen);
    SetOwnDay(settings, standard.day);
    if (standard.HasSpan()) {
        SetOwnStart(settings, static_cast<int>(std::lround(standard.start * kMinutesPerHour)));
        SetOwnEnd(settings, static_cast<int>(std::lround(standard.end * kMinutesPerHour)));
    }
    if (standard.HasStep())
        SetOwnStep(settings, static_cast<int>(standard.step));
}
