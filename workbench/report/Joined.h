// Markup put together from pieces.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

inline std::string Joined(std::initializer_list<std::string_view> pieces) {
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    std::string whole;
    whole.reserve(size);
    for (const std::string_view piece : pieces)
        whole += piece;
    return whole;
}
