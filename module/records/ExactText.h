// Finding and selecting an entry of a list or combo box by its exact text. The controls' own search is laxer: it takes
// beginnings, and passes over the case of letters.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CListBox.h"

// The index of the first entry whose whole text equals `text`, character by character; -1 when there is none.
ORVO_API int FindString(const CListBox& control, const CString& text);
ORVO_API int FindString(const CComboBox& control, const CString& text);

// Selects that entry. False, with the selection as it was, when there is none. The control's parent is not notified.
ORVO_API bool SelectString(CListBox& control, const CString& text);
ORVO_API bool SelectString(CComboBox& control, const CString& text);
