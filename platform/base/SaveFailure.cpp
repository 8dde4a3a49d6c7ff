// The messages for a failed save: each cause with its remedy; causes that are rarer in the system's own words.
#include "platform/base/SaveFailure.h"

#include <string.h>

#include <cerrno>

#include "platform/base/AtomicFile.h"
#include "platform/base/Language.h"

namespace {

const wchar_t* KnownCause(int cause) {
    switch (cause) {
        case kNoOrdinaryFile:
        case EISDIR:
            return L"占用这个名称的不是普通文件，请移走它再保存";
        case kUnreadableContent:
            return L"内容嵌套太深或太大，请减少内容再保存";
        case kNoRoomForBackup:
            return L"备份（.bak）的名称被文件夹占用，请移走它再保存";
        case EACCES:
        case EPERM:
        case EROFS:
            return L"没有读写权限，请修改文件和文件夹的权限再保存";
        case ENOENT:
        case ENOTDIR:
            return L"文件夹不存在，请先建立文件夹再保存";
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return L"磁盘空间不足，请清理磁盘再保存";
        case ENAMETOOLONG:
            return L"名称太长，请换一个短的名称再保存";
        default:
            return nullptr;
    }
}

CString CauseOf(int cause) {
    if (const wchar_t* known = KnownCause(cause))
        return PlatformText(known);
    const char* words = strerrordesc_np(cause);
    CString text;
    text.Format(PlatformText(L"系统报告“%s”，请检查磁盘再保存"), FromUtf8(words ? words : "?"));
    return text;
}

}  // namespace

CString SaveFailureText(const wchar_t* path, int cause) {
    if (!path || !*path)
        return PlatformText(L"没有保存：没有给出文件名。");
    CString text;
    if (cause == kInstalledData)
        text.Format(PlatformText(L"安装文件夹中的文件不能改写：%s"), path);
    else
        text.Format(PlatformText(L"文件“%s”没有保存：%s。"), path, CauseOf(cause));
    return text;
}
