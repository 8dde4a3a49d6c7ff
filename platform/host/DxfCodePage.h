// A character set: bytes to characters and back, one character at a time, so that what is no character can be kept.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// One character set. Bytes below 0x80 are ASCII in each.
class DxfCodePage {
public:
    // One byte is the character of its number.
    DxfCodePage() = default;
    // The set that the system knows by this name; as above when there is none.
    explicit DxfCodePage(const char* systemName);
    ~DxfCodePage();
    DxfCodePage(DxfCodePage&& other) noexcept;
    DxfCodePage& operator=(DxfCodePage&& other) noexcept;

    bool IsKnown() const { return m_toText != kNone; }

    // Appends the character (or characters) that begin `bytes`; gives how many bytes they take, 0 when it is none.
    std::size_t DecodeOne(std::string_view bytes, std::u32string& out) const;
    // Appends a character's bytes; false when the set does not have it.
    bool EncodeOne(char32_t character, std::string& out) const;

private:
    static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);

    iconv_t m_toText = kNone;
    iconv_t m_toBytes = kNone;
};
