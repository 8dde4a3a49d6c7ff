// A combo box: a list that drops down, with a text that can be typed (CBS_DROPDOWN) or not (CBS_DROPDOWNLIST).
#pragma once

#include "platform/window/CWnd.h"

// Indexes count from 0; one out of range gives CB_ERR. Notifications to the parent, for what the user does and only for
// that: CBN_SELCHANGE (also when the selected entry is chosen again), CBN_EDITCHANGE. Without an edit, SetWindowText
// has no effect.
class ORVO_API CComboBox : public CWnd {
public:
    int GetCount() const;                              // of entries
    int AddString(const wchar_t* text);                // gives the new entry's index
    int InsertString(int index, const wchar_t* text);  // -1: at the end
    int DeleteString(int index);                       // the selected one: nothing is selected then
    void ResetContent();                               // removes all entries
    int GetLBText(int index, CString& text) const;     // copies an entry; gives its length in units
    int GetLBTextLen(int index) const;                 // in units
    int GetCurSel() const;                             // CB_ERR: nothing is selected
    int SetCurSel(int index);                          // -1: nothing, which also gives CB_ERR
    // A number or an address of the caller's beside an entry, 0 at first. Setting gives 0 or more.
    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);

protected:
    DECLARE_MESSAGE_MAP()
};
