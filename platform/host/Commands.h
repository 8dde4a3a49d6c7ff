// Defining a whole group of commands from a table.
#pragma once

#include "platform/base/Api.h"

// One row of a plug-in's command table. The last field is reserved and 0.
struct QcCmdTable {
    const wchar_t* m_szName;  // as the user types it
    void (*m_pFunction)();    // what it runs
    int m_nReserved;          // 0
};

// Registers a command group with the host and the commands of the first `count` rows of `table` in it; with a null
// table or a count of 0 or less the group is registered without commands. Rows without name or function are passed
// over. The texts are copied. `flags` goes to each command; 0 is an ordinary command. False when the group's name is
// null or empty (nothing is registered then) or a row was passed over.
ORVO_API bool QcDefineCommand(const wchar_t* group, const QcCmdTable* table, int count, int flags);
