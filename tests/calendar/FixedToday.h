// A clock that stands still, in place of the system's, for as long as it lives.
#pragma once

#include "calendar/Today.h"

class FixedToday {
public:
    FixedToday(int year, int month, int day) : m_before(g_pfnToday) {
        s_today = {year, month, day};
        g_pfnToday = &Give;
    }
    ~FixedToday() { g_pfnToday = m_before; }

    FixedToday(const FixedToday&) = delete;
    FixedToday& operator=(const FixedToday&) = delete;

private:
    static CalendarDay Give() { return s_today; }

    static inline CalendarDay s_today{};
    TodayFunction m_before;
};
