// One of the 24 solar terms, as a row of a date's tables.
// Why: docs/decisions/calendar.md
#pragma once

#include "calendar/DateText.h"
#include "calendar/OrvoDegree.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class QcDtDictItem;

// Dictionary form: an item with the attributes type="Sterm", name, localname, date, dgtime and dglat, in this order.
class ORVO_API OrvoSTerm {
public:
    // Empty texts and zero angles.
    OrvoSTerm() = default;
    // With a name; nothing else.
    OrvoSTerm(const CString& name) : m_strName(name) {}

    // The month and the day of m_strDate. The text is read once and again only when it has changed since.
    MonthDay GetMonthDay() const;

    // Writes all fields into the item, the name twice. False, with nothing written, for null and for an item whose
    // attribute "type" is not "Sterm" (in any case of letters).
    bool SaveToXml(QcDtDictItem* item) const;
    // Reads all fields, the name from "localname"; what is missing reads as an empty text or 0. False, with nothing
    // changed, in the same cases.
    bool ReadFromXml(QcDtDictItem* item);

    CString m_strName;    // such as 冬至; kept as built in or read, to be translated where it is shown
    CString m_strDate;    // M月D日, such as 12月22日
    OrvoDegree m_dgTime;  // equation of time on that day (true less mean solar time), decimal hours
    OrvoDegree m_dgLat;   // declination of the sun on that day, decimal degrees, negative in the south

private:
    mutable CString m_strParsed;  // the text that m_parsed was read from
    mutable MonthDay m_parsed;
};
