// The folder that a report is written into: which one may be taken, and the writing of it, whole or not at all.
// Why: docs/decisions/workbench.md
#pragma once

#include <string_view>

#include "platform/base/CString.h"

// What stands in the head of every report, by which a former one is known.
inline constexpr std::string_view kReportMark = R"(<meta name="generator" content="orvo report">)";

// Why a report cannot be written into this folder, in words, and what to do; empty where it can be: the folder is empty
// or holds a former report, or is missing and its parent is there. Nothing is changed.
CString ReportFolderFault(const CString& folder);

// The page in the folder.
CString PageOfReport(const CString& folder);

// Makes `page` the folder's index.html; the folder is made where it is missing. The report before becomes
// index.html.bak. Gives why nothing was written, as above; everything is then as it was.
CString SaveReport(const CString& folder, std::string_view page);
