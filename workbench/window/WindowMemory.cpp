// Reads and writes the file, entry by entry: what is not as it should be is left out.
#include "workbench/window/WindowMemory.h"

#include <QByteArray>
#include <algorithm>
#include <filesystem>

#include "platform/base/DictionaryFault.h"
#include "platform/base/FileLock.h"
#include "platform/base/Message.h"
#include "platform/base/PlainText.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "workbench/Texts.h"

namespace {

constexpr const wchar_t* kRoot = L"ORVO_WINDOW";
constexpr int kLongestPlace = 100'000;
constexpr int kMostFields = 100;
constexpr int kLongestField = 10'000;

CString FilePath() {
    return UserFolder() + L"/window.xml";
}

CString TextOf(const QcDtDictionary& dictionary, const wchar_t* name) {
    const QcDtDictItem* const item = dictionary.FindItem(name);
    return item ? item->GetStringValue() : CString();
}

void SetText(QcDtDictionary& dictionary, const wchar_t* name, const CString& value) {
    if (QcDtDictItem* const item = dictionary.FindOrAddItem(name, QcDtKindString))
        item->SetStringValue(value);
}

std::string BytesOf(const QcDtDictionary& dictionary, const wchar_t* name) {
    const CString text = TextOf(dictionary, name);
    if (text.GetLength() > kLongestPlace)
        return {};
    return QByteArray::fromBase64(QByteArray::fromStdString(ToUtf8(text.View()))).toStdString();
}

void SetBytes(QcDtDictionary& dictionary, const wchar_t* name, const std::string& bytes) {
    SetText(dictionary, name, FromUtf8(QByteArray::fromStdString(bytes).toBase64().toStdString()));
}

RememberedWindow Read(const QcDtDictionary& file) {
    RememberedWindow remembered;
    remembered.place = BytesOf(file, L"place");
    remembered.panels = BytesOf(file, L"panels");
    if (const CString language = TextOf(file, L"language"); language == L"zh" || language == L"en")
        remembered.language = language;
    remembered.isParallel = TextOf(file, L"parallel") == L"1";
    remembered.isSunny = TextOf(file, L"sun") == L"1";
    remembered.isBeijing = TextOf(file, L"beijing") == L"1";
    remembered.folder = TextOf(file, L"folder");
    if (const QcDtDictionary* const recent = file.FindDict(L"recent"))
        for (int i = 0; i < recent->GetCount() && remembered.recent.size() < kMostRecentFiles; ++i)
            if (const CString path = recent->GetItem(i)->GetStringValue(); !path.IsEmpty())
                remembered.recent.push_back(path);
    if (const QcDtDictionary* const fields = file.FindDict(L"analysis"))
        for (int i = 0; i < std::min(fields->GetCount(), kMostFields); ++i)
            if (const QcDtDictItem& field = *fields->GetItem(i);
                field.GetType() == QcDtKindString && field.GetStringValue().GetLength() <= kLongestField)
                remembered.fields.emplace_back(field.GetName(), field.GetStringValue());
    return remembered;
}

void Write(const RememberedWindow& remembered, QcDtDictionary& file) {
    SetBytes(file, L"place", remembered.place);
    SetBytes(file, L"panels", remembered.panels);
    SetText(file, L"language", remembered.language);
    SetText(file, L"parallel", remembered.isParallel ? L"1" : L"0");
    SetText(file, L"sun", remembered.isSunny ? L"1" : L"0");
    SetText(file, L"beijing", remembered.isBeijing ? L"1" : L"0");
    SetText(file, L"folder", remembered.folder);
    QcDtDictionary* const recent = file.FindOrAddDict(L"recent");
    for (const CString& path : remembered.recent) {
        auto* item = new QcDtDictStringItem(L"file");  // the dictionary's
        item->SetStringValue(path);
        recent->AppendItem(item);
    }
    QcDtDictionary* const fields = file.FindOrAddDict(L"analysis");
    for (const auto& [name, text] : remembered.fields)
        SetText(*fields, name.GetString(), text);
}

using Field = std::pair<CString, CString>;

void SetField(std::vector<Field>& fields, const Field& changed) {
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const Field& each) { return each.first == changed.first; });
    if (found == fields.end())
        fields.push_back(changed);
    else
        found->second = changed.second;
}

bool ReadFile(RememberedWindow& remembered) {
    QcDtDictionary file;
    if (!file.ReadFromXML(FilePath().GetString()) || file.GetName() != kRoot)
        return false;
    remembered = Read(file);
    return true;
}

}  // namespace

void WindowMemory::Load() {
    m_remembered = RememberedWindow();
    std::error_code error;
    const bool isRead = ReadFile(m_remembered);
    m_own = m_remembered;
    if (isRead || !std::filesystem::exists(ToUtf8(FilePath().View()), error))
        return;
    const CString fault = DictionaryFaultText(FilePath().GetString());
    ReportMessage(
        SayFormat(
            L"%s 不可用（%s），窗口照出厂时的样子打开。下次保存时原来的文件留作 %s.refused-1（或下一个空号）或 .bak。",
            Printable(FilePath()), fault.IsEmpty() ? Say(L"不是窗口的记录") : fault, L"window.xml")
            .GetString());
}

template <class Change>
void WindowMemory::Keep(Change change) {
    FileLock lock;
    lock.Take(FilePath().GetString(), kLockPatience);  // without one the other window's last change may be lost
    ReadFile(m_remembered);
    change(m_remembered);
    QcDtDictionary file(kRoot);
    Write(m_remembered, file);
    if (!file.SaveToXML(FilePath().GetString()) && !std::exchange(m_isTold, true))
        ReportMessage(Say(L"窗口的大小、位置和最近打开的图形没有保存").GetString());
}

void WindowMemory::KeepPlace(const std::string& place, const std::string& panels) {
    Keep([&](RememberedWindow& remembered) {
        remembered.place = place;
        remembered.panels = panels;
    });
}

void WindowMemory::KeepFields(const std::vector<std::pair<CString, CString>>& fields) {
    Keep([&](RememberedWindow& remembered) {
        for (const auto& field : fields)
            if (std::find(m_own.fields.begin(), m_own.fields.end(), field) == m_own.fields.end())
                SetField(remembered.fields, field);
    });
    m_own.fields = fields;
}

void WindowMemory::KeepFolder(const CString& folder) {
    if (folder == m_own.folder)
        return;
    Keep([&](RememberedWindow& remembered) { remembered.folder = folder; });
    m_own.folder = folder;
}

void WindowMemory::KeepLanguage(const CString& language) {
    Keep([&](RememberedWindow& remembered) { remembered.language = language; });
}

void WindowMemory::KeepParallel(bool isParallel) {
    Keep([&](RememberedWindow& remembered) { remembered.isParallel = isParallel; });
}

void WindowMemory::KeepSun(bool isSunny, bool isBeijing) {
    Keep([&](RememberedWindow& remembered) {
        remembered.isSunny = isSunny;
        remembered.isBeijing = isBeijing;
    });
}

void WindowMemory::KeepRecent(const CString& path) {
    Keep([&](RememberedWindow& remembered) {
        std::erase(remembered.recent, path);
        remembered.recent.insert(remembered.recent.begin(), path);
        if (remembered.recent.size() > kMostRecentFiles)
            remembered.recent.resize(kMostRecentFiles);
    });
}

void WindowMemory::ForgetRecent() {
    Keep([](RememberedWindow& remembered) { remembered.recent.clear(); });
}
