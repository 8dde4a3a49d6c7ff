// Decodes and encodes single characters with the system's converter.
#include "platform/host/DxfCodePage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

constexpr std::size_t kLongestSequence = 4;
constexpr std::size_t kMostCharacters = 4;

// Converts all of `from`; gives how many bytes came out, -1 for failure.
std::ptrdiff_t Convert(iconv_t converter, std::string_view from, char* to, std::size_t size) {
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    // The converter's signature is not const, but it does not write there.
    char* in = const_cast<char*>(from.data());
    std::size_t inLeft = from.size();
    char* out = to;
    std::size_t outLeft = size;
    if (iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) || inLeft != 0)
        return -1;
    // Some sets hold a letter back, for a mark that may follow.
    if (iconv(converter, nullptr, nullptr, &out, &outLeft) == static_cast<std::size_t>(-1))
        return -1;
    return out - to;
}

}  // namespace

DxfCodePage::DxfCodePage(const char* systemName) {
    m_toText = iconv_open("UTF-32LE", systemName);
    m_toBytes = iconv_open(systemName, "UTF-32LE");
    if (m_toText != kNone && m_toBytes != kNone)
        return;
    if (m_toText != kNone)
        iconv_close(std::exchange(m_toText, kNone));
    if (m_toBytes != kNone)
        iconv_close(std::exchange(m_toBytes, kNone));
}

DxfCodePage::~DxfCodePage() {
    if (m_toText != kNone)
        iconv_close(m_toText);
    if (m_toBytes != kNone)
        iconv_close(m_toBytes);
}

DxfCodePage::DxfCodePage(DxfCodePage&& other) noexcept
    : m_toText(std::exchange(other.m_toText, kNone)), m_toBytes(std::exchange(other.m_toBytes, kNone)) {}

DxfCodePage& DxfCodePage::operator=(DxfCodePage&& other) noexcept {
    std::swap(m_toText, other.m_toText);
    std::swap(m_toBytes, other.m_toBytes);
    return *this;
}

std::size_t DxfCodePage::DecodeOne(std::string_view bytes, std::u32string& out) const {
    if (bytes.empty())
        return 0;
    const auto first = static_cast<std::uint8_t>(bytes[0]);
    if (first < 0x80 || !IsKnown()) {
        out.push_back(first);
        return 1;
    }
    std::array<char, 4 * kMostCharacters> buffer;
    for (std::size_t length = 1; length <= std::min(kLongestSequence, bytes.size()); ++length) {
        const std::ptrdiff_t size = Convert(m_toText, bytes.substr(0, length), buffer.data(), buffer.size());
        if (size < 4)
            continue;
        for (std::size_t i = 0; i + 4 <= static_cast<std::size_t>(size); i += 4) {
            char32_t c = 0;
            for (std::size_t k = 4; k-- > 0;)
                c = c << 8 | static_cast<std::uint8_t>(buffer[i + k]);
            out.push_back(c);
        }
        return length;
    }
    return 0;
}

bool DxfCodePage::EncodeOne(char32_t character, std::string& out) const {
    if (character < 0x80 || (!IsKnown() && character <= 0xFF)) {
        out.push_back(static_cast<char>(character));
        return true;
    }
    if (!IsKnown())
        return false;
    std::array<char, 4> units;
    for (std::size_t k = 0; k < units.size(); ++k)
        units[k] = static_cast<char>(character >> (8 * k) & 0xFF);
    std::array<char, 16> buffer;
    const std::ptrdiff_t size = Convert(m_toBytes, {units.data(), units.size()}, buffer.data(), buffer.size());
    if (size <= 0)
        return false;
    const std::string_view bytes(buffer.data(), static_cast<std::size_t>(size));
    // Sets that write one of their own characters as several, or two in one way, must not change the text.
    std::u32string again;
    if (DecodeOne(bytes, again) != bytes.size() || again != std::u32string_view(&character, 1))
        return false;
    out += bytes;
    return true;
}
