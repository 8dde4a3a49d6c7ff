// The current settings of sunlight analysis: place, day, span, step, analysed places and the list of standards.
//
// Dictionary form (see SaveSunDataSetDict), in SunSet.xml or in any dictionary of a caller's: "CUR_SUNSETDATA" with one
// item per setting, one dictionary per standard named after it, and "CUR_SUNSETSTD", the current standard's name.
// Why: docs/decisions/settings.md
#pragma once

#include "calendar/OrvoDate.h"
#include "calendar/OrvoDegree.h"
#include "containers/QcPDList.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "settings/OrvoStdSet.h"
#include "zone/OrvoCity.h"
#include "zone/OrvoZoneRecord.h"

class QcDtDictionary;

// The data set is itself the current place, and goes wherever a zone record is expected. It owns its standards.
//
// The day of an analysis is the current standard's (CurDate); m_date is the settings' own and is what the dictionary
// form keeps under "CUR_DATA". The whole-number copies of times and step are what texts show.
class ORVO_API OrvoDataSet : public OrvoZoneRecord {
public:
    // Every field at its default, told behind it; no standards and no analysed places.
    OrvoDataSet();
    // Copies every field and both lists; standards are copied as OrvoStdSet copies, with default colours.
    OrvoDataSet(const OrvoDataSet& other);
    OrvoDataSet& operator=(const OrvoDataSet& other);

    // Name of the current place, to read or to change.
    CString& CurCity() { return m_strCurCity; }

    // Index of the current standard, from 0; any number is taken, and one that the list does not have stands for none.
    int GetCurStdIndex() const { return m_nCurStd; }
    void SetCurStdIndex(int index) { m_nCurStd = index; }

    // The standard at an index. For an index that the list does not have, a spare one at its defaults, which is never
    // saved and is put back to its defaults at each such call.
    OrvoStdSet& GetStd(int index);
    // As GetStd, at the current index.
    OrvoStdSet& CurStd() { return GetStd(m_nCurStd); }
    // The current standard's date, on purpose, and not m_date.
    OrvoDate& CurDate() { return CurStd().m_date; }

    // Index of the first standard of that name, with regard to case; -1 when there is none.
    int FindStd(const wchar_t* name) const;
    // Appends a copy of `from` (with default colours) and gives it; the data set owns it.
    OrvoStdSet* NewStd(const OrvoStdSet& from);
    // Deletes a standard; an index that the list does not have does nothing.
    void RemoveStd(int index);

    // Writes the dictionary form in place of everything that `dict` held. Two standards of one name share one
    // dictionary, in which the later one stays. False for null, or when "CUR_SUNSETDATA" cannot be made.
    bool SaveSunDataSetDict(QcDtDictionary* dict) const;
    // Empties both lists, then reads the dictionary form; an item that is missing or of another kind leaves its field
    // alone. False for null or a dictionary without "CUR_SUNSETDATA", where everything but the lists stays.
    bool LoadSunDataSetDict(QcDtDictionary* dict);

    // The names of the places already analysed, with '-' between them.
    CString JoinCities() const;

    // One line that tells standard, place, day, span and step.
    CString GetNoteString();

    CString m_strCurCity;            // "北京"
    OrvoDegree m_dgStartTime;        // start of the analysed span, decimal hours; 9
    OrvoDegree m_dgEndTime;          // end of the analysed span, decimal hours; 15
    double m_dSpace;                 // step, minutes; 10.0
    OrvoDate m_date;                 // the settings' own day; today
    int m_nCurStd;                   // index of the current standard; 0
    QcPDList<OrvoCity> m_listCity;   // places already analysed
    int m_nStartHour;                // start time in whole numbers; 9
    int m_nStartMinute;              // 0
    int m_nEndHour;                  // end time in whole numbers; 15
    int m_nEndMinute;                // 0
    int m_nSpace;                    // step in whole minutes; 10
    QcPDList<OrvoStdSet> m_listStd;  // the standards; empty until a dictionary is read or NewStd is called

private:
    void SaveSettings(QcDtDictionary& settings) const;
    void SaveStandards(QcDtDictionary& root) const;
    void LoadSettings(QcDtDictionary& settings);
    void LoadStandards(QcDtDictionary& root);

    OrvoStdSet m_stdSpare;
};

// The settings that every analysis shares: filled from SunSet.xml when the module is initialised, written back when it
// is unloaded. Used on the user-interface thread only.
extern ORVO_API OrvoDataSet g_SunDataSet;
