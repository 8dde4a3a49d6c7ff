// Writes the manual pages of the program: orvo(1), and one for each of its own subcommands, in one language.
//
// usage: make-manual zh|en PROSE VERSION DATE FOLDER
#include <cstdio>
#include <fstream>
#include <string>

#include "ManualPage.h"
#include "platform/base/Language.h"
#include "platform/host/Subcommands.h"
#include "workbench/entry/OwnSubcommands.h"

namespace {

bool Write(const std::string& folder, const std::string& name, const std::string& text) {
    const std::string path = folder + "/" + name + ".1";
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (file.flush())
        return true;
    std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
    return false;
}

bool WriteAll(const ManualHead& head, ProseFile& prose, const std::string& folder) {
    bool areWritten = Write(folder, "orvo", ProgramPage(head, prose));
    for (const Subcommand* row : HostSubcommands().GetAll())
        areWritten = areWritten && Write(folder, "orvo-" + ToUtf8(row->name.View()), SubcommandPage(*row, head, prose));
    for (const CString& part : prose.GetLacking())
        std::fprintf(stderr, "the prose lacks [%s]\n", ToUtf8(part.View()).c_str());
    return areWritten && prose.GetLacking().empty();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fprintf(stderr, "usage: make-manual zh|en PROSE VERSION DATE FOLDER\n");
        return 2;
    }
    TeskLanguageSwitch language;
    g_pTeskLangSwitch = &language;
    int owner = 0;
    CString reason;
    ProseFile prose;
    bool isDone = false;
    if (!prose.Read(argv[2]))
        std::fprintf(stderr, "%s: cannot be read\n", argv[2]);
    else if (language.SetLanguage(FromUtf8(argv[1])) && AddOwnSubcommands(&owner, reason))
        isDone = WriteAll({argv[4], argv[3]}, prose, argv[5]);
    HostSubcommands().Forget(&owner);
    g_pTeskLangSwitch = nullptr;
    return isDone ? 0 : 1;
}
