// The settings as they were, to go back to when they cannot be saved.
#pragma once

#include <vector>

#include "calendar/OrvoDegree.h"
#include "platform/base/CString.h"
#include "workbench/commands/DayText.h"
#include "zone/OrvoZoneRecord.h"

class OrvoDataSet;
class OrvoDate;

// Remembers what `orvo set` can change. (A copy of the whole data set would not do: standards lose their colours when
// they are assigned.)
class SettingsSnapshot {
public:
    explicit SettingsSnapshot(OrvoDataSet& settings);
    // Puts everything back; the list of standards must be the same as it was.
    void Restore(OrvoDataSet& settings) const;

private:
    struct Standard {
        Day day;
        OrvoDegree start;
        OrvoDegree end;
        double step;
    };

    OrvoZoneRecord m_record;
    CString m_city;
    Day m_day;
    OrvoDegree m_start;
    OrvoDegree m_end;
    double m_step;
    int m_wholeNumbers[5];
    int m_currentStandard;
    std::vector<Standard> m_standards;
};
