// Splitting, formatting, reading and storing of angles.
#include "calendar/OrvoDegree.h"

#include <limits>
#include <numbers>

#include "calendar/TruncateToInt.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"

namespace {

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kMostInt = std::numeric_limits<int>::max();

int Absolute(int value) {
    if (value == kLeastInt)
        return kMostInt;
    return value < 0 ? -value : value;
}

int OneMore(int value) {
    return value < kMostInt ? value + 1 : value;
}

// Degrees and minutes to show where seconds are left out: 30 seconds and more count as a minute.
struct RoundedMinutes {
    RoundedMinutes(int degrees, int minutes, int seconds) : degree(Absolute(degrees)), minute(Absolute(minutes)) {
        if (Absolute(seconds) >= 30)
            minute = OneMore(minute);
        if (minute == 60) {
            minute = 0;
            degree = OneMore(degree);
        }
    }

    int degree;
    int minute;
};

// Two characters. Unlike _wtoi this knows no sign; one behind a blank has no digit behind it anyway.
int ReadDigits(const CString& text) {
    const CString first = text.Left(1);
    return first == L"-" || first == L"+" ? 0 : _wtoi(text);
}

bool HoldsDouble(const QcDtDictItem* item) {
    return item && item->GetType() == QcDtKindDouble;
}

}  // namespace

OrvoDegree::OrvoDegree(const wchar_t* text, bool flag) {
    if (flag)
        return;
    const CString digits(text);
    m_nDegree = ReadDigits(digits.Left(2));
    m_nMinute = ReadDigits(digits.Mid(3, 2));
    m_dValue = m_nDegree + m_nMinute / 60.0;
}

void OrvoDegree::setDegree(const OrvoDegree& other) {
    m_dValue = other.m_dValue;
    m_nDegree = other.m_nDegree;
    m_nMinute = other.m_nMinute;
    m_nSecond = other.m_nSecond;
}

void OrvoDegree::setDegree(int degree, int minute, int second) {
    m_nDegree = degree;
    m_nMinute = minute;
    m_nSecond = second;
    m_dValue = degree + minute / 60.0 + second / 3600.0;
}

void OrvoDegree::setDegree(double value) {
    m_dValue = value;
    m_nDegree = TruncateToInt(value);
    const double minutes = (value - m_nDegree) * 60.0;
    m_nMinute = TruncateToInt(minutes);
    const double seconds = (minutes - m_nMinute) * 60.0;
    m_nSecond = TruncateToInt(0.0 > seconds ? seconds - 0.5 : seconds + 0.5);
    // The one carry there is: none into the degrees, none from -60.
    if (m_nSecond == 60) {
        m_nSecond = 0;
        m_nMinute = OneMore(m_nMinute);
    }
}

void OrvoDegree::getDegree(int& degree, int& minute, int& second) const {
    degree = m_nDegree;
    minute = m_nMinute;
    second = m_nSecond;
}

double OrvoDegree::getRadian() const {
    return m_dValue * std::numbers::pi / 180.0;
}

CString OrvoDegree::TimeFormat(bool withSeconds) const {
    const wchar_t* sign = m_dValue < -0.0001 ? L"-" : L"";
    CString text;
    if (withSeconds) {
        text.Format(L"%s%.2d:%.2d'%.2d\"", sign, Absolute(m_nDegree), Absolute(m_nMinute), Absolute(m_nSecond));
        return text;
    }
    const RoundedMinutes rounded(m_nDegree, m_nMinute, m_nSecond);
    text.Format(L"%s%.2d:%.2d", sign, rounded.degree, rounded.minute);
    return text;
}

CString OrvoDegree::Format(bool withSeconds) const {
    const wchar_t* sign = m_dValue < -1e-10 ? L"-" : L"";
    if (withSeconds)
        return FormatTranslated(L"%s%.3d度%.2d分%.2d秒", sign, Absolute(m_nDegree), Absolute(m_nMinute),
                                Absolute(m_nSecond));
    const RoundedMinutes rounded(m_nDegree, m_nMinute, m_nSecond);
    return FormatTranslated(L"%s%.3d度%.2d分", sign, rounded.degree, rounded.minute);
}

OrvoDegree& OrvoDegree::operator=(double value) {
    setDegree(value);
    return *this;
}

OrvoDegree& OrvoDegree::operator=(const OrvoDegree& other) {
    setDegree(other);
    return *this;
}

const OrvoDegree& OrvoDegree::operator+(double other) {
    setDegree(m_dValue + other);
    return *this;
}

const OrvoDegree& OrvoDegree::operator+(const OrvoDegree& other) {
    setDegree(m_dValue + other.m_dValue);
    return *this;
}

const OrvoDegree& OrvoDegree::operator-(double other) {
    setDegree(m_dValue - other);
    return *this;
}

const OrvoDegree& OrvoDegree::operator-(const OrvoDegree& other) {
    setDegree(m_dValue - other.m_dValue);
    return *this;
}

const OrvoDegree& OrvoDegree::operator*(double factor) {
    setDegree(m_dValue * factor);
    return *this;
}

const OrvoDegree& OrvoDegree::operator/(double divisor) {
    setDegree(m_dValue / divisor);
    return *this;
}

bool OrvoDegree::SaveToXml(QcDtDictItem* item) const {
    if (!HoldsDouble(item))
        return false;
    item->SetDoubleValue(m_dValue);
    return true;
}

bool OrvoDegree::ReadFromXml(QcDtDictItem* item) {
    if (!HoldsDouble(item))
        return false;
    setDegree(item->GetDoubleValue());
    return true;
}
