// The lists of groups and commands in their order of definition; there are few of both, so a look-up walks them.
#include "platform/host/CommandStack.h"

#include <algorithm>
#include <vector>

struct AcEdCommandStack::Groups {
    struct Group {
        CString name;
        std::vector<AcEdCommand> commands;
    };

    // `Self` is Groups or const Groups.
    template <class Self>
    static auto* Find(Self& self, const wchar_t* name) {
        for (auto& group : self.all)
            if (group.name.CompareNoCase(name) == 0)
                return &group;
        return static_cast<decltype(self.all.data())>(nullptr);
    }

    std::vector<Group> all;
};

AcEdCommandStack::AcEdCommandStack() : m_groups(std::make_unique<Groups>()) {}

AcEdCommandStack::~AcEdCommandStack() = default;

Acad::ErrorStatus AcEdCommandStack::addGroup(const wchar_t* group) {
    if (!group || !*group)
        return Acad::eInvalidInput;
    if (!hasGroup(group))
        m_groups->all.push_back({CString(group), {}});
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const wchar_t* group, const wchar_t* name, int flags,
                                               AcRxFunctionPtr function) {
    if (!name || !*name || !function || addGroup(group) != Acad::eOk)
        return Acad::eInvalidInput;
    AcEdCommand command{CString(name), function, flags};
    auto& commands = Groups::Find(*m_groups, group)->commands;
    const auto same = std::find_if(commands.begin(), commands.end(), [&command](const AcEdCommand& other) {
        return other.name.CompareNoCase(command.name) == 0;
    });
    if (same == commands.end())
        commands.push_back(std::move(command));
    else
        *same = std::move(command);
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const wchar_t* group) {
    const auto* found = Groups::Find(*m_groups, group);
    if (!found)
        return Acad::eKeyNotFound;
    m_groups->all.erase(m_groups->all.begin() + (found - m_groups->all.data()));
    return Acad::eOk;
}

void AcEdCommandStack::forget(const std::function<bool(AcRxFunctionPtr)>& isGone) {
    for (Groups::Group& group : m_groups->all)
        std::erase_if(group.commands, [&isGone](const AcEdCommand& command) { return isGone(command.function); });
}

bool AcEdCommandStack::hasGroup(const wchar_t* group) const {
    return Groups::Find(*m_groups, group) != nullptr;
}

int AcEdCommandStack::groupCount() const {
    return static_cast<int>(m_groups->all.size());
}

CString AcEdCommandStack::groupName(int index) const {
    return index >= 0 && index < groupCount() ? m_groups->all[static_cast<std::size_t>(index)].name : CString();
}

int AcEdCommandStack::commandCount(const wchar_t* group) const {
    const auto* found = Groups::Find(*m_groups, group);
    return found ? static_cast<int>(found->commands.size()) : 0;
}

const AcEdCommand* AcEdCommandStack::commandAt(const wchar_t* group, int index) const {
    if (index < 0 || index >= commandCount(group))
        return nullptr;
    return &Groups::Find(*m_groups, group)->commands[static_cast<std::size_t>(index)];
}

const AcEdCommand* AcEdCommandStack::lookupCmd(const wchar_t* name) const {
    for (const auto& group : m_groups->all) {
        for (const AcEdCommand& command : group.commands)
            if (command.name.CompareNoCase(name) == 0)
                return &command;
    }
    return nullptr;
}

// Never destroyed: a plug-in may still ask for it while the process ends.
AcEdCommandStack& HostCommandStack() {
    static auto* const stack = new AcEdCommandStack;
    return *stack;
}
