// What the dialogs of the settings share: controls for standard, place, day and times, filled from g_SunDataSet.
// Why: docs/decisions/settings.md
#pragma once

#include "calendar/OrvoDate.h"
#include "calendar/OrvoDegree.h"
#include "controls/OrvoTimeEdit.h"
#include "platform/base/Api.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CDateTimeCtrl.h"
#include "platform/window/CSpinButtonCtrl.h"
#include "zone/OrvoPlaceDlg.h"

// The second base of a dialog. The dialog attaches those of the controls that its template has; the others are passed
// over wherever they are filled.
class ORVO_API OrvoDataSetDlgBase {
public:
    // Without a place dialog.
    OrvoDataSetDlgBase();
    virtual ~OrvoDataSetDlgBase();
    OrvoDataSetDlgBase(const OrvoDataSetDlgBase&) = delete;
    OrvoDataSetDlgBase& operator=(const OrvoDataSetDlgBase&) = delete;

    // Fills the controls. A time that no clock shows leaves its edit with the text that it had, or with its default
    // text when it had none. For the dialog of the standards (true) day and times are the current standard's; for
    // others they are the data set's own, and the place dialog is asked for the data set's place, with a message when
    // that is unknown or there are no places at all.
    void InitDlgBaseData(bool standardsMode);
    // Shows the standards' names, the current one selected.
    void RefreshStdCombo();

    // Makes a new place dialog over a parent, and keeps it until this object goes or makes another. The one before
    // stays as it is, nobody's any more, on purpose: somebody may hold it still.
    OrvoPlaceDlg* CreatPlaceDlg(CWnd* parent);
    // The place dialog's FindZone and GetCurZone. Without a place dialog: false, and a default record.
    bool FindPlaceDlgZone(CString name, OrvoZoneRecord& zone);
    OrvoZoneRecord GetPlaceDlgCurZone();
    // Runs the place dialog, 0 where there is none; on IDOK its place becomes the data set's. Each run is followed by a
    // fresh place dialog over the same parent. Gives the dialog's result.
    INT_PTR PlaceDlgDoModal();

protected:
    CComboBox m_comboStd;                 // the standards
    CComboBox m_comboPlace;               // the analysed places
    CComboBox m_comboTerm;                // the solar terms
    CDateTimeCtrl m_datePicker;           // the day
    OrvoTimeEdit m_editStart;             // the start of the span
    OrvoTimeEdit m_editEnd;               // the end of the span
    CSpinButtonCtrl m_spinSpace;          // the step, 1 to 60 minutes
    OrvoPlaceDlg* m_pPlaceDlg = nullptr;  // this object's own; null before there is one

    // Shows a date in the picker, as far as it is one, and its solar term in the combo box.
    void ShowDate(OrvoDate& date);
    // Selects the solar term that falls on a date; nothing on other days.
    void ShowSolarTerm(OrvoDate& date);
    // Shows a time of day in an edit and marks it modified. A time that no clock shows leaves the edit unmodified, with
    // its default text.
    static void ShowTime(OrvoTimeEdit& edit, const OrvoDegree& time);
    // Shows a text in a box over the dialog that this is a base of, else over the host's window.
    void ShowMessage(const wchar_t* text);

private:
    void FillPlaces();
    void CheckPlace();
    void ShowTimes(const OrvoDegree& start, const OrvoDegree& end);
};
