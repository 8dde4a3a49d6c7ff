// Finds a standard among those that are kept.
#include "workbench/commands/DayReport.h"

#include "facts/Settings.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "settings/OrvoDataSet.h"

void FindStandardOf(const Settings& settings, DayReport& report) {
    const CString& name = settings.standard->name;
    const OrvoStdSet* kept = FindStandard(g_SunDataSet, name);
    if (!kept)
        return;
    const OrvoStdSet* current = StandardAt(g_SunDataSet, g_SunDataSet.m_nCurStd);
    report.isCurrentStandard = current && StandardOf(*current).name == name;
    if (report.isCurrentStandard)
        kept = current;  // of several with one name
    while (StandardAt(g_SunDataSet, report.standardIndex) != kept)
        ++report.standardIndex;
    report.changes = ChangesFromShipped(*kept, ReadShippedSettings().get());
}
