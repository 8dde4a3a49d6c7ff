// A sunlight standard: one named set of rules that says how sunlight on a window is counted.
//
// Dictionary form (see SaveToDict): a dictionary named after the standard, with the attributes "localname", "date"
// (OrvoDate::GetDateXmlString) and "type" = "SunStd", holding the colour table "SUNCOLORTABLE" and one item per field.
// Why: docs/decisions/settings.md
#pragma once

#include "calendar/OrvoColorTable.h"
#include "calendar/OrvoDate.h"
#include "calendar/OrvoDegree.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

class QcDtDictionary;

// Values of OrvoStdSet::m_nMaxContinue: what is compared with the time that is asked for.
enum OrvoSunCount {
    ORVO_COUNT_TOTAL = 0,    // all periods that count, together
    ORVO_COUNT_LONGEST = 1,  // the longest one
};
// Values of OrvoStdSet::m_nBJTime: what clock the span is told by.
enum OrvoTimeBase {
    ORVO_TRUE_SOLAR_TIME = 0,  // the sun is highest at 12
    ORVO_BEIJING_TIME = 1,     // UTC+8
};
// Values of OrvoStdSet::m_nValidSunType: GetShanghaiValidTime, or the standard's own minimum angle.
enum OrvoValidSun {
    ORVO_SUN_SHANGHAI = 0,  // by the direction that the window faces
    ORVO_SUN_CUSTOM = 1,    // by m_nMinValidAngle
};
// Values of OrvoStdSet::m_nTotalTimeType: which periods a total adds up.
enum OrvoTotalTime {
    ORVO_TOTAL_ALL = 0,            // every one that counts
    ORVO_TOTAL_LONGEST_TWO = 1,    // the two longest
    ORVO_TOTAL_LONGEST_THREE = 2,  // the three longest
};

// A value class, save for the colours (see the assignment). Nothing is validated. Behind each field: what it says, and
// its default.
class ORVO_API OrvoStdSet {
public:
    // Every field at its default: Reset's, zero times and the colour table's own colours.
    OrvoStdSet();
    // As assignment does: the new standard has default colours, not those of `other`.
    OrvoStdSet(const OrvoStdSet& other);
    // Copies every field but the colours, which stay the target's own, on purpose. The date takes year, month and day
    // and refills its terms (OrvoDate's assignment).
    OrvoStdSet& operator=(const OrvoStdSet& other);

    // Name, rules and date to their defaults; start time, end time and colours stay as they are.
    void Reset();

    // Writes the standard into its dictionary, whose children are dropped first. The caller has to have marked the
    // dictionary with "type" = "SunStd" (in any case of letters): one without the mark is left empty, and that counts
    // as success. False for null, and when an item of another kind bears a field's key, where the writing stops.
    bool SaveToDict(QcDtDictionary* dict) const;

    // Reads the standard from its dictionary. False, with nothing changed, for null or a dictionary without the mark.
    // A missing item leaves its field alone; an item of another kind than its field ends the reading with false, and
    // what was read before it stays. The name becomes the dictionary's.
    bool ReadFromDict(QcDtDictionary* dict);

    CString m_strName;          // unique within a list of standards; "上海标准"
    int m_nFullWin;             // nonzero: the whole window must be lit, 0: the midpoint of its sill; 1
    int m_nLimitWidth;          // nonzero: the window's width counts within [m_dMinWidth, m_dMaxWidth]; 0
    int m_nMaxContinue;         // OrvoSunCount; ORVO_COUNT_LONGEST
    int m_nBJTime;              // OrvoTimeBase; ORVO_TRUE_SOLAR_TIME
    int m_nAllMaxContinueTime;  // nonzero: periods longer than m_nMinContinueTime are accumulated; 0
    double m_dMaxWidth;         // millimetres; 2400.0
    double m_dMinWidth;         // millimetres; 1200.0
    double m_dSpace;            // step of the analysis, minutes; 10.0
    int m_nValidSunType;        // OrvoValidSun; ORVO_SUN_SHANGHAI
    int m_nMinValidAngle;       // degrees between the ray's plan and the wall from which on the sun counts; 0
    int m_nMinValidTime;        // shortest period that counts, minutes; 0
    int m_nTotalTimeType;       // OrvoTotalTime; ORVO_TOTAL_ALL
    int m_nMinMaxValidTime;     // least length of a longest period, minutes; 0
    int m_nMinContinueTime;     // threshold of m_nAllMaxContinueTime, minutes; 60
    OrvoDegree m_dgStartTime;   // start of the analysed span, decimal hours; 0
    OrvoDegree m_dgEndTime;     // end of the analysed span, decimal hours; 0
    OrvoDate m_date;            // day of the analysis; 12月22日
    OrvoColorTable m_colors;    // colours of the results
};
