// Walks over the groups of a text-form drawing file, as fast as the lines can be found; nothing is copied.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// The group codes that may stand in a file.
constexpr int kLeastDxfCode = -5;
constexpr int kMostDxfCode = 1071;
constexpr int kDxfComment = 999;
// The longest line, without its line end.
constexpr std::size_t kLongestDxfLine = std::size_t{1} << 20;

// Without white space at both ends.
inline std::string_view TrimDxfValue(std::string_view value) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = value.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return value.substr(first, value.find_last_not_of(kBlanks) - first + 1);
}

// One group where it stands in the text.
struct DxfRawGroup {
    int code = 0;
    std::size_t start = 0;       // of the code's line
    std::size_t valueStart = 0;  // of the value's line
    std::size_t valueEnd = 0;    // before its line end
    std::size_t groupEnd = 0;    // behind its line end

    std::string_view ValueIn(std::string_view text) const { return text.substr(valueStart, valueEnd - valueStart); }
};

class DxfScanner {
public:
    enum class Stop { None, End, NoNumber, CodeOutOfRange, NoValue, LongLine };

    explicit DxfScanner(std::string_view text, std::size_t at = 0)
        : m_begin(text.data()), m_end(text.data() + text.size()), m_at(text.data() + at) {}

    // The next group; false at the end of the text and where it is no group: GetStop and GetPlace tell which.
    bool Next(DxfRawGroup& group) {
        if (m_at == m_end)
            return Fail(Stop::End, m_at);
        const char* const start = m_at;
        const char* at = start;
        if (!ReadCode(at, group.code))
            return false;
        const std::size_t rest = static_cast<std::size_t>(m_end - at);
        if (rest == 0)
            return Fail(Stop::NoValue, start);
        const auto* const lineEnd = static_cast<const char*>(std::memchr(at, '\n', rest));
        const char* const next = lineEnd ? lineEnd + 1 : m_end;
        const char* valueEnd = lineEnd ? lineEnd : m_end;
        if (valueEnd > at && valueEnd[-1] == '\r')
            --valueEnd;
        if (static_cast<std::size_t>(valueEnd - at) > kLongestDxfLine)
            return Fail(Stop::LongLine, at);
        group.start = static_cast<std::size_t>(start - m_begin);
        group.valueStart = static_cast<std::size_t>(at - m_begin);
        group.valueEnd = static_cast<std::size_t>(valueEnd - m_begin);
        group.groupEnd = static_cast<std::size_t>(next - m_begin);
        m_at = next;
        return true;
    }

    Stop GetStop() const { return m_stop; }
    // Where the line at fault begins.
    std::size_t GetPlace() const { return m_place; }

private:
    bool Fail(Stop stop, const char* place) {
        m_stop = stop;
        m_place = static_cast<std::size_t>(place - m_begin);
        return false;
    }

    // Reads a code's line; `at` moves behind it.
    bool ReadCode(const char*& at, int& code) {
        const char* const start = at;
        while (at != m_end && (*at == ' ' || *at == '\t'))
            ++at;
        const bool isNegative = at != m_end && *at == '-';
        if (isNegative || (at != m_end && *at == '+'))
            ++at;
        const char* const digits = at;
        int value = 0;
        for (; at != m_end && *at >= '0' && *at <= '9'; ++at)
            value = value < kTooLarge ? value * 10 + (*at - '0') : kTooLarge;
        if (at == digits)
            return Fail(Stop::NoNumber, start);
        while (at != m_end && (*at == ' ' || *at == '\t' || *at == '\r'))
            ++at;
        if (at != m_end && *at != '\n')
            return Fail(Stop::NoNumber, start);
        code = isNegative ? -value : value;
        if (code < kLeastDxfCode || code > kMostDxfCode)
            return Fail(Stop::CodeOutOfRange, start);
        if (static_cast<std::size_t>(at - start) > kLongestDxfLine)
            return Fail(Stop::LongLine, start);
        if (at != m_end)
            ++at;
        return true;
    }

    static constexpr int kTooLarge = 100000;

    const char* m_begin;
    const char* m_end;
    const char* m_at;
    Stop m_stop = Stop::None;
    std::size_t m_place = 0;
};
