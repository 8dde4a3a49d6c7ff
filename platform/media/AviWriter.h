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
    // Without a file.
    AviWriter();
    // Closes the file as it is; without Finish it has no final index.
    ~AviWriter();
    AviWriter(const AviWriter&) = delete;
    AviWriter& operator=(const AviWriter&) = delete;

    // A part is closed before it grows beyond this.
    static constexpr std::uint64_t kDefaultPartSize = std::uint64_t{1} << 30;
    // As many positions as players can count.
    static constexpr std::uint64_t kMaxLength = 0x7FFFFFFF;

    // Makes the file, or empties the one that is there. False when it cannot be.
    bool Create(const std::string& path);
    // What the file says of its stream: before the first sample.
    void SetInfo(const AVISTREAMINFOW& info) { m_header.info = info; }
    // The format of all samples, before the first one; the file's beginning is written. False when the disk does not
    // take it.
    bool SetFormat(const void* format, std::size_t bytes);
    // For tests: smaller parts.
    void SetPartSize(std::uint64_t bytes) { m_partSize = bytes; }

    // Whether SetFormat has succeeded.
    bool HasFormat() const { return !m_header.format.empty(); }
    // In positions, the skipped ones among them.
    std::uint64_t GetLength() const { return m_header.length; }
    // How appending ended.
    enum class Result {
        Done,     // the sample is in the file
        TooLong,  // no file can hold it, or that many positions
        Failed,   // the disk does not take it
    };
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
