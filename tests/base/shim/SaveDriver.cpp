// Saves a dictionary with one text, for tests that let a system call of the save fail.
// Arguments: the file, the text. Prints how many calls the save made, and their names. Exit code 0: saved, 1: refused,
// 2: misuse, 3: saved, but there was a message, or refused without just one that names the file.
#include <dlfcn.h>

#include <cstdio>
#include <vector>

#include "platform/base/CString.h"
#include "platform/base/Message.h"
#include "platform/base/QcDtDictionary.h"

// Writing messages out would be calls of their own.
void Take(const wchar_t* text, void* messages) {
    static_cast<std::vector<CString>*>(messages)->push_back(text);
}

int main(int count, char** arguments) {
    const auto begin = reinterpret_cast<void (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsBegin"));
    const auto end = reinterpret_cast<int (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsEnd"));
    const auto names = reinterpret_cast<const char* (*)()>(dlsym(RTLD_DEFAULT, "FailingCallsNames"));
    if (count != 3 || !names || !begin || !end)
        return 2;
    const CString path = FromUtf8(arguments[1]);
    QcDtDictionary dictionary(L"saved");
    dictionary.FindOrAddItem(L"text", QcDtKindString)->SetStringValue(FromUtf8(arguments[2]));
    std::vector<CString> messages;
    SetMessageSink(&Take, &messages);
    begin();
    const bool isSaved = dictionary.SaveToXML(path);
    std::printf("%d\n", end());
    std::printf("%s", names());
    SetMessageSink(nullptr, nullptr);
    if (isSaved)
        return messages.empty() ? 0 : 3;
    return messages.size() == 1 && messages[0].Find(path) >= 0 ? 1 : 3;
}
