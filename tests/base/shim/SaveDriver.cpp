// Saves a dictionary with one text, for tests that let a system call of the save fail.
// Arguments: the file, the text. Prints how many calls the save made, and their names. Exit code 0: saved, 1: refused,
// 2: misuse.
#include <dlfcn.h>

#include <cstdio>

#include "platform/base/CString.h"
#include "platform/base/QcDtDictionary.h"

int main(int count, char** arguments) {
    const auto begin = reinterpret_cast<void (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsBegin"));
    const auto end = reinterpret_cast<int (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsEnd"));
    const auto names = reinterpret_cast<const char* (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsNames"));
    if (count != 3 || !names || !begin || !end)
        return 2;
    const CString path = FromUtf8(arguments[1]);
    QcDtDictionary dictionary(L"saved");
    dictionary.FindOrAddItem(L"text", QcDtKindString)->SetStringValue(FromUtf8(arguments[2]));
    begin();
    const bool isSaved = dictionary.SaveToXML(path);
    std::printf("%d\n", end());
    std::printf("%s", names());
    return isSaved ? 0 : 1;
}
