// Reads what an AVI file says of itself, for tests that look at single numbers. Whether the whole file is in order is
// judged by others (tests/user).
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

class AviReader {
public:
    explicit AviReader(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
        Walk(0, m_bytes.size());
    }

    bool IsAvi() const { return Tag(0) == "RIFF" && Tag(8) == "AVI "; }
    std::size_t Size() const { return m_bytes.size(); }
    std::size_t Parts() const { return m_parts; }
    // A number of the main or the stream header, by its place there in bytes.
    std::uint32_t Main(std::size_t at) const { return U32(Start("avih") + at); }
    std::uint32_t Stream(std::size_t at) const { return U32(Start("strh") + at); }
    std::uint16_t Stream16(std::size_t at) const { return static_cast<std::uint16_t>(Stream(at) & 0xFFFF); }
    std::string Format() const { return Bytes("strf"); }
    std::uint32_t TotalLength() const { return U32(Start("dmlh")); }
    bool Has(const std::string& tag) const { return Find(tag) != nullptr; }
    std::string Bytes(const std::string& tag) const {
        const Chunk* chunk = Find(tag);
        return chunk ? m_bytes.substr(chunk->start, chunk->size) : std::string();
    }

    // One entry for each position: the sample's bytes, empty where there is none.
    std::vector<std::string> Samples() const {
        std::vector<std::string> samples;
        for (const Chunk& chunk : m_chunks)
            if (chunk.tag == "00db" || chunk.tag == "00dc")
                samples.push_back(m_bytes.substr(chunk.start, chunk.size));
        return samples;
    }

private:
    struct Chunk {
        std::string tag;
        std::size_t start;
        std::size_t size;
    };

    void Walk(std::size_t at, std::size_t end) {
        while (at + 8 <= end) {
            const std::string tag = Tag(at);
            const std::size_t size = U32(at + 4);
            if (tag == "RIFF")
                ++m_parts;
            if (tag == "RIFF" || tag == "LIST")
                Walk(at + 12, std::min(end, at + 8 + size));
            else
                m_chunks.push_back({tag, at + 8, size});
            at += 8 + size + size % 2;
        }
    }
    const Chunk* Find(const std::string& tag) const {
        for (const Chunk& chunk : m_chunks)
            if (chunk.tag == tag)
                return &chunk;
        return nullptr;
    }
    std::size_t Start(const std::string& tag) const {
        const Chunk* chunk = Find(tag);
        return chunk ? chunk->start : m_bytes.size();
    }
    std::string Tag(std::size_t at) const { return at + 4 <= m_bytes.size() ? m_bytes.substr(at, 4) : std::string(); }
    std::uint32_t U32(std::size_t at) const {
        std::uint32_t value = 0;
        if (at + sizeof value <= m_bytes.size())
            std::memcpy(&value, m_bytes.data() + at, sizeof value);
        return value;
    }

    std::string m_bytes;
    std::vector<Chunk> m_chunks;
    std::size_t m_parts = 0;
};
