// Reads days and names of terms.
#include "workbench/commands/AskedDate.h"

#include <algorithm>
#include <vector>

#include "facts/DayTerms.h"
#include "facts/DayText.h"
#include "facts/NumberText.h"
#include "platform/base/Characters.h"
#include "platform/base/LatinNames.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kLastYear = 9999;

// A term's name, and the digits of a year that stand before or behind it.
struct TermAndYear {
    CString name;
    CString year;  // empty when there is none
};

TermAndYear Part(CString text) {
    text.Trim();
    int before = 0;
    while (IsDigit(text.GetAt(before)))
        ++before;
    int behind = text.GetLength();
    while (behind > before && IsDigit(text.GetAt(behind - 1)))
        --behind;
    // A year on both sides is a mistake; then the one behind stays a part of the name, and no term has it.
    TermAndYear parts;
    if (before > 0) {
        parts = {text.Mid(before), text.Left(before)};
        parts.name.Trim();
        if (parts.name.Left(1) == L"年")
            parts.name.Delete(0);
    } else {
        parts = {text.Left(behind), text.Mid(behind)};
    }
    parts.name.Trim();
    return parts;
}

bool IsCalled(const SolarTerm& term, const CString& name) {
    const CString shown = Say(term.name);
    if (name == term.name || name.CompareNoCase(shown) == 0)
        return true;
    const CString folded = FoldLatin(name);
    if (folded.IsEmpty())
        return false;
    const std::vector<CString> spellings = LatinNames(term.name);
    return folded == FoldLatin(shown) || std::find(spellings.begin(), spellings.end(), folded) != spellings.end();
}

std::optional<CalendarDay> ParseTerm(const CString& text, int usualYear) {
    const TermAndYear parts = Part(text);
    const std::optional<int> year = parts.year.IsEmpty() ? usualYear : ParseWhole(parts.year, 1, kLastYear);
    if (!year || parts.name.IsEmpty())
        return {};
    for (const SolarTerm& term : TermsFor({*year, 1, 1}).table)
        if (IsCalled(term, parts.name) && IsRealDay(term.day))
            return term.day;
    return {};
}

}  // namespace

SubcommandOption DateOption() {
    return ValueOption(L"--date", L"Y-M-D|TERM", L"分析日期，例如 2025-12-22、大寒 或 2026大寒");
}

int ReadAskedDate(const CString& text, int usualYear, CalendarDay& day) {
    std::optional<CalendarDay> parsed = ParseDay(text);
    if (!parsed)
        parsed = ParseTerm(text, usualYear);
    if (!parsed)
        return Refuse(kExitUsage, BadDateText(text));
    day = *parsed;
    return kExitOk;
}
