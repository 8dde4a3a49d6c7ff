// Looks into the folder of a begun name.
#include "workbench/commands/FileNames.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "platform/base/PlainText.h"

namespace fs = std::filesystem;

namespace {

bool CanBeTyped(const std::string& name) {
    const CString text = FromUtf8(name);
    const bool hasBothQuotes = text.Find(L'"') >= 0 && text.Find(L'\'') >= 0;
    return !hasBothQuotes && ToUtf8(text.View()) == name && Printable(text) == text;
}

}  // namespace

std::vector<CString> FileNamesFrom(const CString& begun) {
    const std::string typed = ToUtf8(begun.View());
    const std::string folder = typed.substr(0, typed.rfind('/') + 1);
    const std::string start = typed.substr(folder.size());
    std::vector<CString> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const bool isAsked = name.compare(0, start.size(), start) == 0 && (name.front() != '.' || !start.empty());
        if (!isAsked || !CanBeTyped(name))
            continue;
        std::error_code unknown;
        names.push_back(FromUtf8(folder + name + (entry->is_directory(unknown) ? "/" : "")));
    }
    std::sort(names.begin(), names.end(),
              [](const CString& one, const CString& other) { return one.Compare(other) < 0; });
    return names;
}
