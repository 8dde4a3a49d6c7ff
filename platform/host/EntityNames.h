// The second word of names that stand in the data of entities.
//
// A drawing file holds one word for each name, the handle of the object. Callers give two, and expect both back while
// the drawing is open; so the second one is remembered here. It is 0 unless somebody has set it. (Where the first word
// is 0 there is no such object, and the second word is the handle itself: it needs no remembering.)
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/host/AcDbObjectId.h"

// Which name: of what object's data, in which group, and as what of the groups of that code (from 0).
struct NamePlace {
    AcDbObjectId owner;
    int code;
    std::size_t occurrence;
};

// Remembers the word that goes with the handle that the group holds.
void KeepSecondWord(const NamePlace& place, const std::string& handle, std::uint64_t word);

// The word that was kept; 0 when there is none, or the group has got another handle since.
std::uint64_t SecondWord(const NamePlace& place, const std::string& handle);
