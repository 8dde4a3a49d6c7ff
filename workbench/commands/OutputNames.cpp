// Compares the names of outputs with each other.
#include "workbench/commands/OutputNames.h"

#include <filesystem>

#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/report/ReportFolder.h"
#include "workbench/terminal/Complaint.h"

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const CString& name) {
    return {ToUtf8(name.View())};
}

// The name without links, as far as what it leads through is there.
fs::path Whole(const CString& name) {
    std::error_code error;
    const fs::path path = fs::weakly_canonical(fs::absolute(PathOf(name), error), error);
    return path.has_filename() ? path : path.parent_path();
}

}  // namespace

bool AreSameName(const CString& one, const CString& other) {
    std::error_code error;
    return Whole(one) == Whole(other) || fs::equivalent(PathOf(one), PathOf(other), error);
}

std::vector<OutputName> OutputNames(const CString& write, const CString& film, const CString& reportFolder) {
    return {{L"--film", film},
            {L"--write", write},
            {L"--report", reportFolder},
            {L"--report", reportFolder.IsEmpty() ? CString() : PageOfReport(reportFolder)}};
}

int CheckOutputNames(const std::vector<OutputName>& outputs) {
    for (auto one = outputs.begin(); one != outputs.end(); ++one)
        for (auto other = one + 1; other != outputs.end(); ++other)
            if (!one->file.IsEmpty() && !other->file.IsEmpty() && AreSameName(one->file, other->file))
                return Refuse(kExitUsage, SayFormat(L"%s 和 %s 都写“%s”，没有分析；请给 %s 另一个文件名", one->option,
                                                    other->option, Printable(one->file), one->option));
    return kExitOk;
}
