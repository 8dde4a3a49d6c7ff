// The pieces that every way of telling an analysis is made of: times, verdicts, reasons.
#pragma once

#include <cstddef>
#include <optional>

#include "analysis/WindowAnalysis.h"
#include "platform/base/CString.h"

// For other programs: the same in every language.
const char* VerdictKey(bool passes);
const char* ReasonKey(DropReason reason);
const char* NoteKey(WindowNote note);

// For people, in the interface's language.
CString VerdictWord(const std::optional<bool>& passes);
CString ReasonWord(DropReason reason);
CString NoteWord(WindowNote note);

// H:MM:SS, rounded to the second: one form wherever durations stand below each other.
CString DurationText(double minutes);
// H:MM, with :SS only where there are seconds: for what has little room.
CString ShortDurationText(double minutes);
// Both ends as HH:MM:SS, `offset` hours later.
CString PeriodText(SunPeriod period, double offset);
// As drawings write it; "-" for 0, which is none.
CString HandleOrNone(std::uint64_t handle);
// In digits however many there are.
CString CountText(std::size_t count);
// A direction with one decimal, from 0.0 to 359.9.
CString DegreesText(double direction);
// The window's name and its handle, where that is not its name.
CString WindowLabel(const WindowResult& window);
