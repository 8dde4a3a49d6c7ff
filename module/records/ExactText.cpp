// The search for an exact text among the entries of a list box or combo box, written once for both.
#include "records/ExactText.h"

namespace {

void GetEntry(const CListBox& control, int index, CString& text) {
    control.GetText(index, text);
}

void GetEntry(const CComboBox& control, int index, CString& text) {
    control.GetLBText(index, text);
}

template <class Control>
int FindEntry(const Control& control, const CString& text) {
    const int count = control.GetCount();
    for (int i = 0; i < count; ++i) {
        CString entry;
        GetEntry(control, i, entry);
        if (entry == text)
            return i;
    }
    return -1;
}

template <class Control>
bool SelectEntry(Control& control, const CString& text) {
    const int index = FindEntry(control, text);
    if (index == -1)
        return false;
    control.SetCurSel(index);
    return true;
}

}  // namespace

int FindString(const CListBox& control, const CString& text) {
    return FindEntry(control, text);
}

int FindString(const CComboBox& control, const CString& text) {
    return FindEntry(control, text);
}

bool SelectString(CListBox& control, const CString& text) {
    return SelectEntry(control, text);
}

bool SelectString(CComboBox& control, const CString& text) {
    return SelectEntry(control, text);
}
