// Writes the digits of a handle.
#include "platform/host/HandleText.h"

#include <charconv>

CString HandleText(std::uint64_t handle) {
    char digits[16];
    const auto result = std::to_chars(digits, digits + sizeof(digits), handle, 16);
    return FromUtf8(std::string_view(digits, static_cast<std::size_t>(result.ptr - digits))).MakeUpper();
}
