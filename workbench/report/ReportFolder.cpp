// Looks at the folder first, so that nobody waits for an analysis whose report has no place to go to.
#include "workbench/report/ReportFolder.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "platform/base/AtomicFile.h"
#include "platform/base/PlainText.h"
#include "platform/base/SaveFailure.h"
#include "workbench/Texts.h"

namespace {

using Path = std::filesystem::path;

constexpr const char* kPage = "index.html";

Path PathOf(const CString& folder) {
    return ToUtf8(folder.View());
}

CString Shown(const CString& folder) {
    return Printable(folder);
}

// Whether a file begins like a report; the mark stands among the first lines. Who opens a pipe waits for its other end.
bool IsReport(const Path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        return false;
    constexpr std::size_t kHead = 2048;
    std::string head(kHead, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(stream.gcount()));
    return head.find(kReportMark) != std::string::npos;
}

// Whether a folder holds more than what the saving of a page leaves beside it: another one's, or one that was killed.
bool HasOthers(const Path& folder, std::error_code& error) {
    const std::string ours = std::string(kPage) + '.';
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().filename().string().compare(0, ours.size(), ours) != 0)
            return true;
    return false;
}

// For the rights that writing goes by.
bool CanWriteInto(const Path& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

CString UnwritableText(const CString& folder) {
    return SayFormat(L"文件夹“%s”不能写入，没有写出报告：请修改它的权限，或用 --report 给出另一个文件夹",
                     Shown(folder));
}

CString UnreadableText(const CString& folder, const std::error_code& error) {
    return SayFormat(L"文件夹“%s”不能读（%s），没有写出报告：请用 --report 给出另一个文件夹", Shown(folder),
                     FromUtf8(error.message()));
}

CString MissingFolderFault(const CString& folder) {
    std::error_code error;
    if (std::filesystem::is_symlink(PathOf(folder), error))
        return SayFormat(L"链接“%s”指向的文件夹不存在，没有写出报告：请先建立那个文件夹，或用 --report 给出另一个",
                         Shown(folder));
    const Path absolute = std::filesystem::absolute(PathOf(folder), error).lexically_normal();
    if (error)
        return UnreadableText(folder, error);
    const Path whole = absolute.has_filename() ? absolute : absolute.parent_path();
    const Path parent = whole.parent_path();
    if (!std::filesystem::is_directory(parent, error))
        return SayFormat(L"文件夹“%s”所在的文件夹不存在，没有写出报告：请先建立“%s”", Shown(folder),
                         Shown(FromUtf8(parent.string())));
    return CanWriteInto(parent) ? CString() : UnwritableText(FromUtf8(parent.string()));
}

CString PresentFolderFault(const CString& folder) {
    const Path path = PathOf(folder);
    std::error_code error;
    const bool hasOthers = HasOthers(path, error);
    if (error)
        return UnreadableText(folder, error);
    if (hasOthers && !IsReport(path / kPage))
        return SayFormat(
            L"文件夹“%s”里有别的文件，而没有以前的报告，没有写出报告：请用 --report 给出一个空的或新的文件夹",
            Shown(folder));
    return CanWriteInto(path) ? CString() : UnwritableText(folder);
}

}  // namespace

CString ReportFolderFault(const CString& folder) {
    std::error_code error;
    const auto status = std::filesystem::status(PathOf(folder), error);
    if (status.type() == std::filesystem::file_type::not_found)
        return MissingFolderFault(folder);
    if (status.type() == std::filesystem::file_type::none)
        return UnreadableText(folder, error);
    if (status.type() != std::filesystem::file_type::directory)
        return SayFormat(L"“%s”不是文件夹，没有写出报告：请用 --report 给出一个文件夹", Shown(folder));
    return PresentFolderFault(folder);
}

CString PageOfReport(const CString& folder) {
    return FromUtf8((PathOf(folder) / kPage).string());
}

CString SaveReport(const CString& folder, std::string_view page) {
    const CString fault = ReportFolderFault(folder);
    if (!fault.IsEmpty())
        return fault;
    const Path path = PathOf(folder);
    const bool isMade = mkdir(path.c_str(), 0777) == 0;
    if (!isMade && errno != EEXIST)
        return UnreadableText(folder, std::error_code(errno, std::generic_category()));
    const CString file = PageOfReport(folder);
    const SaveResult result = SaveFileAtomically(file.GetString(), page, nullptr);
    if (result)
        return {};
    if (isMade)
        rmdir(path.c_str());
    return SaveFailureText(file.GetString(), result.cause);
}
