// The steps of a change: lock and read, merge, save, and the sentences about it.
#include "facts/SettingsChange.h"

#include <utility>

#include "facts/FactsTexts.h"
#include "frame/ConfigFiles.h"
#include "platform/base/DictionaryFault.h"
#include "platform/base/PlainText.h"
#include "platform/base/Support.h"
#include "settings/OrvoDataSet.h"

namespace {

const wchar_t* const kFile = L"SunSet.xml";

CString ConflictWords(const SettingsConflict& conflict) {
    if (conflict.standard.IsEmpty())
        return FactsText(conflict.label);
    const CString name = Printable(conflict.standard);
    return conflict.label ? FactsFormat(L"标准“%s”的%s", name, FactsText(conflict.label))
                          : FactsFormat(L"标准“%s”", name);
}

void TellConflicts(const std::vector<SettingsConflict>& conflicts, std::vector<CString>& messages) {
    CString words;
    for (const SettingsConflict& conflict : conflicts)
        words += words.IsEmpty() ? ConflictWords(conflict) : FactsText(L"、") + ConflictWords(conflict);
    if (!words.IsEmpty())
        messages.push_back(FactsFormat(L"另一个程序也改动了：%s。以这里后保存的为准。", words));
}

void TakeIn(const CString& path, OthersChanges& others, std::vector<CString>& messages) {
    SettingsFile& file = SharedSettingsFile();
    const bool wasSound = file.IsSound();
    if (file.TakeIn(g_SunDataSet, path, others) == SettingsFile::State::Sound || !wasSound)
        return;
    const CString fault = DictionaryFaultText(path);
    messages.push_back(
        FactsFormat(L"%s 在此期间损坏（%s）；保存时由这里的设置替换，损坏的文件留作 .refused-1（或下一个空号）。",
                    Printable(path), fault.IsEmpty() ? FactsText(L"其中没有当前设置") : Printable(fault)));
}

}  // namespace

bool SettingsChange::Begin() {
    FindFile(kFile, m_path);
    if (m_lock.Take(m_path, kLockPatience) == FileLock::Taken::Busy) {
        m_messages.push_back(FactsFormat(L"设置没有改动：另一个程序正锁着 %s。请稍后再试。", Printable(m_path)));
        return false;
    }
    TakeIn(m_path, m_others, m_messages);
    return true;
}

bool SettingsChange::Save() {
    const std::vector<SettingsConflict> conflicts = m_others.ConflictsWith(g_SunDataSet);
    if (!SaveSunSet()) {
        // Why the file that is there cannot be written has been told by the platform.
        m_messages.push_back(m_path.IsEmpty() ? FactsText(L"设置没有保存：找不到 SunSet.xml。原来的设置不变。")
                                              : FactsText(L"设置没有保存，原来的设置不变。"));
        return false;
    }
    TellConflicts(conflicts, m_messages);
    SharedSettingsFile().Remember(g_SunDataSet, m_path);
    return true;
}

std::vector<CString> SettingsChange::TakeMessages() {
    return std::exchange(m_messages, {});
}

void RememberSavedSettings() {
    CString path;
    FindFile(kFile, path);
    SharedSettingsFile().Remember(g_SunDataSet, path);
}

std::vector<CString> TakeInAtTheEnd() {
    CString path;
    OthersChanges others;
    std::vector<CString> messages;
    FindFile(kFile, path);
    TakeIn(path, others, messages);
    TellConflicts(others.ConflictsWith(g_SunDataSet), messages);
    return messages;
}
