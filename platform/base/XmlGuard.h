// Watches the bytes on their way to the XML library and stops what would keep it busy for hours: elements with too many
// attributes, which it compares each with each other, and document type declarations, whose entities can grow without
// end while they are declared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/Api.h"

constexpr int kMostXmlAttributes = 1000;  // of one element, declarations of namespaces included

// Reads UTF-16 as such and everything else as bytes of which the ASCII ones mean ASCII, which is true of the encodings
// that files are written in. A tag has no '<' inside, so that each tag is seen from its beginning whatever stood
// before.
class ORVO_API XmlGuard {
public:
    // The next bytes of the file. False once there is something to be refused.
    bool Take(std::string_view bytes);

private:
    enum class Place { Outside, BehindOpening, BehindExclamation, Comment, Instruction, Tag, Value };
    enum class Width { Unknown, Byte, LittleEndian, BigEndian };

    void FindWidth(std::uint8_t byte);
    bool TakeBytes(std::string_view bytes);
    bool TakeUnit(std::uint32_t unit);
    void TakeInProlog(std::uint32_t unit);
    void TakeInTag(std::uint32_t unit);

    Width m_width = Width::Unknown;
    std::uint8_t m_previous = 0;
    bool m_hasPrevious = false;
    Place m_place = Place::Outside;
    bool m_isBeforeRoot = true;
    int m_tail = 0;             // how much of its end a comment or an instruction has shown
    std::uint32_t m_quote = 0;  // that ends the value
    int m_count = 0;            // of the attributes of the tag
};
