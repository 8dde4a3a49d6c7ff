// What every page of an analysis has: its head, the rules that it went by, and what it cannot say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/base/CString.h"

class HtmlPage;
class TextTable;
struct DayAnswer;
struct DayReport;
struct DayRequest;
struct HeadRow;
struct PageRequest;
struct Standard;

// What the page is called: by the project, where there is one.
CString PageTitle(const PageRequest& request, const CString& title);

// What was asked, with the standard and its step: the head of an analysis and what it has of its own.
TextTable AskedOnPage(const DayReport& report, const DayRequest& request, const DayAnswer& answer,
                      const std::vector<HeadRow>& own);
// Title, project, author, date and the program, then what was asked, with the drawing's fingerprint behind its name.
void AddPageHead(HtmlPage& page, const CString& title, const PageRequest& request, const DayReport& report,
                 const TextTable& asked);
// Room for who made it, checked it and approved it.
void AddSignatures(HtmlPage& page);
// The standard's rules in words, and where they come from; its colours stand below the plan.
void AddPageRules(HtmlPage& page, const DayReport& report, const Standard& standard);
// What was left out or noted; that there was nothing where nothing was.
void AddPageRemarks(HtmlPage& page, const std::vector<CString>& messages);
// How to read the numbers, and what they cannot say.
void AddPageLimits(HtmlPage& page, const std::vector<CString>& notes);

// Into the folder that was asked for. Gives an ExitCode, and has complained unless it is success.
int SavePage(std::string_view page, const PageRequest& request);
