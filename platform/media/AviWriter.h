// An AVI file as it grows: header, samples, indexes, and a new RIFF part whenever one is full.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/base/Api.h"
#include "platform/media/AviHeader.h"
#include "platform/media/AviIndex.h"
#include "platform/media/OutputFile.h"

// Not safe for several threads at once. A failure leaves the file as it was before the call, as far as the disk lets
// it.
class ORVO_API AviWriter {
public:
    AviWriter();
    ~AviWriter();
    AviWriter(const AviWriter&) = delete;
    AviWriter& operator=(const AviWriter&) = delete;

    // A part is closed before it grows beyond this.
    static constexpr std::uint64_t kDefaultPartSize = std::uint64_t{1} << 30;
    // As many positions as players can count.
    static constexpr std::uint64_t kMaxLength = 0x7FFFFFFF;

    bool Create(const std::string& path);
    // Before the first sample.
    void SetInfo(const AVISTREAMINFOW& info) { m_header.info = info; }
    bool SetFormat(const void* format, std::size_t bytes);
    // For tests: smaller parts.
    void SetPartSize(std::uint64_t bytes) { m_partSize = bytes; }

    bool HasFormat() const { return !m_header.format.empty(); }
    std::uint64_t GetLength() const { return m_header.length; }
    enum class Result { Done, TooLong, Failed };
    // Appends one sample at a position from GetLength() on.
    Result Append(std::uint64_t position, const void* bytes, std::uint32_t size, bool isKey);
    // Writes the indexes. True when the file is complete; without, its samples can be read all the same.
    bool Finish();

private:
    struct Mark;
    Mark GetMark() const;
    void ReturnTo(const Mark& mark);

    bool WriteGap(std::uint64_t count);
    bool WriteSample(const void* bytes, std::uint32_t size, bool isKey);
    bool MakeRoom(std::uint64_t bytes);
    bool ClosePart();
    bool OpenPart();
    bool WriteStandardIndex(const AviPart& part);
    bool WriteOldIndex(const AviPart& part);
    bool WriteHeaders();
    bool Put(const std::vector<std::uint8_t>& bytes);
    std::uint64_t FirstChunk() const;
    bool FitsFile(std::uint64_t gap, std::uint32_t size) const;
    AviPart& Part() { return m_parts.back(); }

    OutputFile m_file;
    AviHeader m_header;
    std::vector<AviPart> m_parts;
    std::uint64_t m_end = 0;      // of the file
    std::uint64_t m_moviEnd = 0;  // of the samples of the part that is open
    std::uint64_t m_partSize = kDefaultPartSize;
    bool m_isFinished = false;
};
