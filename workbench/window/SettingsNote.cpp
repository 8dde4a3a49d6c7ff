// Exchanges in the module's note what it does not translate.
#include "workbench/window/SettingsNote.h"

#include "facts/DayTerms.h"
#include "facts/DayText.h"
#include "facts/Settings.h"
#include "platform/base/Language.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/view/PlaceWords.h"

namespace {

// What stands between the same marks, so that a standard's name is left alone.
void Exchange(CString& note, const CString& before, const CString& from, const CString& to, const CString& after) {
    if (!from.IsEmpty())
        note.Replace((before + from + after).GetString(), (before + to + after).GetString());
}

}  // namespace

CString SettingsNote() {
    CString note = g_SunDataSet.GetNoteString();
    if (g_strCurLanguage == L"Chs")
        return note;
    const Settings settings = CurrentSettings();
    Exchange(note, L"", DayInWords(settings.ownDay), FromUtf8(IsoDay(settings.ownDay)), L"");
    Exchange(note, L": ", settings.placeName, NameInWords(settings.placeName), L";");
    bool isTermDay = false;
    const int index =
        OrvoDate(settings.ownDay.year, settings.ownDay.month, settings.ownDay.day).GetSTermIndex(isTermDay);
    const OrvoSTerm* term = isTermDay ? g_SunDataSet.CurDate().GetTerm(index) : nullptr;
    if (term)
        Exchange(note, L" (", term->m_strName, Say(term->m_strName), L") ");
    return note;
}
