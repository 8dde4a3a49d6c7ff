// A file that is written at given places: all of what is asked for, or a failure.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The file that is open is this object's.
class OutputFile {
public:
    // Not open.
    OutputFile() = default;
    // Closes the file.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Makes the file, or empties the one that is there. False for what is no regular file: it is not touched.
    bool Create(const std::string& path);
    // Whether there is a file.
    bool IsOpen() const { return m_file >= 0; }

    // Bytes to be written, the caller's.
    struct Piece {
        const void* bytes;  // where they lie
        std::size_t size;   // how many
    };
    // Writes the pieces (or the one) one after the other from `offset` on. False when it fails: some of them may then
    // be written.
    bool WriteAt(std::uint64_t offset, const std::vector<Piece>& pieces) const;
    bool WriteAt(std::uint64_t offset, const std::vector<std::uint8_t>& bytes) const;
    // Cuts the file off behind `size` bytes; false when that fails.
    bool Truncate(std::uint64_t size) const;
    // Whether the disk has room for that many bytes more; true where the system does not say.
    bool HasRoomFor(std::uint64_t bytes) const;
    // False when it was not open, or could not be written: some file systems tell only now.
    bool Close();

private:
    int m_file = -1;
};
