// Asks the platform one question, from wherever this program is installed, and prints the answer: find NAME,
// find-in FOLDER NAME, user, installed, is-installed PATH, copy, first-language.
#include <cstdio>
#include <string>

#include "platform/base/Language.h"
#include "platform/base/Support.h"

namespace {

// What the language is when the first static object of a program is made.
const std::string g_firstLanguage = ToUtf8(g_strCurLanguage.View());

void Print(const CString& text) {
    std::printf("%s\n", ToUtf8(text.View()).c_str());
}

int PrintFound(bool found, const CString& path) {
    Print(path);
    return found ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string question = count > 1 ? arguments[1] : "";
    const CString first = FromUtf8(count > 2 ? arguments[2] : "");
    const CString second = FromUtf8(count > 3 ? arguments[3] : "");
    CString path(L"not touched");
    if (question == "find")
        return PrintFound(FindFile(first, path), path);
    if (question == "find-in")
        return PrintFound(FindFileInFolder(first, second, path), path);
    if (question == "is-installed")
        return IsInstalledDataPath(first) ? 0 : 1;
    if (question == "copy")
        return CopyShippedFiles() ? 0 : 1;
    if (question == "user")
        Print(UserFolder());
    else if (question == "installed")
        Print(InstalledDataFolder());
    else if (question == "first-language")
        std::printf("%s\n", g_firstLanguage.c_str());
    else
        return 2;
    return 0;
}
