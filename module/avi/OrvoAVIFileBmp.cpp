// Reads BMP files, and checks every number in them before it is used.
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "avi/FilePath.h"
#include "avi/LockedBlock.h"
#include "avi/OrvoAVIFile.h"
#include "platform/media/DeviceContext.h"
#include "platform/media/Dib.h"
#include "platform/media/GlobalMemory.h"

namespace {

constexpr WORD kBmpType = 0x4D42;
constexpr std::uint64_t kInfoHeader = sizeof(BITMAPINFOHEADER);  // whatever size the file's own header claims
constexpr std::uint64_t kMaskBytes = 12;
constexpr std::uint64_t kMostFileBytes = 0x7FFFFFFF;
constexpr std::uint64_t kMostExpansion = 256;  // of run-length coded pictures: bytes in memory for each in the file

// The size of a regular file; 0 for everything else.
std::uint64_t SizeOfFile(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return 0;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

// Where the pixels begin, counted from the info header.
std::uint64_t PixelsAt(const BITMAPINFOHEADER& header) {
    const std::uint64_t used = header.biClrUsed;
    if (header.biBitCount <= 8)
        return kInfoHeader + 4 * (used != 0 ? used : std::uint64_t{1} << header.biBitCount);
    return kInfoHeader + 4 * used + (header.biCompression == BI_BITFIELDS ? kMaskBytes : 0);
}

bool IsRunLength(const BITMAPINFOHEADER& header) {
    return header.biCompression == BI_RLE8 || header.biCompression == BI_RLE4;
}

// Whether everything that the header speaks of lies within the bytes that there are, and is in proportion to them.
bool IsWithin(const BITMAPINFOHEADER& header, std::uint64_t bytes) {
    const std::int64_t height = header.biHeight;
    const auto rows = static_cast<std::uint64_t>(height < 0 ? -height : height);
    if (header.biWidth <= 0 || rows == 0 || header.biBitCount > 32)
        return false;
    const auto width = static_cast<std::uint64_t>(header.biWidth);
    const std::uint64_t start = PixelsAt(header);
    if (start > bytes)
        return false;
    const std::uint64_t rest = bytes - start;
    if (IsRunLength(header)) {
        const std::uint64_t mostPixels = kMostExpansion * (sizeof(BITMAPFILEHEADER) + bytes) / sizeof(RGBQUAD);
        return header.biSizeImage > 0 && header.biSizeImage <= rest && rows <= mostPixels / width;
    }
    const std::uint64_t row = (width * header.biBitCount + 31) / 32 * 4;
    return row > 0 && rows <= rest / row;
}

// The bytes behind the file header; a longer info header is read as if it had the usual size.
HBITMAP MakeBitmap(BYTE* bytes, std::uint64_t size) {
    BITMAPINFOHEADER header;
    if (size < sizeof header)
        return nullptr;
    std::memcpy(&header, bytes, sizeof header);
    if (!IsWithin(header, size))
        return nullptr;
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateDIBitmap(screen, &header, CBM_INIT, bytes + PixelsAt(header),
                                          reinterpret_cast<const BITMAPINFO*>(bytes), DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

}  // namespace

BOOL OrvoAVIFile::LoadBMPImage(const wchar_t* path, CBitmap& bitmap) {
    if (path == nullptr || bitmap.GetSafeHandle() != nullptr)
        return FALSE;
    const std::filesystem::path name = FilePathOf(path);
    const std::uint64_t fileSize = SizeOfFile(name);
    BITMAPFILEHEADER start{};
    // Asked before opening: opening a pipe would wait for whoever writes to it.
    if (fileSize <= sizeof start || fileSize > kMostFileBytes)
        return FALSE;
    std::ifstream file(name, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(&start), sizeof start) || start.bfType != kBmpType)
        return FALSE;
    const std::uint64_t rest = fileSize - sizeof start;
    const LockedBlock block(GlobalAlloc(GMEM_FIXED, static_cast<std::size_t>(rest)));
    if (block.Address() == nullptr ||
        !file.read(static_cast<char*>(block.Address()), static_cast<std::streamsize>(rest)))
        return FALSE;
    const HBITMAP made = MakeBitmap(static_cast<BYTE*>(block.Address()), rest);
    return made != nullptr && bitmap.Attach(made);
}
