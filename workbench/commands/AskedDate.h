// The option --date, which every question about the sun has.
#pragma once

#include <optional>

#include "calendar/CalendarDay.h"
#include "platform/base/CString.h"
#include "platform/host/Subcommands.h"

// Its row of a subcommand's options.
SubcommandOption DateOption();

// Reads its value: a day as ParseDay reads it, or a solar term on its own day, by its name in the language of the
// interface, in Chinese or in pinyin, with a year before or behind it: 大寒, 2026大寒, 2026年大寒, Greater Cold 2026,
// dahan 2026. A term without a year is that of `usualYear`. Gives an ExitCode, and has complained unless it is success.
int ReadAskedDate(const CString& text, int usualYear, CalendarDay& day);
