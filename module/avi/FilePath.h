// Naming a file by a wide text.
#pragma once

#include <filesystem>

// The path that a text names, on every system and in every locale. A unit that is no character (half of a surrogate
// pair) becomes U+FFFD, as it does where the video interface opens a file.
std::filesystem::path FilePathOf(const wchar_t* text);
