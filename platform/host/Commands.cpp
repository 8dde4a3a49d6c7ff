// A table of commands becomes a group of the host's command stack.
#include "platform/host/Commands.h"

#include "platform/host/RxRegistry.h"

bool QcDefineCommand(const wchar_t* group, const QcCmdTable* table, int count, int flags) {
    AcEdCommandStack& stack = HostCommandStack();
    if (stack.addGroup(group) != Acad::eOk)
        return false;
    bool complete = true;
    for (int i = 0; table && i < count; ++i)
        if (stack.addCommand(group, table[i].m_szName, flags, table[i].m_pFunction) != Acad::eOk)
            complete = false;
    return complete;
}
