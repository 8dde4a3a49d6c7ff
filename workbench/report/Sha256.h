// Fingerprints: of a drawing, so that everybody can see which one a report is of, and of the page's own script.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/base/CString.h"

// In 64 hexadecimal digits. None for what is no ordinary file, which cannot be read twice, and for one that cannot be
// read.
std::optional<CString> Sha256OfFile(const CString& path);

// As policies of pages name a script.
std::string Sha256Base64(std::string_view bytes);
