// The options of a report that is written as a page.
#pragma once

#include <optional>
#include <vector>

#include "calendar/CalendarDay.h"
#include "platform/base/CString.h"

class SubcommandCall;
struct SubcommandOption;

struct AskedReport {
    std::optional<CString> folder;  // no report without it
    std::optional<CString> project;
    std::optional<CString> author;
    std::optional<CString> date;  // of the report, not of the sun
    std::vector<CString> skies;   // windows by name or handle
};
// What was given, and the rows of the host's table; skies only where there are windows.
AskedReport AskedReportOf(SubcommandCall& call, bool hasWindows);
void AddReportOptions(std::vector<SubcommandOption>& options, bool hasWindows);

// What a page begins with.
struct PageRequest {
    CString folder;  // empty: no page is asked for
    CString project;
    CString author;
    CalendarDay date = {};
    std::vector<CString> skies;

    bool IsAskedFor() const { return !folder.IsEmpty(); }
};
// Gives an ExitCode, and has complained unless it is success: about values, and about a folder that cannot be used.
int ReadAskedReport(const AskedReport& asked, PageRequest& request);
