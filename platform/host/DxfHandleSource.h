// Handles that nothing in a drawing has, and nothing in it points to.
#pragma once

#include <cstdint>
#include <string>

class DxfDrawing;

class DxfHandleSource {
public:
    explicit DxfHandleSource(const DxfDrawing& drawing);

    // The next one: above every handle in the file, every handle that something points to, and $HANDSEED. 0 when there
    // is none left.
    std::uint64_t Take();
    bool HasTaken() const { return m_next != m_first; }
    // Whether there were fewer than have been asked for.
    bool IsExhausted() const { return m_isExhausted; }

    // The entry that holds $HANDSEED: the header, or what stands behind its end.
    static std::size_t GetSeedEntry(const DxfDrawing& drawing);
    // Its text with $HANDSEED above all that has been taken.
    std::string HeaderText(const DxfDrawing& drawing) const;

private:
    std::uint64_t m_first = 1;
    std::uint64_t m_next = 1;
    bool m_isExhausted = false;
};

// A handle as drawing files have it.
std::string DxfHandleText(std::uint64_t handle);
