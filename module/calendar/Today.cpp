// The local date.
#include "calendar/Today.h"

#include <ctime>

constinit TodayFunction g_pfnToday = &LocalToday;

CalendarDay LocalToday() {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = now == std::time_t(-1) ? nullptr : std::localtime(&now);
    if (!local)
        return {1970, 1, 1};
    return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday};
}
