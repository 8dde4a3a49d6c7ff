// Reads a pair of angles, each with or without a word that says which one it is.
#include "facts/PositionText.h"

#include <array>
#include <cmath>
#include <utility>

#include "facts/FactsTexts.h"
#include "facts/NumberText.h"
#include "platform/base/Characters.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"

namespace {

enum class Axis { Untold, Longitude, Latitude };

struct Mark {
    const wchar_t* text;
    Axis axis;
    bool isNegative;
};
constexpr std::array kMarks = {
    Mark{L"E", Axis::Longitude, false},   Mark{L"W", Axis::Longitude, true},     Mark{L"N", Axis::Latitude, false},
    Mark{L"S", Axis::Latitude, true},     Mark{L"东经", Axis::Longitude, false}, Mark{L"西经", Axis::Longitude, true},
    Mark{L"北纬", Axis::Latitude, false}, Mark{L"南纬", Axis::Latitude, true},
};

struct Angle {
    Axis axis = Axis::Untold;
    std::optional<double> degrees;  // none for what is no number
};

// Takes a word away from an end of the text. False when the text has it not.
bool TakeMark(CString& text, const Mark& mark) {
    const int length = CString(mark.text).GetLength();
    if (text.Left(length).CompareNoCase(mark.text) == 0)
        text.Delete(0, length);
    else if (text.Right(length).CompareNoCase(mark.text) == 0)
        text = text.Left(text.GetLength() - length);
    else
        return false;
    text.Trim();
    return true;
}

Angle ParseAngle(CString text) {
    Angle angle;
    bool isNegative = false;
    text.Trim();
    for (const Mark& mark : kMarks) {
        if (!TakeMark(text, mark))
            continue;
        angle.axis = mark.axis;
        isNegative = mark.isNegative;
        break;
    }
    if (text.Right(1) == L"°" || text.Right(1) == L"度")
        text = text.Left(text.GetLength() - 1);
    // A word for the side and a sign would say it twice.
    const bool hasSign = text.Left(1) == L"-" || text.Left(1) == L"+";
    if (angle.axis == Axis::Untold || !hasSign)
        angle.degrees = ParseDecimal(text);
    if (angle.degrees && isNegative)
        angle.degrees = -*angle.degrees;
    return angle;
}

// Both parts begin or end with a digit, behind the words for the sides: no name of a place is like that.
bool MayBeAngle(CString text) {
    text.Trim();
    for (const Mark& mark : kMarks)
        if (TakeMark(text, mark))
            break;
    const wchar_t first = text.GetAt(0);
    return IsDigit(first) || ((first == L'-' || first == L'+' || first == L'.') && IsDigit(text.GetAt(1)));
}

CString WaysToWrite() {
    return FactsText(L"；请写 经度,纬度（以度计），例如 121.47,31.23，或注明方位，例如 31.23N,121.47E");
}

TypedPosition Refused(const CString& trouble) {
    return {{}, trouble + WaysToWrite()};
}

CString SideName(double degrees, const wchar_t* positive, const wchar_t* negative) {
    return DoubleToText(std::abs(degrees)) + (degrees < 0.0 ? negative : positive);
}

}  // namespace

CString PositionName(double longitude, double latitude) {
    return SideName(longitude, L"E", L"W") + L"," + SideName(latitude, L"N", L"S");
}

std::optional<TypedPosition> ParsePosition(const CString& text) {
    CString plain = text;
    plain.Replace(L"，", L",");
    const int comma = plain.Find(L',');
    if (comma < 0 || !MayBeAngle(plain.Left(comma)) || !MayBeAngle(plain.Mid(comma + 1)))
        return {};
    Angle first = ParseAngle(plain.Left(comma));
    Angle second = ParseAngle(plain.Mid(comma + 1));
    if (!first.degrees || !second.degrees)
        return Refused(FactsFormat(L"“%s”不是一个位置", Printable(text)));
    if (first.axis != Axis::Untold && first.axis == second.axis)
        return Refused(FactsFormat(L"“%s”给出了同一方向的两个角度", Printable(text)));
    if (first.axis == Axis::Latitude || second.axis == Axis::Longitude)
        std::swap(first, second);
    const Place place = {{}, PositionName(*first.degrees, *second.degrees), *first.degrees, *second.degrees};
    if (!place.IsOnTheGlobe())
        return Refused(FactsFormat(L"“%s”不在地球上：经度从 -180 到 180，纬度从 -90 到 90", Printable(text)));
    return TypedPosition{place, {}};
}
