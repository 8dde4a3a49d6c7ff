// Telling the current standard's rules on the host's command line.
#include "workbench/commands/StandardNotice.h"

#include "facts/SettingsForm.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "facts/StandardWords.h"
#include "platform/host/CommandLine.h"
#include "platform/host/CommandStack.h"
#include "platform/window/HostFrame.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"

namespace {

// The module's command, whose dialog opens the one of the standards.
const wchar_t* const kSettingsCommand = L"QSetSunPrec";

// Without anybody who could see it there was no dialog.
bool CanBeShown() {
    CString reason;
    return PrepareWindows(reason);
}

// The standards, and which is the current one.
std::unique_ptr<QcDtDictionary> StandardsNow() {
    std::unique_ptr<QcDtDictionary> form = FormOf(g_SunDataSet);
    form->RemoveItem(form->FindItem(L"CUR_SUNSETDATA"));
    return form;
}

}  // namespace

StandardNotice::StandardNotice(const AcEdCommand& command)
    : m_isForSettings(command.name.CompareNoCase(kSettingsCommand) == 0), m_before(StandardsNow()) {}

void StandardNotice::Tell() const {
    const bool isChanged = !IsSameItem(m_before.get(), StandardsNow().get());
    if (!isChanged && !(m_isForSettings && CanBeShown()))
        return;
    const CString line = HasCurrentStandard(g_SunDataSet) ? RulesInOneLine(StandardOf(g_SunDataSet.CurStd()))
                                                          : Say(L"当前标准：无（设置没有选定标准）");
    acutPrintf(L"%s\n", line);
}
