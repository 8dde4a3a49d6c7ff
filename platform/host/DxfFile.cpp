// Reading the file, and the texts for all that can be wrong with it.
#include "platform/host/DxfFile.h"

#include <fcntl.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "platform/base/Language.h"

namespace {

class OpenedFile {
public:
    explicit OpenedFile(const std::string& path) {
        do
            m_file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
        while (m_file < 0 && errno == EINTR);
    }
    ~OpenedFile() {
        if (m_file >= 0)
            close(m_file);
    }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;

    int Get() const { return m_file; }

private:
    int m_file = -1;
};

CString SystemCause(int error) {
    const char* const cause = strerrordesc_np(error);
    return FromUtf8(cause ? cause : "?");
}

Acad::ErrorStatus CannotRead(const wchar_t* path, const CString& cause, CString& message) {
    message.Format(PlatformText(L"无法读取图形文件“%s”：%s。"), path, cause);
    return Acad::eCantOpenFile;
}

// Files that are drawings, but none that can be read.
const wchar_t* OtherFormat(std::string_view bytes) {
    constexpr std::string_view kBinary = "AutoCAD Binary DXF";
    constexpr std::string_view kDwg = "AC10";
    if (bytes.substr(0, kBinary.size()) == kBinary)
        return L"图形文件“%s”是二进制 DXF，请在绘图软件中另存为文本 DXF（ASCII）后再打开。";
    if (bytes.substr(0, kDwg.size()) == kDwg)
        return L"图形文件“%s”是 DWG 文件，请在绘图软件中另存为 DXF 后再打开。";
    return nullptr;
}

const wchar_t* CauseOf(DxfFault fault) {
    switch (fault) {
        case DxfFault::NoNumber:
            return L"此处应为组码（整数）";
        case DxfFault::CodeOutOfRange:
            return L"组码超出范围（-5 到 1071）";
        case DxfFault::NoValue:
            return L"组码后面没有值";
        case DxfFault::LongLine:
            return L"这一行太长（超过 1 MiB）";
        case DxfFault::ZeroByte:
            return L"含有零字节，不是文本文件";
        case DxfFault::SectionExpected:
            return L"此处应为 SECTION 或 EOF";
        case DxfFault::NameExpected:
            return L"SECTION 后面应为段名（组码 2）";
        case DxfFault::SectionOpen:
            return L"上一段没有以 ENDSEC 结束";
        case DxfFault::TableExpected:
            return L"此处应为 TABLE 或 ENDSEC";
        case DxfFault::TableOpen:
            return L"上一个表没有以 ENDTAB 结束";
        case DxfFault::BlockExpected:
            return L"此处应为 BLOCK 或 ENDSEC";
        case DxfFault::BlockOpen:
            return L"上一个块没有以 ENDBLK 结束";
        case DxfFault::NoEnd:
            break;
    }
    return L"文件不完整，缺少 EOF";
}

}  // namespace

Acad::ErrorStatus DxfFile::Read(const wchar_t* path, CString& message) {
    const OpenedFile file(ToUtf8(path));
    struct stat status = {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0)
        return CannotRead(path, SystemCause(errno), message);
    if (!S_ISREG(status.st_mode))
        return CannotRead(path, PlatformText(L"不是普通文件"), message);
    if (static_cast<std::uint64_t>(status.st_size) > kLargestDxfFile)
        return CannotRead(path, PlatformText(L"文件超过 2 GiB"), message);
    const auto size = static_cast<std::size_t>(status.st_size);
    m_bytes = std::make_unique_for_overwrite<char[]>(size);
    m_size = 0;
    while (m_size < size) {
        const ssize_t count = read(file.Get(), m_bytes.get() + m_size, size - m_size);
        if (count == 0)
            break;  // it has become shorter
        if (count > 0)
            m_size += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return CannotRead(path, SystemCause(errno), message);
    }
    if (const wchar_t* const format = OtherFormat(View())) {
        message.Format(PlatformText(format), path);
        return Acad::eBadDxfFile;
    }
    return Acad::eOk;
}

int DxfLineOf(std::string_view text, std::size_t place) {
    // The end of a text that ends with a line end is on its last line.
    if (place > 0 && place == text.size() && text[place - 1] == '\n')
        --place;
    return static_cast<int>(1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

CString DxfFaultMessage(const wchar_t* path, std::string_view text, DxfFault fault, std::size_t place) {
    CString message;
    message.Format(PlatformText(L"图形文件“%s”第 %d 行有错：%s。"), path, DxfLineOf(text, place),
                   PlatformText(CauseOf(fault)));
    return message;
}
