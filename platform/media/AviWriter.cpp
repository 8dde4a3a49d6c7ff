// Appending samples, filling gaps, going on in further parts, and finishing.
#include "platform/media/AviWriter.h"

#include <algorithm>
#include <array>
#include <new>

#include "platform/media/LittleEndian.h"

namespace {

constexpr std::uint64_t kChunk = AviPart::kChunkHeader;
constexpr std::uint64_t kPartHeader = 24;  // RIFF AVIX, LIST movi
constexpr std::size_t kBuffer = std::size_t{1} << 16;

std::uint64_t Even(std::uint64_t size) {
    return size + size % 2;
}

std::uint32_t Low(std::uint64_t value) {
    return static_cast<std::uint32_t>(value);
}

}  // namespace

// Where things stood, to return there when the disk fails.
struct AviWriter::Mark {
    std::size_t parts;
    std::size_t runs;
    std::uint64_t end;
    std::uint64_t moviEnd;
    AviHeader header;
};

AviWriter::Mark AviWriter::GetMark() const {
    return {m_parts.size(), m_parts.empty() ? 0 : m_parts.back().GetRunCount(), m_end, m_moviEnd, m_header};
}

void AviWriter::ReturnTo(const Mark& mark) {
    while (m_parts.size() > mark.parts)
        m_parts.pop_back();
    if (!m_parts.empty())
        m_parts.back().Shrink(mark.runs);
    m_end = mark.end;
    m_moviEnd = mark.moviEnd;
    m_header = mark.header;
    // What cannot be undone either stays behind the end that the header tells.
    m_file.Truncate(m_end);
    WriteHeaders();
}

AviWriter::AviWriter() = default;

AviWriter::~AviWriter() = default;

bool AviWriter::Create(const std::string& path) {
    return m_file.Create(path);
}

bool AviWriter::SetFormat(const void* format, std::size_t bytes) {
    const auto* first = static_cast<const std::uint8_t*>(format);
    m_header.format.assign(first, first + bytes);
    const std::vector<std::uint8_t> header = m_header.Render();
    m_parts.assign(1, AviPart(0));
    m_end = m_moviEnd = header.size();
    if (WriteHeaders())
        return true;
    m_header.format.clear();
    m_file.Truncate(0);
    return false;
}

// The header's own bytes stand before the first chunk.
std::uint64_t AviWriter::FirstChunk() const {
    return m_header.Render().size();
}

AviWriter::Result AviWriter::Append(std::uint64_t position, const void* bytes, std::uint32_t size, bool isKey) {
    const std::uint64_t gap = position - GetLength();
    if (position >= kMaxLength || !FitsFile(gap, size))
        return Result::TooLong;
    const Mark mark = GetMark();
    bool isWritten = false;
    try {
        m_header.largestSample = std::max(m_header.largestSample, size);
        isWritten = WriteGap(gap) && WriteSample(bytes, size, isKey) && WriteHeaders();
    } catch (const std::bad_alloc&) {
        isWritten = false;
    }
    if (!isWritten)
        ReturnTo(mark);
    return isWritten ? Result::Done : Result::Failed;
}

// Whether the parts that there can be, and the disk, hold a gap and the sample behind it.
bool AviWriter::FitsFile(std::uint64_t gap, std::uint32_t size) const {
    constexpr std::uint64_t kLargeGap = 1 << 16;
    constexpr std::uint64_t kIndexEntries = 16 + 8;  // in the old index and the standard one
    const std::uint64_t bytes = gap * (kChunk + kIndexEntries);
    if (m_parts.size() + bytes / m_partSize > AviHeader::kMaxParts)
        return false;
    return gap < kLargeGap || m_file.HasRoomFor(bytes + size);
}

bool AviWriter::WriteGap(std::uint64_t count) {
    const std::array<char, 4> tag = m_header.SampleTag();
    LittleEndian chunk;
    chunk.Tag({tag.data(), tag.size()});
    chunk.U32(0);
    while (count > 0) {
        if (!MakeRoom(kChunk))
            return false;
        // As many as go into the part, its indexes included.
        const std::uint64_t used = m_end - Part().GetStart() + Part().OldIndexBytes() + Part().StandardIndexBytes();
        const std::uint64_t room = m_partSize > used ? (m_partSize - used) / (kChunk + 24) : 0;
        const std::uint64_t most = std::max<std::uint64_t>(1, room);
        const std::uint64_t now = std::min({count, most, std::uint64_t{kBuffer / kChunk}});
        LittleEndian buffer;
        for (std::uint64_t i = 0; i < now; ++i)
            buffer.Bytes(chunk.Get());
        AviRun run;
        run.offset = m_end;
        run.empties = now;
        if (!Put(buffer.Get()))
            return false;
        Part().Add(run);
        m_moviEnd = m_end;
        m_header.length += Low(now);
        count -= now;
    }
    return true;
}

bool AviWriter::WriteSample(const void* bytes, std::uint32_t size, bool isKey) {
    if (!MakeRoom(kChunk + Even(size)))
        return false;
    const std::array<char, 4> tag = m_header.SampleTag();
    LittleEndian chunk;
    chunk.Tag({tag.data(), tag.size()});
    chunk.U32(size);
    constexpr char kPad = 0;
    if (!m_file.WriteAt(m_end, {{chunk.Get().data(), chunk.Size()}, {bytes, size}, {&kPad, size % 2}}))
        return false;
    AviRun run;
    run.offset = m_end;
    run.hasSample = true;
    run.size = size;
    run.isKey = isKey;
    Part().Add(run);
    m_end += kChunk + Even(size);
    m_moviEnd = m_end;
    ++m_header.length;
    return true;
}

