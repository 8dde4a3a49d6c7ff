// An answer as a text that differs wherever two answers do, to the last bit.
#pragma once

#include <ostream>
#include <sstream>
#include <string>

#include "analysis/WindowAnalysis.h"

inline void WriteHours(std::ostream& out, const WindowHours& hours) {
    const auto write = [&](const char* what, const std::vector<SunPeriod>& periods) {
        out << "\n  " << what;
        for (const SunPeriod& period : periods)
            out << ' ' << period.start << '-' << period.end;
    };
    write("sunlit", hours.sunlit);
    write("stepped", hours.stepped);
    write("counted", hours.counted);
    out << "\n  dropped";
    for (const DroppedPeriod& each : hours.dropped)
        out << ' ' << each.period.start << '-' << each.period.end << ':' << static_cast<int>(each.reason);
    out << "\n  " << hours.total << ' ' << hours.longest << ' ' << hours.judged << ' '
        << (hours.passes ? *hours.passes : -1) << ' ' << hours.color;
    if (hours.part)
        out << " part " << hours.part->from << ' ' << hours.part->width;
    for (const WindowNote note : hours.notes)
        out << " note " << static_cast<int>(note);
}

inline void WriteHidden(std::ostream& out, const char* what, const std::vector<HiddenPeriod>& list) {
    out << "\n  " << what;
    for (const HiddenPeriod& each : list) {
        out << ' ' << each.period.start << '-' << each.period.end;
        for (const std::uint64_t handle : each.by)
            out << ',' << handle;
    }
}

inline std::string TextOf(const WindowHours& hours) {
    std::ostringstream out;
    out << std::hexfloat;
    WriteHours(out, hours);
    WriteHidden(out, "hidden", hours.hidden);
    return out.str();
}

inline std::string TextOf(const WindowResult& window) {
    std::ostringstream out;
    out << std::hexfloat << window.handle << ' ' << window.floor.value_or(0) << ' ' << window.facing.value_or(-1.0)
        << ' ' << window.width << ' ' << window.height << ' ' << window.sill;
    for (const QcGePoint& corner : window.corners)
        out << ' ' << corner.x << ' ' << corner.y << ' ' << corner.z;
    out << TextOf(static_cast<const WindowHours&>(window));
    if (window.before)
        out << "\n before" << TextOf(*window.before);
    WriteHidden(out, "lost", window.lost);
    return out.str();
}

inline std::string TextOf(const AnalysisAnswer& answer) {
    std::ostringstream out;
    out << static_cast<int>(answer.failure);
    for (const WindowResult& window : answer.windows)
        out << '\n' << TextOf(window);
    for (const AnalysisRemark& remark : answer.remarks)
        out << '\n' << static_cast<int>(remark.kind) << ' ' << remark.count << ' ' << remark.amount;
    return out.str();
}
