// One group of one object, read and written as text through the module's functions for entity data.
#include "workbench/commands/EntityGroup.h"

#include <charconv>
#include <cwchar>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/CodeToType.h"
#include "platform/host/GroupItems.h"
#include "platform/host/GroupStorage.h"
#include "platform/host/HandleText.h"
#include "platform/host/QcAdsEnt.h"
#include "records/EntityData.h"
#include "workbench/Texts.h"
#include "workbench/commands/CoordinateText.h"

namespace {

struct Span {
    std::int64_t least;
    std::int64_t most;
};

template <class T>
Span SpanOf() {
    return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

// The numbers that fit into a group.
Span SpanOf(int code, int type) {
    const bool isSwitch = code >= 290 && code <= 299;
    if (isSwitch)
        return {0, 1};
    return type == RTSHORT ? SpanOf<std::int16_t>() : SpanOf<std::int32_t>();
}

bool IsPoint(int type) {
    return type == RTPOINT || type == RT3DPOINT;
}

bool IsReal(int type) {
    return type == RTREAL || type == RTANG || type == RTORINT;
}

// Of the first value of that code; 0 when there is none.
int CountCoordinates(const std::vector<DxfGroup>& groups, int code) {
    for (const GroupItem& item : GatherGroups(groups))
        if (item.code == code)
            return static_cast<int>(item.count);
    return 0;
}

template <class T>
T Fetch(AcDbObjectId id, int code) {
    T value{};
    GetEntData(QcAdsEnt(id), code, &value);
    return value;
}

struct Point {
    double coordinates[3];
    bool operator==(const Point&) const = default;
};

struct Name {
    std::uint64_t words[2];
};

std::optional<std::vector<double>> ParseNumbers(const CString& text) {
    std::vector<double> numbers;
    CStringArray pieces;
    CString narrow(text);
    narrow.Replace(L"，", L",");
    CutStrToArr(narrow, L",", pieces);
    for (int i = 0; i < pieces.GetSize(); ++i) {
        const std::optional<double> number = ParseDecimal(pieces.GetAt(i));
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

}  // namespace

std::optional<std::uint64_t> ParseHandle(const CString& text) {
    const std::string digits = ToUtf8(text.View());
    std::uint64_t handle = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), handle, 16);
    const bool isWhole = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
    return isWhole && digits.size() <= 16 ? std::optional<std::uint64_t>(handle) : std::nullopt;
}

std::optional<std::int64_t> ParseInteger(const CString& text) {
    const std::string digits = ToUtf8(text.View());
    const std::size_t start = digits.size() > 1 && digits[0] == '+' && digits[1] != '-' ? 1 : 0;
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data() + start, digits.data() + digits.size(), value);
    const bool isWhole = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
    return isWhole ? std::optional<std::int64_t>(value) : std::nullopt;
}

EntityGroup::EntityGroup(const AcDbDatabase& drawing, AcDbObjectId id, int code)
    : m_drawing(drawing), m_id(id), m_code(code), m_type(CodeToType(code)), m_coordinates(0) {
    std::vector<DxfGroup> groups;
    if (HasType() && drawing.GetGroups(id, groups))
        m_coordinates = code == -1 ? 1 : CountCoordinates(groups, code);
}

bool EntityGroup::HasType() const {
    return m_type != RTNONE;
}

// The buffer for the text is as large as the entity's own data says.
CString EntityGroup::TextValue() const {
    resbuf* const chain = QcAdsEnt(m_id).GetDXFData();
    std::vector<wchar_t> text(1);
    for (const resbuf* buffer = chain; buffer; buffer = buffer->rbnext) {
        if (buffer->restype == m_code) {
            text.resize(std::wcslen(buffer->resval.rstring) + 1);
            break;
        }
    }
    acutRelRb(chain);
    GetEntData(QcAdsEnt(m_id), m_code, text.data());
    return CString(text.data());
}

std::uint64_t EntityGroup::HandleValue() const {
    const Name name = Fetch<Name>(m_id, m_code);
    return name.words[0] != 0 ? m_drawing.GetHandle(AcDbObjectId::FromOldId(name.words[0])) : name.words[1];
}

CString EntityGroup::Text() const {
    if (m_type == RTSTR)
        return TextValue();
    if (IsReal(m_type))
        return DoubleToText(Fetch<double>(m_id, m_code));
    if (m_type == RTSHORT || m_type == RTLONG)
        return IntToText(Fetch<std::int32_t>(m_id, m_code));
    if (!IsPoint(m_type))
        return HandleText(HandleValue());
    const Point point = Fetch<Point>(m_id, m_code);
    CString text = DoubleToText(point.coordinates[0]);
    for (int i = 1; i < m_coordinates; ++i)
        text += L"," + DoubleToText(point.coordinates[i]);
    return text;
}

