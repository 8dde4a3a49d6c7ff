// Answers of an analysis made by hand, and what is printed of them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "analysis/WindowName.h"
#include "platform/host/Output.h"
#include "workbench/commands/AnalysisReport.h"

class TextOutput : public Output {
public:
    void Write(std::string_view text) override { m_text += text; }
    void Complain(const CString& text) override { ADD_FAILURE() << ToUtf8(text.View()); }
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

inline bool GoOn(std::size_t, std::size_t) {
    return true;
}

// Nothing but what every report has: a place, a day, a standard, a span of 8 to 16 o'clock that clocks show a quarter
// of an hour later.
inline AnalysisReport BareReport() {
    AnalysisReport report;
    Settings& settings = report.request.settings;
    settings.placeName = L"甲地";
    settings.place = Place{L"某省", L"甲地", 116.25, 40.0};
    settings.standard = Standard();
    settings.standard->name = L"试验标准";
    settings.standard->day = {2026, 1, 20};
    settings.standard->start = 8.0;
    settings.standard->end = 16.0;
    settings.standard->step = 1.0;
    report.request.terms.day = {2026, 1, 20};
    report.answer.span = {8.0, 16.0};
    report.answer.beijingOffset = 0.25;
    return report;
}

inline void NameAsDrawn(WindowResult& window, const CString& name) {
    window.name = name;
    window.building = BuildingOf(name);
    window.flat = FlatOf(name);
}

// A window that is lit from 9 to 12 and hidden before and after.
inline WindowResult LitWindow(std::uint64_t handle, const CString& name) {
    WindowResult window;
    window.handle = handle;
    NameAsDrawn(window, name);
    window.floor = 1;
    window.facing = 270.0;
    window.width = 1.5;
    window.height = 1.25;
    window.sill = 0.9;
    window.corners = {QcGePoint(1, 2, 0.9), QcGePoint(2.5, 2, 0.9), QcGePoint(2.5, 2, 2.15), QcGePoint(1, 2, 2.15)};
    window.sunlit = {{9.0, 12.0}};
    window.stepped = window.sunlit;
    window.counted = window.sunlit;
    window.hidden = {{{8.0, 9.0}, {0x2F}}, {{12.0, 16.0}, {0x2F, 0x30}}};
    window.total = 180.0;
    window.longest = 180.0;
    window.judged = 180.0;
    window.color = 4;
    return window;
}

// A window that was lit from 9 to 12 without a project, of which 0x2F takes what is after 11.
inline WindowResult ShadedWindow(std::uint64_t handle, const CString& name) {
    WindowResult window = LitWindow(handle, name);
    window.before = static_cast<const WindowHours&>(window);
    window.sunlit = {{9.0, 11.0}};
    window.stepped = window.sunlit;
    window.counted = window.sunlit;
    window.hidden = {{{8.0, 9.0}, {0x2F}}, {{11.0, 16.0}, {0x2F, 0x30}}};
    window.lost = {{{11.0, 12.0}, {0x2F}}};
    window.total = 120.0;
    window.longest = 120.0;
    window.judged = 120.0;
    window.color = 3;
    return window;
}

// The report of a project on one layer, with verdicts by a need: of the windows' hours now and before.
inline AnalysisReport ProjectReport(double hours, std::vector<WindowResult> windows) {
    AnalysisReport report = BareReport();
    report.request.proposedLayers = {L"方案"};
    report.request.need = hours;
    for (WindowResult& window : windows) {
        window.passes = window.judged >= hours * 60.0;
        if (window.before)
            window.before->passes = window.before->judged >= hours * 60.0;
    }
    report.answer.windows = std::move(windows);
    return report;
}

// A window whose outside cannot be told.
inline WindowResult WindowWithoutSide(std::uint64_t handle, const CString& name) {
    WindowResult window;
    window.handle = handle;
    NameAsDrawn(window, name);
    window.notes = {WindowNote::NoSide};
    return window;
}
