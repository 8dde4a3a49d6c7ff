// Angles and times of day: a decimal number of degrees (or hours) beside its split into whole degrees, minutes and
// seconds.
// Why: docs/decisions/calendar.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class QcDtDictItem;

// A value in decimal degrees, or in decimal hours for a time of day. The decimal value is the master: arithmetic works
// on it and splits the result anew; only setDegree(int, int, int) takes a split as given.
//
// A split truncates degrees and minutes toward zero and rounds seconds to the nearest, halves away from zero; all three
// bear the sign of the value. Seconds that round up to 60 become 0 and add a minute, and that is the only carry: the
// minute may show 60, and seconds of -60 stay. What does not fit an int saturates (an infinite value too), and a value
// that is not a number splits into zeros; the value itself is always kept as it is.
class ORVO_API OrvoDegree {
public:
    // All zero.
    OrvoDegree() = default;
    // As setDegree.
    OrvoDegree(int degree, int minute, int second) { setDegree(degree, minute, second); }
    OrvoDegree(double value) { setDegree(value); }
    OrvoDegree(const OrvoDegree& other) = default;
    // Reads DD:MM when `flag` is false: degrees from the first two characters, minutes from the two that begin at index
    // 3, whatever stands between; no sign is known (one reads as 0) and no range is checked. A null or short text gives
    // 0 for what is missing. With `flag` true nothing is read, and the angle is zero.
    OrvoDegree(const wchar_t* text, bool flag);

    // Copies the value and the split as they stand.
    void setDegree(const OrvoDegree& other);
    // Keeps the three numbers as they are, without bringing them into range; the value is their sum in degrees.
    void setDegree(int degree, int minute, int second);
    // Keeps the value and splits it.
    void setDegree(double value);

    // The split as it stands.
    void getDegree(int& degree, int& minute, int& second) const;
    // The value, in decimal degrees or hours.
    void getDegree(double& value) const { value = m_dValue; }
    double getDegree() const { return m_dValue; }
    // The value in radians, where it is one of degrees.
    double getRadian() const;

    // As a clock shows it: 08:30'00" with seconds, or 08:30, where 30 seconds and more count as a further minute.
    // Values below -0.0001 get a minus sign.
    CString TimeFormat(bool withSeconds) const;
    // As an angle: 121度30分00秒, or 121度30分 with the same rounding. Values below -1e-10 get a minus sign. The words
    // pass through the language switch.
    CString Format(bool withSeconds) const;

    // As setDegree.
    OrvoDegree& operator=(double value);
    OrvoDegree& operator=(const OrvoDegree& other);

    // These change this angle, in spite of their names, and give it back: a + b is what a += b is elsewhere. Dividing
    // by zero gives an infinity or what is not a number.
    const OrvoDegree& operator+(double other);
    const OrvoDegree& operator+(const OrvoDegree& other);
    const OrvoDegree& operator-(double other);
    const OrvoDegree& operator-(const OrvoDegree& other);
    const OrvoDegree& operator*(double factor);
    const OrvoDegree& operator/(double divisor);

    // To and from an item of the double kind, which holds the decimal value alone. False, with nothing changed, for
    // null and for an item of another kind.
    bool SaveToXml(QcDtDictItem* item) const;
    bool ReadFromXml(QcDtDictItem* item);

private:
    double m_dValue = 0.0;
    int m_nDegree = 0;
    int m_nMinute = 0;
    int m_nSecond = 0;
};
