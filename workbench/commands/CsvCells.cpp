// Quotes cells, and writes times into them.
#include "workbench/commands/CsvCells.h"

#include <cmath>

#include "facts/ClockText.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"

namespace {

// What spreadsheets begin a formula with. They pass over what stands before it and shows nothing.
bool IsFormula(const CString& text) {
    for (const char32_t character : CodePoints(text)) {
        switch (character) {
            case U'=':
            case U'+':
            case U'-':
            case U'@':
            case U'\t':
            case U'\r':
            case U'\n':
            case U'＝':
            case U'＋':
            case U'－':
            case U'＠':
                return true;
            case U' ':
            case U'\u00A0':
            case U'\u3000':
            case U'\uFEFF':
                break;
            default:
                return false;
        }
    }
    return false;
}

CString TimeCell(double hours) {
    constexpr int kHour = 3600;
    const int signedSeconds = static_cast<int>(std::lround(hours * kHour));
    const ClockParts parts = SplitSeconds(std::abs(signedSeconds));
    CString text;
    text.Format(L"%s%02d:%02d:%02d", signedSeconds < 0 ? L"-" : L"", parts.hours, parts.minutes, parts.seconds);
    return text;
}

}  // namespace

void CsvLine::AddText(const CString& text) {
    AddCell(IsFormula(text) ? L"'" + text : text);
}

void CsvLine::AddNumber(double value) {
    constexpr double kDecimals = 1e6;
    AddCell(DoubleToText(std::round(value * kDecimals) / kDecimals + 0.0));
}

void CsvLine::AddCell(const CString& text) {
    if (m_hasCells)
        m_text += ',';
    m_hasCells = true;
    const std::string cell = ToUtf8(text.View());
    if (cell.find_first_of(",\"\r\n") == std::string::npos) {
        m_text += cell;
        return;
    }
    m_text += '"';
    for (const char character : cell)
        m_text += character == '"' ? std::string("\"\"") : std::string(1, character);
    m_text += '"';
}

void ListCell::Add(SunPeriod period, double offset, const CString& more) {
    if (!m_text.IsEmpty())
        m_text += L"; ";
    m_text += TimeCell(period.start + offset) + L"-" + TimeCell(period.end + offset);
    if (!more.IsEmpty())
        m_text += L" " + more;
}

CString PeriodsCell(const std::vector<SunPeriod>& periods, double offset) {
    ListCell cell;
    for (const SunPeriod& period : periods)
        cell.Add(period, offset);
    return cell.Text();
}
