// Moving data between a dialog's members and its controls, with the checks and messages that a user meets when an entry
// is refused. What a run of that is stands beside UpdateData.
#pragma once

#include "platform/window/CWnd.h"

// Attaches a member to its control, once.
ORVO_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
// Texts of edits. Numbers are read whole: blanks around them are passed over, anything else is refused with "请键入一个
// 整数。" or "请键入一个数字。"; they are shown with up to 15 digits and a point.
ORVO_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
ORVO_API void DDX_Text(CDataExchange* exchange, int id, int& value);
ORVO_API void DDX_Text(CDataExchange* exchange, int id, double& value);
// Check boxes: 0 or 1.
ORVO_API void DDX_Check(CDataExchange* exchange, int id, int& value);
// Radio buttons: the index of the checked one counted from the first of the group, which the id names; -1 for none.
ORVO_API void DDX_Radio(CDataExchange* exchange, int id, int& value);
// The selected entry of a combo box; -1 for none.
ORVO_API void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
// A range check, to be called right after the value was exchanged. It checks entries, not what is shown; both ends are
// allowed. Refused with "请键入一个介于 %1 和 %2 之间的数字。".
ORVO_API void DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double minimum, double maximum);
