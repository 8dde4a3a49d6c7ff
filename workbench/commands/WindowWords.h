// What is told of one window, piece by piece, for tables and pages alike.
#pragma once

#include <vector>

#include "analysis/SunPeriod.h"
#include "platform/base/CString.h"

struct AnalysisReport;
struct WindowResult;

// "-" for what is not known.
CString FloorText(const WindowResult& window);
CString FacingText(const WindowResult& window);  // a word, and the degrees
CString JudgedText(const WindowResult& window);
CString BeforeText(const WindowResult& window);
CString LostText(const WindowResult& window);
// What is special about it; empty for most.
CString SpecialsText(const AnalysisReport& report, const WindowResult& window);

enum class StretchKind { Sunlit, Counted, Dropped, Hidden, Lost };
CString KindWord(StretchKind kind);

// A stretch of a window's day, and why it does not count, or `before` and handles of what hides the sun.
struct Stretch {
    StretchKind kind = StretchKind::Sunlit;
    SunPeriod period;
    CString before;
    std::vector<CString> words;
};
// By kind, in the order of the enumeration.
std::vector<Stretch> StretchesOf(const WindowResult& window);
