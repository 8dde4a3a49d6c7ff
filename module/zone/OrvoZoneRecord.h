// One city's position, and its way into and out of the zone tree.
//
// The zone tree is the dictionary g_dictSunZone, the content of zone.xml: a dictionary per province (attribute
// type="PROVINCE"), in it a text item per city (type="CITY", "longitude" and "latitude" in decimal degrees as text).
// A city's comment is the item's text; the zone editor also keeps one in the attribute "comment".
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A value class. Positions stay the texts that were read, so that a record that is written back changes nothing;
// every numeric use parses them anew (_wtof: leading blanks skipped, 0.0 where there is no number). East and north
// are positive; no range is checked.
class ORVO_API OrvoZoneRecord {
public:
    // City and province "未定义" in the user's language, position 0.0 / 0.0, no comment.
    OrvoZoneRecord();
    OrvoZoneRecord(const OrvoZoneRecord& other) = default;
    OrvoZoneRecord& operator=(const OrvoZoneRecord& other) = default;

    // Leaves the record as it is, on purpose: whoever wants the defaults makes a new record.
    void Reset();

    // Longitude and latitude in decimal degrees; 0.0 for a text that is no number.
    double GetTotalLong() const;
    double GetTotalLat() const;

    // The position split into whole degrees (towards zero) and minutes rounded half away from zero. Minutes may reach
    // 60, which is not carried; both carry the sign. Values beyond int saturate.
    void GetLongitude(int& degree, int& minute) const;
    void GetLatitude(int& degree, int& minute) const;

    // The split position as a text such as " 39度54分".
    void FormatLongitude(CString& text) const;
    void FormatLatitude(CString& text) const;

    // Writes the record into g_dictSunZone (not to disk): finds or adds the province and the city in it, replaces the
    // city's position and text, and leaves its other attributes alone. False, when another kind of item bears the
    // province's or the city's name.
    bool SaveToXml() const;

    // Fills the record from g_dictSunZone by exact names; takes constant time. False, with the record unchanged, when
    // there is no such province, the item of that name is no dictionary, or it has no such city.
    bool ReadFromXml(const CString& province, const CString& city);

    // Records are the same when their cities' names are, wherever those lie. There is no order among records: sorting
    // them leaves them as they stand.
    bool operator==(const OrvoZoneRecord& other) const;
    bool operator!=(const OrvoZoneRecord& other) const;
    bool operator<(const OrvoZoneRecord& other) const;
    bool operator>(const OrvoZoneRecord& other) const;

    CString m_strCity;       // its name
    CString m_strProvince;   // the name of its province
    CString m_strLongitude;  // decimal degrees, east positive
    CString m_strLatitude;   // decimal degrees, north positive
    CString m_strComment;    // for people
};
