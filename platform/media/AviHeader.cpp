// The header's lists and chunks in their order: hdrl (avih, strl (strh, strf, indx), odml (dmlh)), movi.
#include "platform/media/AviHeader.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "platform/media/LittleEndian.h"

namespace {

constexpr std::uint32_t kMainHeader = 56;
constexpr std::uint32_t kStreamHeader = 56;
constexpr std::uint32_t kExtendedHeader = 248;
constexpr std::uint32_t kSuperIndex = 24 + 16 * static_cast<std::uint32_t>(AviHeader::kMaxParts);
constexpr std::uint32_t kHasIndexFlag = 0x10;
constexpr std::uint32_t kChunk = 8;  // a chunk's tag and size
constexpr std::uint32_t kTag = 4;

std::uint32_t Even(std::size_t size) {
    return static_cast<std::uint32_t>(size + size % 2);
}

std::uint32_t Saturated(std::uint64_t value) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, std::numeric_limits<std::uint32_t>::max()));
}

void Chunk(LittleEndian& out, std::string_view tag, std::uint32_t size) {
    out.Tag(tag);
    out.U32(size);
}

void List(LittleEndian& out, std::string_view kind, std::uint32_t size) {
    Chunk(out, "LIST", size);
    out.Tag(kind);
}

std::uint32_t Buffer(const AviHeader& header) {
    return std::max(header.info.dwSuggestedBufferSize, header.largestSample);
}

void MainHeader(const AviHeader& header, LittleEndian& out) {
    const AVISTREAMINFOW& info = header.info;
    constexpr std::uint64_t kMicroseconds = 1000000;
    Chunk(out, "avih", kMainHeader);
    out.U32(Saturated((kMicroseconds * info.dwScale + info.dwRate / 2) / info.dwRate));
    out.U32(Saturated(std::uint64_t{header.largestSample} * info.dwRate / info.dwScale));
    out.U32(0);  // no padding between chunks
    out.U32(header.hasIndex ? kHasIndexFlag : 0);
    out.U32(header.firstPartLength);
    out.U32(0);
    out.U32(1);  // streams
    out.U32(Buffer(header));
    out.U32(static_cast<std::uint32_t>(info.rcFrame.right - info.rcFrame.left));
    out.U32(static_cast<std::uint32_t>(info.rcFrame.bottom - info.rcFrame.top));
    out.Zeros(16);
}

void StreamHeader(const AviHeader& header, LittleEndian& out) {
    const AVISTREAMINFOW& info = header.info;
    Chunk(out, "strh", kStreamHeader);
    out.U32(info.fccType);
    out.U32(info.fccHandler);
    out.U32(info.dwFlags);
    out.U16(info.wPriority);
    out.U16(info.wLanguage);
    out.U32(info.dwInitialFrames);
    out.U32(info.dwScale);
    out.U32(info.dwRate);
    out.U32(info.dwStart);
    out.U32(header.length);
    out.U32(Buffer(header));
    out.U32(info.dwQuality);
    out.U32(info.dwSampleSize);
    for (const LONG side : {info.rcFrame.left, info.rcFrame.top, info.rcFrame.right, info.rcFrame.bottom})
        out.U16(static_cast<std::uint32_t>(side) & 0xFFFF);
}

// The super index, or as much room for it while there is only one part.
void SuperIndex(const AviHeader& header, LittleEndian& out) {
    if (header.parts.empty()) {
        Chunk(out, "JUNK", kSuperIndex);
        out.Zeros(kSuperIndex);
        return;
    }
    const std::array<char, 4> tag = header.SampleTag();
    Chunk(out, "indx", kSuperIndex);
    out.U16(4);  // longs in an entry
    out.U16(0);  // an index of indexes
    out.U32(static_cast<std::uint32_t>(header.parts.size()));
    out.Tag({tag.data(), tag.size()});
    out.Zeros(12);
    for (const AviPartIndex& part : header.parts) {
        out.U64(part.offset);
        out.U32(part.size);
        out.U32(part.duration);
    }
    out.Zeros(16 * (AviHeader::kMaxParts - header.parts.size()));
}

}  // namespace

std::array<char, 4> AviHeader::SampleTag() const {
    const bool isPlain = info.fccHandler == 0 || info.fccHandler == mmioFOURCC('D', 'I', 'B', ' ');
    return {'0', '0', 'd', isPlain ? 'b' : 'c'};
}

std::vector<std::uint8_t> AviHeader::Render() const {
    const std::uint32_t streamList =
        kTag + kChunk + kStreamHeader + kChunk + Even(format.size()) + kChunk + kSuperIndex;
    const std::uint32_t extendedList = kTag + kChunk + kExtendedHeader;
    const std::uint32_t headerList = kTag + kChunk + kMainHeader + kChunk + streamList + kChunk + extendedList;
    const std::uint64_t moviList = 12 + kChunk + std::uint64_t{headerList};  // where it begins
    LittleEndian out;
    Chunk(out, "RIFF", Saturated(std::max(firstPartEnd, moviList + 12) - kChunk));
    out.Tag("AVI ");
    List(out, "hdrl", headerList);
    MainHeader(*this, out);
    List(out, "strl", streamList);
    StreamHeader(*this, out);
    Chunk(out, "strf", static_cast<std::uint32_t>(format.size()));
    out.Bytes(format);
    out.Zeros(format.size() % 2);
    SuperIndex(*this, out);
    List(out, "odml", extendedList);
    Chunk(out, "dmlh", kExtendedHeader);
    out.U32(length);
    out.Zeros(kExtendedHeader - 4);
    List(out, "movi", Saturated(std::max(firstMoviEnd, moviList + 12) - moviList - kChunk));
    return out.Get();
}