// Goes on in a new part when this one would grow too large with these bytes more. A part takes at least one chunk.
bool AviWriter::MakeRoom(std::uint64_t bytes) {
    const std::uint64_t size =
        m_end - Part().GetStart() + bytes + Part().OldIndexBytes(1) + Part().StandardIndexBytes(1);
    if (size <= m_partSize || Part().GetCount() == 0)
        return true;
    return m_parts.size() < AviHeader::kMaxParts && ClosePart() && OpenPart();
}

bool AviWriter::ClosePart() {
    if (!WriteStandardIndex(Part()))
        return false;
    m_moviEnd = m_end;
    if (m_parts.size() == 1 && !WriteOldIndex(Part()))
        return false;
    return WriteHeaders();
}

bool AviWriter::OpenPart() {
    m_parts.emplace_back(m_end);
    m_end += kPartHeader;
    m_moviEnd = m_end;
    return true;
}

// Writes bytes at the end of the file.
bool AviWriter::Put(const std::vector<std::uint8_t>& bytes) {
    if (!m_file.WriteAt(m_end, bytes))
        return false;
    m_end += bytes.size();
    return true;
}

// "ix00": offsets of the samples' bytes from the part's beginning; the highest bit of a size marks what is no key.
bool AviWriter::WriteStandardIndex(const AviPart& part) {
    constexpr std::uint32_t kNoKey = 0x80000000;
    const std::uint64_t start = m_end;
    const std::array<char, 4> tag = m_header.SampleTag();
    LittleEndian buffer;
    buffer.Tag("ix00");
    buffer.U32(Low(part.StandardIndexBytes() - kChunk));
    buffer.U16(2);       // longs in an entry
    buffer.U16(0x0100);  // an index of chunks
    buffer.U32(Low(part.GetCount()));
    buffer.Tag({tag.data(), tag.size()});
    buffer.U64(part.GetStart());
    buffer.U32(0);
    bool isWritten = true;
    part.ForEachChunk([&](std::uint64_t offset, std::uint32_t size, bool isKey) {
        buffer.U32(Low(offset + kChunk - part.GetStart()));
        buffer.U32(isKey ? size : size | kNoKey);
        if (buffer.Size() >= kBuffer) {
            isWritten = isWritten && Put(buffer.Get());
            buffer.Clear();
        }
    });
    if (!isWritten || !Put(buffer.Get()))
        return false;
    m_header.parts.push_back({start, Low(part.StandardIndexBytes()), Low(part.GetCount())});
    return true;
}

// "idx1": offsets from the tag "movi".
bool AviWriter::WriteOldIndex(const AviPart& part) {
    const std::array<char, 4> tag = m_header.SampleTag();
    const std::uint64_t movi = FirstChunk() - 4;
    LittleEndian buffer;
    buffer.Tag("idx1");
    buffer.U32(Low(part.OldIndexBytes() - kChunk));
    bool isWritten = true;
    part.ForEachChunk([&](std::uint64_t offset, std::uint32_t size, bool isKey) {
        buffer.Tag({tag.data(), tag.size()});
        buffer.U32(isKey ? AVIIF_KEYFRAME : 0);
        buffer.U32(Low(offset - movi));
        buffer.U32(size);
        if (buffer.Size() >= kBuffer) {
            isWritten = isWritten && Put(buffer.Get());
            buffer.Clear();
        }
    });
    if (!isWritten || !Put(buffer.Get()))
        return false;
    m_header.hasIndex = true;
    return true;
}

// The file's header, and that of the part that is open, as things stand.
bool AviWriter::WriteHeaders() {
    if (m_header.format.empty())
        return true;
    if (m_parts.size() == 1) {
        m_header.firstPartLength = Low(m_parts.front().GetCount());
        m_header.firstMoviEnd = m_moviEnd;
        m_header.firstPartEnd = m_end;
    } else {
        const std::uint64_t start = Part().GetStart();
        LittleEndian part;
        part.Tag("RIFF");
        part.U32(Low(m_end - start - kChunk));
        part.Tag("AVIX");
        part.Tag("LIST");
        part.U32(Low(m_moviEnd - start - kPartHeader + 4));
        part.Tag("movi");
        if (!m_file.WriteAt(start, part.Get()))
            return false;
    }
    return m_file.WriteAt(0, m_header.Render());
}

bool AviWriter::Finish() {
    if (m_isFinished || !m_file.IsOpen())
        return true;
    m_isFinished = true;
    bool isComplete = true;
    if (HasFormat()) {
        const Mark mark = GetMark();
        const bool isOnePart = m_parts.size() == 1;
        isComplete = isOnePart ? WriteOldIndex(Part()) : WriteStandardIndex(Part());
        if (!isOnePart)
            m_moviEnd = m_end;
        isComplete = isComplete && WriteHeaders();
        if (!isComplete)
            ReturnTo(mark);
    }
    return m_file.Close() && isComplete;
}
