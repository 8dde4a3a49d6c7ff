// A file that is written at given places: all of what is asked for, or a failure.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class OutputFile {
public:
    OutputFile() = default;
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Makes the file, or empties the one that is there. False for what is no regular file: it is not touched.
    bool Create(const std::string& path);
    bool IsOpen() const { return m_file >= 0; }

    struct Piece {
        const void* bytes;
        std::size_t size;
    };
    // Writes the pieces one after the other from `offset` on. When it fails, some of them may be written.
    bool WriteAt(std::uint64_t offset, const std::vector<Piece>& pieces) const;
    bool WriteAt(std::uint64_t offset, const std::vector<std::uint8_t>& bytes) const;
    // Cuts the file off behind `size` bytes.
    bool Truncate(std::uint64_t size) const;
    // Whether the disk has room for that many bytes more; true where the system does not say.
    bool HasRoomFor(std::uint64_t bytes) const;
    // Some file systems tell only now that they could not write.
    bool Close();

private:
    int m_file = -1;
};
