// Names for files that are made of a drawing's analysis, to begin with when somebody is asked for one.
#pragma once

#include "calendar/CalendarDay.h"
#include "platform/base/CString.h"

// A path beside the drawing, or in the user's home where that folder cannot be written: the drawing's name, the day
// that was analysed, and the ending, which may be empty. Nothing has that name yet.
CString SuggestedName(const CString& drawing, CalendarDay day, const wchar_t* ending);
