// The head of an analysis for people: what was asked.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/TextTable.h"

class Output;
struct DayAnswer;
struct DayReport;
struct DayRequest;

struct HeadRow {
    CString name;
    CString value;
};

// Drawing, place, `day` as it is to be written, span, north, heights, what an analysis has of its own, and need.
TextTable HeadTable(const DayReport& report, const DayRequest& request, const DayAnswer& answer, const CString& day,
                    const std::vector<HeadRow>& own);

// Note, drawing, place, day, span, north, heights, what an analysis has of its own, need and the standard's rules, and
// an empty line.
void PrintHead(const DayReport& report, const DayRequest& request, const DayAnswer& answer,
               const std::vector<HeadRow>& own, Output& output);
