// Text in a drawing file: its bytes to text and back, with the escapes for what the code page lacks.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/base/CString.h"
#include "platform/host/DxfCodePage.h"

// The texts of one drawing.
class DxfTextCodec {
public:
    DxfTextCodec() = default;
    // `name` as $DWGCODEPAGE gives it ("ANSI_936", "dos437", "gb2312"), or "UTF-8".
    explicit DxfTextCodec(std::string_view name);

    CString Decode(std::string_view bytes) const;
    bool Encode(const CString& text, std::string& bytes) const;

private:
    static constexpr std::size_t kMultibyteSets = 5;

    bool ReadMultibyte(std::u32string_view text, std::size_t at, std::u32string& out) const;
    std::size_t ReadEscape(std::u32string_view text, std::size_t at, std::u32string& out) const;
    std::u32string DecodeCharacters(std::string_view bytes) const;
    std::string EncodeCharacters(std::u32string_view text, bool isRawKept) const;

    DxfCodePage m_page;
    mutable std::array<DxfCodePage, kMultibyteSets> m_multibyte;  // opened when an escape asks for one
};
