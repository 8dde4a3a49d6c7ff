// The recorder: opens the file, makes each picture a sample of it, and closes it.
#include "avi/OrvoAVIFile.h"

#include <cstdint>
#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

#include "avi/FilePath.h"
#include "avi/LockedBlock.h"
#include "frame/Resources.h"
#include "platform/base/Abandon.h"
#include "platform/media/Dib.h"
#include "platform/window/MessageBox.h"

namespace {

constexpr UINT kUsualColorBits = 8;
constexpr DWORD kLeastVersion = 266;  // of Video for Windows, in the upper half
constexpr DWORD kColourEntry = 4;

bool IsVersionEnough() {
    return (VideoForWindowsVersion() >> 16) >= kLeastVersion;
}

// Whether anything bears this name, be it a file or a folder.
bool Exists(const wchar_t* path) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(FilePathOf(path), error));
}

// A file only: a folder, a pipe or a device that is in the way stays, and opening the file fails.
void DeleteExisting(const wchar_t* path) {
    std::error_code error;
    const std::filesystem::path name = FilePathOf(path);
    const std::filesystem::file_status there = std::filesystem::symlink_status(name, error);
    if (std::filesystem::is_regular_file(there) || std::filesystem::is_symlink(there))
        std::filesystem::remove(name, error);
}

LONG HeaderBytes(const BITMAPINFOHEADER& header) {
    return static_cast<LONG>(header.biSize + kColourEntry * header.biClrUsed);
}

BYTE* Pixels(BITMAPINFOHEADER& header) {
    return reinterpret_cast<BYTE*>(&header) + HeaderBytes(header);
}

}  // namespace

OrvoAVIFile::OrvoAVIFile() : OrvoAVIFile(L"", -1, -1, 0) {}

OrvoAVIFile::OrvoAVIFile(const wchar_t* name, int width, int height, int rate)
    : m_nColorBits(kUsualColorBits),
      m_nRate(0),
      m_nWidth(-1),
      m_nHeight(-1),
      m_nFrameCount(0),
      m_bOK(TRUE),
      m_bHasSaveOptionsDialog(TRUE),
      m_hSaveOptionsParentWnd(nullptr),
      m_streamInfo{},
      m_pAviFile(nullptr),
      m_pStream(nullptr),
      m_pCompressedStream(nullptr),
      m_pThirdStream(nullptr),
      m_options{},
      m_pOptions(&m_options) {
    OrvoAVIFile::Init(name, width, height, rate);
    InitVideo();
}

// Without an interface that is new enough nothing will ever be written.
void OrvoAVIFile::InitVideo() {
    if (IsVersionEnough())
        AVIFileInit();
    else
        m_bOK = FALSE;
}

OrvoAVIFile::~OrvoAVIFile() {
    ReleaseAll();
    if (IsVersionEnough())
        AVIFileExit();
}

void OrvoAVIFile::ReleaseAll() {
    for (PAVISTREAM* stream : {&m_pStream, &m_pCompressedStream, &m_pThirdStream})
        if (*stream != nullptr)
            AVIStreamRelease(std::exchange(*stream, nullptr));
    if (m_pAviFile != nullptr)
        AVIFileRelease(std::exchange(m_pAviFile, nullptr));
}

void OrvoAVIFile::Init(const wchar_t* name, int width, int height, int rate) {
    m_strFileName = name;
    m_nWidth = width;
    m_nHeight = height;
    m_nRate = rate;
    m_nFrameCount = 0;
    m_bOK = TRUE;
}

BOOL OrvoAVIFile::IsOK() const {
    return m_bOK;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value, as derived recorders declare it
BOOL OrvoAVIFile::AddFrame(QcStringW path) {
    if (!Exists(path))
        return FALSE;
    CBitmap bitmap;
    if (LoadBMPImage(path, bitmap))
        AddFrame(bitmap);
    return TRUE;
}

BOOL OrvoAVIFile::AddFrame(CBitmap& bitmap) {
    if (!m_bOK)
        return FALSE;
    LockedBlock dib(MakeDib(bitmap, m_nColorBits));
    if (dib.Address() == nullptr)
        return FALSE;
    auto& header = *static_cast<BITMAPINFOHEADER*>(dib.Address());
    if ((m_nWidth >= 0 && m_nWidth != header.biWidth) || (m_nHeight >= 0 && m_nHeight != header.biHeight))
        return FALSE;
    m_nWidth = header.biWidth;
    m_nHeight = header.biHeight;
    if (m_nFrameCount == 0 && Exists(m_strFileName)) {
        if (!AskToReplace()) {
            Abandon(dib.Give());  // the picture stays allocated, as it always did
            return FALSE;
        }
        DeleteExisting(m_strFileName);
    }
    m_bOK = (m_nFrameCount > 0 || CreateFileFor(header)) && WriteFrame(header);
    if (m_bOK)
        ++m_nFrameCount;
    return m_bOK;
}

// Any answer but Yes is a no.
bool OrvoAVIFile::AskToReplace() {
    const CString text = FormatTranslated(L"%s 文件已经存在，是否录像并替换此文件?", m_strFileName);
    return MessageBox(m_hSaveOptionsParentWnd, text, TranslateText(L"自动录像"), MB_YESNO) == IDYES;
}

bool OrvoAVIFile::CreateFileFor(BITMAPINFOHEADER& header) {
    ReleaseAll();  // of a recording before the last Init
    // Init sets the mark again, but does not make the interface newer.
    if (!IsVersionEnough() || AVIFileOpenW(&m_pAviFile, m_strFileName, OF_WRITE | OF_CREATE, nullptr) != AVIERR_OK)
        return false;
    m_streamInfo = {};
    m_streamInfo.fccType = streamtypeVIDEO;
    m_streamInfo.fccHandler = 0;
    m_streamInfo.dwScale = 1;
    m_streamInfo.dwRate = static_cast<DWORD>(m_nRate);
    m_streamInfo.dwSuggestedBufferSize = header.biSizeImage;
    m_streamInfo.rcFrame = {0, 0, m_nWidth, m_nHeight};
    return AVIFileCreateStreamW(m_pAviFile, &m_pStream, &m_streamInfo) == AVIERR_OK &&
           AVIStreamSetFormat(m_pStream, 0, &header, HeaderBytes(header)) == AVIERR_OK;
}

// A position that the stream cannot count is none.
bool OrvoAVIFile::WriteFrame(BITMAPINFOHEADER& header) {
    const std::int64_t position = std::int64_t{m_nFrameCount} * m_nRate;
    return position <= std::numeric_limits<LONG>::max() &&
           AVIStreamWrite(m_pStream, static_cast<LONG>(position), 1, Pixels(header),
                          static_cast<LONG>(header.biSizeImage), AVIIF_KEYFRAME, nullptr, nullptr) == AVIERR_OK;
}

BOOL OrvoAVIFile::Compress() {
    PAVISTREAM compressed = nullptr;
    if (AVIMakeCompressedStream(&compressed, m_pStream, m_pOptions, nullptr) != AVIERR_OK)
        return FALSE;
    if (m_pCompressedStream != nullptr)
        AVIStreamRelease(m_pCompressedStream);  // of a call before: it would keep the file open for ever
    m_pCompressedStream = compressed;
    AVIFileRelease(m_pAviFile);
    return TRUE;
}
