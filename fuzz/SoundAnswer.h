// What an analysis of windows answers, whatever the drawing holds: hours within the span, in order, each told once.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "fuzz/MemoryFile.h"
#include "settings/OrvoStdSet.h"

// Which question is the usual one: the winter solstice at 31 degrees, the whole window, any sun that reaches it.
inline constexpr std::size_t kUsualQuestion = 12;

// One of many questions, by any number: a place, a day and a standard as somebody may have them.
inline AnalysisRequest QuestionOf(std::size_t choice) {
    constexpr std::array<double, 4> kLatitudes = {31.2, 69.0, -33.9, 0.0};  // also without night, and from the south
    constexpr std::array<double, 3> kDeclinations = {-23.45, -20.59, 16.45};
    AnalysisRequest request;
    Place place;
    place.longitude = 116.4;
    place.latitude = kLatitudes[choice % 4];
    request.settings.UsePlace(place);
    request.terms.declination = kDeclinations[choice % 3];
    request.terms.equationOfTime = -0.18;
    Standard standard;
    standard.start = choice % 5 == 0 ? 0.0 : 8.0;
    standard.end = choice % 5 == 0 ? 24.0 : 16.0;
    standard.step = choice % 7 == 0 ? 10.0 : 1.0;
    standard.fullWindow = choice % 2 == 0;
    standard.limitWidth = choice % 5 == 3;
    standard.minWidth = 1200.0;
    standard.maxWidth = 1800.0;
    standard.maxContinue = choice % 5 < 2 ? ORVO_COUNT_LONGEST : ORVO_COUNT_TOTAL;
    standard.beijingTime = choice % 3 == 1 ? ORVO_BEIJING_TIME : ORVO_TRUE_SOLAR_TIME;
    standard.validSunType = choice % 7 < 3 ? ORVO_SUN_SHANGHAI : ORVO_SUN_CUSTOM;
    standard.minValidAngle = choice % 4 == 3 ? 12 : 0;
    standard.minValidTime = 5;
    request.settings.standard = standard;
    request.north = choice % 11 == 0 ? 30.0 : 0.0;
    request.isScoped = choice % 13 == 0;
    request.need = 2.0;
    return request;
}

class SoundAnswer {
public:
    explicit SoundAnswer(const AnalysisAnswer& answer) : m_span(answer.span) {
        if (answer.failure != AnalysisFailure::None) {
            Require(answer.windows.empty());
            return;
        }
        Require(m_span.start <= m_span.end && m_span.end - m_span.start <= 24.0);
        for (const WindowResult& window : answer.windows)
            RequireSound(window);
    }

private:
    static constexpr double kRounding = 1e-9;  // hours

    void RequireSound(const WindowResult& window) const {
        std::vector<SunPeriod> hidden, vain, dropped;
        for (const HiddenPeriod& each : window.hidden) {
            Require(!each.by.empty() && std::is_sorted(each.by.begin(), each.by.end()));
            hidden.push_back(each.period);
        }
        for (const DroppedPeriod& each : window.dropped) {
            const bool isExact = each.reason == DropReason::Facing || each.reason == DropReason::Angle;
            (isExact ? vain : dropped).push_back(each.period);
        }
        using Periods = const std::vector<SunPeriod>*;
        for (const Periods list : {Periods(&window.sunlit), Periods(&window.stepped), Periods(&window.counted),
                                   Periods(&hidden), Periods(&vain), Periods(&dropped)})
            RequireInOrder(*list);
        RequireApart(window.sunlit, hidden);
        RequireApart(window.sunlit, vain);
        RequireApart(hidden, vain);
        // What the step leaves is counted or dropped.
        Require(std::fabs(MinutesOf(window.stepped) - MinutesOf(window.counted) - MinutesOf(dropped)) < 1e-6);
        Require(std::fabs(window.total - MinutesOf(window.counted)) < 1e-6);
        Require(window.longest >= 0.0 && window.longest <= window.total + 1e-6);
        Require(window.facing ? *window.facing >= 0.0 && *window.facing < 360.0 : !window.passes);
        Require(window.width > 0.0 && window.height > 0.0 && std::isfinite(window.sill));
        for (const QcGePoint& corner : window.corners)
            Require(std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.z));
    }

    void RequireInOrder(const std::vector<SunPeriod>& periods) const {
        double last = m_span.start;
        for (const SunPeriod& period : periods) {
            Require(period.start >= last - kRounding && period.end >= period.start);
            last = period.end;
        }
        Require(last <= m_span.end + kRounding);
    }

    static void RequireApart(const std::vector<SunPeriod>& a, const std::vector<SunPeriod>& b) {
        for (const SunPeriod& first : a)
            for (const SunPeriod& second : b)
                Require(std::min(first.end, second.end) - std::max(first.start, second.start) <= kRounding);
    }

    static double MinutesOf(const std::vector<SunPeriod>& periods) {
        double sum = 0.0;
        for (const SunPeriod& period : periods)
            sum += period.Minutes();
        return sum;
    }

    SunPeriod m_span;
};
