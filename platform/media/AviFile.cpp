// The interface: handles and their counts, and the checks that stand before the writer.
#include "platform/media/AviFile.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <string>

#include "platform/base/CString.h"
#include "platform/base/HandleTable.h"
#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/media/AviWriter.h"

namespace {

constexpr DWORD kVersion = 0x04000000;  // 4.0
constexpr LONG kMostFormatBytes = 1 << 16;

std::atomic<DWORD> s_versionForTest{0};
std::atomic<int> s_initCount{0};

// A file with its one stream. It is finished when the last who holds it lets go.
struct AviFile {
    AviFile() = default;
    AviFile(const AviFile&) = delete;
    AviFile& operator=(const AviFile&) = delete;
    ~AviFile() {
        if (!writer.Finish()) {
            CString text;
            text.Format(PlatformText(L"录像文件“%s”没有写完：磁盘写入失败。已录的画面还在。"), name);
            ReportMessage(text);
        }
    }

    std::mutex mutex;
    CString name;
    AviWriter writer;
    DWORD owners = 1;  // counts of AVIFileOpenW and AVIFileRelease
    bool hasStream = false;
};

struct AviStream {
    std::shared_ptr<AviFile> file;
    DWORD owners = 1;
    std::shared_ptr<AviStream> source;  // of a compressed stream
};

// Never destroyed: handles may be released while the program's static objects go.
HandleTable<AviFile, PAVIFILE>& Files() {
    static auto& table = *new HandleTable<AviFile, PAVIFILE>;
    return table;
}

HandleTable<AviStream, PAVISTREAM>& Streams() {
    static auto& table = *new HandleTable<AviStream, PAVISTREAM>;
    return table;
}

std::mutex& CountMutex() {
    static auto& mutex = *new std::mutex;
    return mutex;
}

// Takes one off an object's count and forgets the handle with the last.
template <class Table, class Handle>
DWORD Release(Table& table, Handle handle) {
    const auto object = table.Find(handle);
    if (!object)
        return 0;
    const std::lock_guard lock(CountMutex());
    if (object->owners > 0 && --object->owners == 0)
        table.Remove(handle);
    return object->owners;
}

bool IsPositive31Bits(DWORD value) {
    return value > 0 && value <= static_cast<DWORD>(std::numeric_limits<LONG>::max());
}

HRESULT WriteLocked(AviFile& file, std::int64_t position, const void* buffer, LONG bytes, DWORD flags) {
    const std::lock_guard lock(file.mutex);
    if (!file.writer.HasFormat())
        return AVIERR_BADFORMAT;
    const std::uint64_t length = file.writer.GetLength();
    const std::uint64_t start = position == -1 ? length : static_cast<std::uint64_t>(position);
    if (position < -1)
        return AVIERR_BADPARAM;
    if (start < length)
        return AVIERR_UNSUPPORTED;
    switch (file.writer.Append(start, buffer, static_cast<std::uint32_t>(bytes), (flags & AVIIF_KEYFRAME) != 0)) {
        case AviWriter::Result::Done:
            return AVIERR_OK;
        case AviWriter::Result::TooLong:
            return AVIERR_BADPARAM;
        case AviWriter::Result::Failed:
            break;
    }
    return AVIERR_FILEWRITE;
}

}  // namespace

DWORD VideoForWindowsVersion() {
    const DWORD forTest = s_versionForTest;
    return forTest != 0 ? forTest : kVersion;
}

void SetVideoForWindowsVersionForTest(DWORD version) {
    s_versionForTest = version;
}

void AVIFileInit() {
    ++s_initCount;
}

void AVIFileExit() {
    int count = s_initCount;
    while (count > 0 && !s_initCount.compare_exchange_weak(count, count - 1)) {
    }
}

int AviFileInitCount() {
    return s_initCount;
}

HRESULT AVIFileOpenW(PAVIFILE* file, const wchar_t* path, UINT mode, CLSID* handler) {
    if (!file)
        return AVIERR_BADPARAM;
    *file = nullptr;
    if (!path || s_initCount == 0)
        return AVIERR_BADPARAM;
    if (mode != (OF_WRITE | OF_CREATE) || handler)
        return AVIERR_UNSUPPORTED;
    try {
        const auto object = std::make_shared<AviFile>();
        object->name = path;
        if (!object->writer.Create(ToUtf8(path)))
            return AVIERR_FILEOPEN;
        *file = Files().Add(object);
    } catch (const std::bad_alloc&) {
        return AVIERR_MEMORY;
    }
    return *file ? AVIERR_OK : AVIERR_MEMORY;
}

