// Lines of a table for spreadsheets, and what stands in their cells.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/SunPeriod.h"
#include "platform/base/CString.h"

// In UTF-8, quoted where need be.
class CsvLine {
public:
    // With an apostrophe before what a spreadsheet would take for a formula.
    void AddText(const CString& text);
    // To six decimals, so that nobody reads 160.99999999999991.
    void AddNumber(double value);
    template <class T>
    void AddNumber(const std::optional<T>& value) {
        if (value)
            AddNumber(static_cast<double>(*value));
        else
            AddCell(CString());
    }
    std::string End() const { return m_text + "\r\n"; }

private:
    void AddCell(const CString& text);

    std::string m_text;
    bool m_hasCells = false;
};

// Several periods in one cell, `offset` hours later: HH:MM:SS; after midnight they go on from 24, before it they have a
// minus.
class ListCell {
public:
    void Add(SunPeriod period, double offset, const CString& more = CString());
    const CString& Text() const { return m_text; }

private:
    CString m_text;
};
CString PeriodsCell(const std::vector<SunPeriod>& periods, double offset);
