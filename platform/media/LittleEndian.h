// Writes numbers as RIFF files keep them: the lowest byte first.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Collects bytes. Numbers are written with their lowest byte first.
class LittleEndian {
public:
    // Appends a number of two, four or eight bytes.
    void U16(std::uint32_t value) { Number(value, 2); }
    void U32(std::uint32_t value) { Number(value, 4); }
    void U64(std::uint64_t value) { Number(value, 8); }
    // Appends four letters.
    void Tag(std::string_view letters) {
        for (const char letter : letters)
            m_bytes.push_back(static_cast<std::uint8_t>(letter));
    }
    // Appends these bytes.
    void Bytes(const std::vector<std::uint8_t>& bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }
    // Appends that many zeros.
    void Zeros(std::size_t count) { m_bytes.resize(m_bytes.size() + count); }

    // How many bytes there are.
    std::size_t Size() const { return m_bytes.size(); }
    // The bytes; they stay this object's.
    const std::vector<std::uint8_t>& Get() const { return m_bytes; }
    // Forgets all bytes.
    void Clear() { m_bytes.clear(); }

private:
    void Number(std::uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i, value >>= 8)
            m_bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    }

    std::vector<std::uint8_t> m_bytes;
};
