// A day of a calendar.
// Why: docs/decisions/facts.md
#pragma once

// A plain value, not validated. (OrvoDate is a day together with the tables of the solar terms.)
struct CalendarDay {
    int year;   // of the common era
    int month;  // 1 to 12
    int day;    // 1 to 31

    bool operator==(const CalendarDay&) const = default;
};
