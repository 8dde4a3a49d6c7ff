// Times, verdicts and reasons as texts.
#include "workbench/commands/AnalysisWords.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "facts/ClockText.h"
#include "platform/base/PlainText.h"
#include "platform/host/HandleText.h"
#include "workbench/Texts.h"

namespace {

// What a value is called in documents, and for people.
template <class Value>
struct Naming {
    Value value;
    const char* key;
    const wchar_t* word;  // built-in text
};
constexpr Naming<DropReason> kReasons[] = {
    {DropReason::Facing, "facing", L"不在该朝向的有效时段内"},
    {DropReason::Angle, "angle", L"与墙面夹角太小"},
    {DropReason::Short, "short", L"时间段太短"},
    {DropReason::NotAmongLongest, "not among the longest", L"不是最长的几段"},
    {DropReason::Threshold, "threshold", L"没有超过下限"},
};

constexpr Naming<WindowNote> kNotes[] = {
    {WindowNote::Cut, "cut", L"有面穿过这个窗，按整日被遮挡计"},
    {WindowNote::Inside, "inside", L"这个窗在闭合的体内"},
    {WindowNote::NoSide, "no side", L"分不清哪一侧是室外，没有分析；可用 --facing 给出朝向"},
    {WindowNote::Narrower, "narrower", L"比标准的最小窗宽窄"},
};

// Every value has its row.
template <class Value, std::size_t Count>
const Naming<Value>& RowOf(Value value, const Naming<Value> (&rows)[Count]) {
    return *std::find_if(std::begin(rows), std::end(rows) - 1,
                         [=](const Naming<Value>& row) { return row.value == value; });
}

}  // namespace

const char* VerdictKey(bool passes) {
    return passes ? "pass" : "fail";
}

const char* ReasonKey(DropReason reason) {
    return RowOf(reason, kReasons).key;
}

const char* NoteKey(WindowNote note) {
    return RowOf(note, kNotes).key;
}

CString VerdictWord(const std::optional<bool>& passes) {
    if (!passes)
        return L"-";
    return *passes ? Say(L"达标") : Say(L"不达标");
}

CString ReasonWord(DropReason reason) {
    return Say(RowOf(reason, kReasons).word);
}

CString NoteWord(WindowNote note) {
    return Say(RowOf(note, kNotes).word);
}

CString DurationText(double minutes) {
    constexpr int kMinute = 60;
    const ClockParts parts = SplitSeconds(static_cast<int>(std::lround(minutes * kMinute)));
    CString text;
    text.Format(L"%d:%02d:%02d", parts.hours, parts.minutes, parts.seconds);
    return text;
}

CString ShortDurationText(double minutes) {
    const CString text = DurationText(minutes);
    const int seconds = text.ReverseFind(L':');
    return text.Mid(seconds) == L":00" ? text.Left(seconds) : text;
}

CString PeriodText(SunPeriod period, double offset) {
    return ClockText(period.start + offset) + L"-" + ClockText(period.end + offset);
}

CString HandleOrNone(std::uint64_t handle) {
    return handle == 0 ? CString(L"-") : HandleText(handle);
}

CString CountText(std::size_t count) {
    return CString(std::wstring_view(std::to_wstring(count)));
}

CString DegreesText(double direction) {
    CString text;
    text.Format(L"%.1f", direction);
    return text == L"360.0" || text == L"-0.0" ? CString(L"0.0") : text;
}

CString WindowLabel(const WindowResult& window) {
    const CString handle = HandleOrNone(window.handle);
    if (window.name.IsEmpty() || window.name == handle)
        return handle;
    return Printable(window.name) + L" (" + handle + L")";
}