nlohmann::ordered_json EntityGroup::Json() const {
    if (m_type == RTSTR)
        return ToUtf8(TextValue().View());
    if (IsReal(m_type))
        return Fetch<double>(m_id, m_code);
    if (m_type == RTSHORT || m_type == RTLONG)
        return Fetch<std::int32_t>(m_id, m_code);
    if (IsPoint(m_type)) {
        const Point point = Fetch<Point>(m_id, m_code);
        return std::vector<double>(point.coordinates, point.coordinates + m_coordinates);
    }
    const std::uint64_t handle = HandleValue();
    if (handle == 0)
        return nullptr;
    return ToUtf8(HandleText(handle).View());
}

// The groups that say what and which an object is.
bool EntityGroup::IsIdentity() const {
    if (m_code <= 0)
        return true;
    if (m_code != 5 && m_code != 105)
        return false;
    const std::uint64_t handle = m_drawing.GetHandle(m_id);
    return handle != 0 && ParseHandle(TextValue()) == handle;
}

bool EntityGroup::Set(const CString& text, CString& wrong) const {
    if (IsIdentity()) {
        wrong = SayFormat(L"组码 %d 是对象的类型、句柄或名字，不能改", m_code);
        return false;
    }
    wrong.Empty();
    if (SetByType(text, wrong))
        return true;
    if (wrong.IsEmpty())
        wrong = SayFormat(L"图形存不下组码 %d 的这个值", m_code);
    return false;
}

bool EntityGroup::SetByType(const CString& text, CString& wrong) const {
    if (m_type == RTSTR)
        return SetText(text, wrong);
    if (IsReal(m_type))
        return SetReal(text, wrong);
    if (m_type == RTSHORT || m_type == RTLONG)
        return SetWhole(text, wrong);
    return IsPoint(m_type) ? SetPoint(text, wrong) : SetName(text, wrong);
}

bool EntityGroup::SetText(const CString& text, CString& wrong) const {
    if (text.Find(L'\n') >= 0 || text.Find(L'\r') >= 0) {
        wrong = SayFormat(L"组码 %d 的文字里不能有换行", m_code);
        return false;
    }
    if (HoldsHandle(m_code) && !ParseHandle(text)) {
        wrong = SayFormat(L"“%s”不对：组码 %d 要一个句柄，即 1 到 16 位十六进制数", Printable(text), m_code);
        return false;
    }
    const wchar_t* const pointer = text;
    SetEntData(QcAdsEnt(m_id), m_code, &pointer);
    return TextValue() == text;
}

bool EntityGroup::SetReal(const CString& text, CString& wrong) const {
    const std::optional<double> number = ParseDecimal(text);
    if (!number) {
        wrong = SayFormat(L"“%s”不对：组码 %d 要一个有限的数，例如 2.5", Printable(text), m_code);
        return false;
    }
    SetEntData(QcAdsEnt(m_id), m_code, &*number);
    return Fetch<double>(m_id, m_code) == *number;
}

bool EntityGroup::SetPoint(const CString& text, CString& wrong) const {
    const std::optional<std::vector<double>> numbers = ParseNumbers(text);
    if (!numbers || numbers->size() != static_cast<std::size_t>(m_coordinates)) {
        const CString example = CString(L"1,2.5,0").Left(m_coordinates == 3 ? 7 : m_coordinates == 2 ? 5 : 1);
        wrong = SayFormat(L"“%s”不对：组码 %d 要 %d 个有限的数，用逗号分开，例如 %s", Printable(text), m_code,
                          m_coordinates, example);
        return false;
    }
    Point point{};
    for (std::size_t i = 0; i < numbers->size(); ++i)
        point.coordinates[i] = (*numbers)[i];
    SetEntData(QcAdsEnt(m_id), m_code, &point);
    return Fetch<Point>(m_id, m_code) == point;
}

bool EntityGroup::SetWhole(const CString& text, CString& wrong) const {
    const Span span = SpanOf(m_code, m_type);
    const std::optional<std::int64_t> number = ParseInteger(text);
    if (!number || *number < span.least || *number > span.most) {
        wrong = SayFormat(L"“%s”不对：组码 %d 要一个从 %d 到 %d 的整数", Printable(text), m_code,
                          static_cast<int>(span.least), static_cast<int>(span.most));
        return false;
    }
    if (m_type == RTSHORT) {
        const auto narrow = static_cast<std::int16_t>(*number);
        SetEntData(QcAdsEnt(m_id), m_code, &narrow);
    } else {
        const auto wide = static_cast<std::int32_t>(*number);
        SetEntData(QcAdsEnt(m_id), m_code, &wide);
    }
    return Fetch<std::int32_t>(m_id, m_code) == *number;
}

bool EntityGroup::SetName(const CString& text, CString& wrong) const {
    const std::optional<std::uint64_t> handle = ParseHandle(text);
    const AcDbObjectId id = handle ? m_drawing.FindHandle(*handle) : AcDbObjectId();
    if (!handle || (*handle != 0 && id.isNull())) {
        wrong = SayFormat(L"“%s”不对：组码 %d 要图形中另一个对象的句柄，或 0", Printable(text), m_code);
        return false;
    }
    const std::uint64_t words[] = {id.asOldId(), 0, 0};
    SetEntData(QcAdsEnt(m_id), m_code, words);
    return HandleValue() == *handle;
}
