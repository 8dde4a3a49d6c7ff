// A list box with one selection. Entries stay in the order in which they are put in (LBS_SORT sorts by character).
#pragma once

#include "platform/window/CWnd.h"

// Indexes count from 0; one out of range gives LB_ERR. Notifications to the parent, for what the user does and only for
// that: LBN_SELCHANGE, LBN_DBLCLK. What the user types selects the next entry that begins with it, as it stands (ASCII
// letters without case) or, where that is Chinese, in pinyin (platform/base/LatinNames.h).
class ORVO_API CListBox : public CWnd {
public:
    int GetCount() const;                              // of entries
    int AddString(const wchar_t* text);                // gives the new entry's index
    int InsertString(int index, const wchar_t* text);  // -1: at the end
    int DeleteString(int index);                       // gives how many are left
    void ResetContent();                               // removes all entries
    int GetText(int index, CString& text) const;       // copies an entry; gives its length in units
    int GetTextLen(int index) const;                   // in units
    int GetCurSel() const;                             // LB_ERR: nothing is selected
    int SetCurSel(int index);                          // -1: nothing, which also gives LB_ERR
    // A number or an address of the caller's beside an entry, 0 at first. Setting gives 0 or more.
    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);

protected:
    DECLARE_MESSAGE_MAP()
};
