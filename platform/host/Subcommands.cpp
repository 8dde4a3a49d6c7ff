// Rows in the order of their coming; there are few, so a look-up walks them.
#include "platform/host/Subcommands.h"

#include <algorithm>
#include <cstddef>

#include "platform/base/Characters.h"
#include "platform/base/Language.h"
#include "platform/host/PlugInFiles.h"

namespace {

constexpr const wchar_t* kHostWords[] = {L"help", L"quit", L"exit", L"orvo"};
constexpr const wchar_t* kProgramOptions[] = {L"-h", L"--help", L"--version", L"--language", L"--plugin"};

bool IsLetter(wchar_t character) {
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

// A letter, and then letters, digits and hyphens.
bool IsWord(const CString& text) {
    const std::wstring_view all = text.View();
    return !all.empty() && IsLetter(all.front()) && std::all_of(all.begin(), all.end(), [](wchar_t character) {
        return IsLetter(character) || IsDigit(character) || character == L'-';
    });
}

bool IsCapitals(const CString& text) {
    return IsWord(text) && CString(text).MakeUpper() == text;
}

bool IsOptionName(const SubcommandOption& option) {
    if (option.IsPositional())
        return IsCapitals(option.name);
    const std::vector<CString> names = option.GetNames();
    const CString& last = names.back();
    const bool isLong = last.Left(2) == L"--" && last.GetLength() > 3 && IsWord(last.Mid(2));
    const CString& first = names.front();
    const bool isShort = first.GetLength() == 2 && first.GetAt(0) == L'-' && IsLetter(first.GetAt(1));
    return isLong && (names.size() == 1 || (names.size() == 2 && isShort));
}

bool IsCount(const SubcommandOption& option) {
    if (option.IsPositional())
        return option.count == 1 || option.count == SubcommandOption::kMany;
    return option.count >= SubcommandOption::kMany;
}

template <std::size_t Count>
bool IsOneOf(const CString& text, const wchar_t* const (&list)[Count]) {
    return std::any_of(std::begin(list), std::end(list),
                       [&text](const wchar_t* one) { return text.CompareNoCase(one) == 0; });
}

// What is wrong with the options; empty when nothing is.
CString FaultOfOptions(const Subcommand& row) {
    std::vector<CString> names;
    bool isAllTaken = false;
    CString fault;
    for (const SubcommandOption& option : row.options) {
        if (!IsOptionName(option))
            fault.Format(PlatformText(L"子命令“%s”的选项“%s”写得不对：请写 --name、-n,--name 或 NAME。"), row.name,
                         option.name);
        else if (!IsCount(option))
            fault.Format(PlatformText(L"子命令“%s”的选项“%s”不能有 %d 个值。"), row.name, option.name, option.count);
        else if (option.IsPositional() && isAllTaken)
            fault.Format(PlatformText(L"子命令“%s”的“%s”没有值可取：前面的参数取走全部。"), row.name, option.name);
        for (const CString& name : option.GetNames()) {
            const bool isTaken = std::find(names.begin(), names.end(), name) != names.end();
            if (isTaken ||
                std::find(std::begin(kProgramOptions), std::end(kProgramOptions), name) != std::end(kProgramOptions))
                fault.Format(PlatformText(L"子命令“%s”的选项“%s”已经有了。"), row.name, name);
            names.push_back(name);
        }
        if (!fault.IsEmpty())
            return fault;
        isAllTaken = isAllTaken || (option.IsPositional() && option.count == SubcommandOption::kMany);
    }
    return fault;
}

// What is wrong with a row by itself; empty when nothing is.
CString FaultOf(const Subcommand& row, const void* applicationHandle) {
    CString fault;
    if (!IsWord(row.name))
        fault.Format(PlatformText(L"“%s”不能作子命令的名字：请用字母、数字和连字符，以字母开头。"), row.name);
    else if (IsOneOf(row.name, kHostWords))
        fault.Format(PlatformText(L"程序自己使用“%s”，子命令不能叫这个名字。"), row.name);
    else if (!applicationHandle)
        fault.Format(PlatformText(L"没有说明子命令“%s”是哪个插件的。"), row.name);
    else if (!row.run)
        fault.Format(PlatformText(L"子命令“%s”没有可以运行的函数。"), row.name);
    else
        fault = FaultOfOptions(row);
    return fault;
}

// The file is of the plug-in that has a subcommand of this name; empty when it is not known.
CString TakenText(const CString& name, const CString& file) {
    CString text;
    if (file.IsEmpty())
        text.Format(PlatformText(L"已经有名为“%s”的子命令。"), name);
    else
        text.Format(PlatformText(L"已经有名为“%s”的子命令，来自“%s”。"), name, file);
    return text;
}

}  // namespace

bool SubcommandOption::IsPositional() const {
    return name.Left(1) != L"-";
}

std::vector<CString> SubcommandOption::GetNames() const {
    const int comma = name.Find(L',');
    if (comma < 0)
        return {name};
    return {name.Left(comma), name.Mid(comma + 1)};
}

SubcommandOption FlagOption(const wchar_t* name, const wchar_t* description) {
    return {name, L"", description, SubcommandOption::kFlag, false, nullptr};
}

SubcommandOption ValueOption(const wchar_t* name, const wchar_t* type, const wchar_t* description,
                             std::function<std::vector<CString>()> words) {
    return {name, type, description, 1, false, std::move(words)};
}

SubcommandOption ValuesOption(const wchar_t* name, int count, const wchar_t* type, const wchar_t* description) {
    return {name, type, description, count, false, nullptr};
}

SubcommandOption Required(SubcommandOption option) {
    option.isRequired = true;
    return option;
}

SubcommandCall::~SubcommandCall() = default;

struct SubcommandTable::Rows {
    struct Owned {
        Subcommand row;
        void* applicationHandle;
    };
    std::vector<Owned> all;
};

SubcommandTable::SubcommandTable() : m_rows(std::make_unique<Rows>()) {}

SubcommandTable::~SubcommandTable() = default;

bool SubcommandTable::Add(const Subcommand& row, void* applicationHandle, CString& reason) {
    CString fault = FaultOf(row, applicationHandle);
    const auto taken = std::find_if(m_rows->all.begin(), m_rows->all.end(), [&row](const Rows::Owned& other) {
        return other.row.name.CompareNoCase(row.name) == 0;
    });
    if (fault.IsEmpty() && taken != m_rows->all.end())
        fault = TakenText(row.name, FileOfPlugIn(taken->applicationHandle));
    reason = fault;
    if (!fault.IsEmpty())
        return false;
    m_rows->all.push_back({row, applicationHandle});
    return true;
}

bool SubcommandTable::Remove(const wchar_t* name, void* applicationHandle) {
    const CString wanted(name);
    return std::erase_if(m_rows->all, [&](const Rows::Owned& other) {
               return other.applicationHandle == applicationHandle && other.row.name == wanted;
           }) > 0;
}

void SubcommandTable::Forget(void* applicationHandle) {
    std::erase_if(m_rows->all, [applicationHandle](const Rows::Owned& other) {
        return other.applicationHandle == applicationHandle;
    });
}

const Subcommand* SubcommandTable::Find(const wchar_t* name) const {
    const CString wanted(name);
    for (const Rows::Owned& owned : m_rows->all)
        if (owned.row.name == wanted)
            return &owned.row;
    return nullptr;
}

std::vector<const Subcommand*> SubcommandTable::GetAll() const {
    std::vector<const Subcommand*> all;
    for (const Rows::Owned& owned : m_rows->all)
        all.push_back(&owned.row);
    return all;
}

SubcommandTable& HostSubcommands() {
    static auto* const table = new SubcommandTable;
    return *table;
}