HRESULT AVIFileCreateStreamW(PAVIFILE file, PAVISTREAM* stream, AVISTREAMINFOW* info) {
    if (!stream)
        return AVIERR_BADPARAM;
    *stream = nullptr;
    const std::shared_ptr<AviFile> object = Files().Find(file);
    if (!object)
        return AVIERR_BADHANDLE;
    if (!info || !IsPositive31Bits(info->dwScale) || !IsPositive31Bits(info->dwRate))
        return AVIERR_BADPARAM;
    const std::lock_guard lock(object->mutex);
    if (info->fccType != streamtypeVIDEO || object->hasStream)
        return AVIERR_UNSUPPORTED;
    try {
        const auto made = std::make_shared<AviStream>();
        made->file = object;
        *stream = Streams().Add(made);
    } catch (const std::bad_alloc&) {
        return AVIERR_MEMORY;
    }
    if (!*stream)
        return AVIERR_MEMORY;
    object->writer.SetInfo(*info);
    object->hasStream = true;
    return AVIERR_OK;
}

HRESULT AVIStreamSetFormat(PAVISTREAM stream, LONG position, void* format, LONG bytes) {
    const std::shared_ptr<AviStream> object = Streams().Find(stream);
    if (!object)
        return AVIERR_BADHANDLE;
    if (!format || bytes < 1 || bytes > kMostFormatBytes)
        return AVIERR_BADPARAM;
    AviFile& file = *object->file;
    const std::lock_guard lock(file.mutex);
    if (position != 0 || file.writer.GetLength() != 0)
        return AVIERR_UNSUPPORTED;
    try {
        return file.writer.SetFormat(format, static_cast<std::size_t>(bytes)) ? AVIERR_OK : AVIERR_FILEWRITE;
    } catch (const std::bad_alloc&) {
        return AVIERR_MEMORY;
    }
}

HRESULT AVIStreamWrite(PAVISTREAM stream, LONG position, LONG samples, void* buffer, LONG bytes, DWORD flags,
                       LONG* samplesWritten, LONG* bytesWritten) {
    if (samplesWritten)
        *samplesWritten = 0;
    if (bytesWritten)
        *bytesWritten = 0;
    const std::shared_ptr<AviStream> object = Streams().Find(stream);
    if (!object)
        return AVIERR_BADHANDLE;
    if (samples != 1 || bytes < 0 || (!buffer && bytes > 0))
        return AVIERR_BADPARAM;
    HRESULT result = AVIERR_MEMORY;
    try {
        result = WriteLocked(*object->file, position, buffer, bytes, flags);
    } catch (const std::bad_alloc&) {
        return AVIERR_MEMORY;
    }
    if (result == AVIERR_OK && samplesWritten)
        *samplesWritten = 1;
    if (result == AVIERR_OK && bytesWritten)
        *bytesWritten = bytes;
    return result;
}

HRESULT AVIMakeCompressedStream(PAVISTREAM* compressed, PAVISTREAM source, AVICOMPRESSOPTIONS* options,
                                CLSID* handler) {
    if (!compressed)
        return AVIERR_BADPARAM;
    *compressed = nullptr;
    const std::shared_ptr<AviStream> object = Streams().Find(source);
    if (!object)
        return AVIERR_BADHANDLE;
    if (!options)
        return AVIERR_BADPARAM;
    const bool isPlain = options->fccHandler == 0 || options->fccHandler == mmioFOURCC('D', 'I', 'B', ' ');
    if (!isPlain || handler)
        return AVIERR_NOCOMPRESSOR;
    try {
        const auto made = std::make_shared<AviStream>();
        made->file = object->file;
        made->source = object;
        *compressed = Streams().Add(made);
    } catch (const std::bad_alloc&) {
        return AVIERR_MEMORY;
    }
    return *compressed ? AVIERR_OK : AVIERR_MEMORY;
}

DWORD AVIStreamRelease(PAVISTREAM stream) {
    return Release(Streams(), stream);
}

DWORD AVIFileRelease(PAVIFILE file) {
    return Release(Files(), file);
}
