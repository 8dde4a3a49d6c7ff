// Watches the bytes of an XML file: follows its tags, and what stands before the first one.
#include "platform/base/XmlGuard.h"

// The first two bytes tell: a byte-order mark, or a '<' in two bytes.
void XmlGuard::FindWidth(std::uint8_t byte) {
    const unsigned pair = m_previous * 256U + byte;
    if (pair == 0xFFFE || pair == 0x3C00)
        m_width = Width::LittleEndian;
    else if (pair == 0xFEFF || pair == 0x003C)
        m_width = Width::BigEndian;
    else
        m_width = Width::Byte;
}

bool XmlGuard::Take(std::string_view bytes) {
    std::size_t at = 0;
    for (; at < bytes.size() && m_width != Width::Byte; ++at) {
        const auto byte = static_cast<std::uint8_t>(bytes[at]);
        m_hasPrevious = !m_hasPrevious;
        if (m_hasPrevious) {
            m_previous = byte;
            continue;
        }
        if (m_width == Width::Unknown)
            FindWidth(byte);
        const bool isGood = m_width == Width::Byte           ? TakeUnit(m_previous) && TakeUnit(byte)
                            : m_width == Width::LittleEndian ? TakeUnit(byte * 256U + m_previous)
                                                             : TakeUnit(m_previous * 256U + byte);
        if (!isGood)
            return false;
    }
    return TakeBytes(bytes.substr(at));
}

bool XmlGuard::TakeBytes(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        // Most of a file is text and values, which are passed over in one go.
        if (m_place == Place::Outside)
            at = bytes.find('<', at);
        else if (m_place == Place::Value)
            while (at < bytes.size() && static_cast<std::uint8_t>(bytes[at]) != m_quote && bytes[at] != '<')
                ++at;
        if (at >= bytes.size())
            break;
        if (!TakeUnit(static_cast<std::uint8_t>(bytes[at])))
            return false;
    }
    return true;
}

bool XmlGuard::TakeUnit(std::uint32_t unit) {
    if (unit == 0)
        return true;  // the rest of a character of four bytes
    switch (m_place) {
        case Place::Comment:
        case Place::Instruction:
            TakeInProlog(unit);
            return true;
        case Place::BehindOpening:
            m_place = unit == '!' ? Place::BehindExclamation : unit == '?' ? Place::Instruction : Place::Tag;
            m_tail = 0;
            if (m_place == Place::Tag)
                m_isBeforeRoot = false;
            else if (m_place == Place::Instruction && !m_isBeforeRoot)
                m_place = Place::Outside;
            break;
        case Place::BehindExclamation:
            // Before the root only a comment and a document type begin so.
            if (m_isBeforeRoot && unit != '-')
                return false;
            m_place = m_isBeforeRoot ? Place::Comment : Place::Outside;
            m_tail = -1;  // its second hyphen is still to come
            return true;
        default:
            TakeInTag(unit);
    }
    if (unit == '<') {
        m_place = Place::BehindOpening;
        m_count = 0;
    }
    return m_count <= kMostXmlAttributes;
}

// Only before the root, where nothing else can look like these, are they followed to their ends.
void XmlGuard::TakeInProlog(std::uint32_t unit) {
    const bool isComment = m_place == Place::Comment;
    if (unit == '>' && m_tail >= (isComment ? 2 : 1))
        m_place = Place::Outside;
    else
        m_tail = unit == (isComment ? '-' : '?') ? m_tail + 1 : 0;
}

void XmlGuard::TakeInTag(std::uint32_t unit) {
    if (m_place == Place::Value) {
        m_place = unit == m_quote ? Place::Tag : Place::Value;
    } else if (m_place == Place::Tag && unit == '>') {
        m_place = Place::Outside;
    } else if (m_place == Place::Tag && (unit == '"' || unit == '\'')) {
        m_place = Place::Value;
        m_quote = unit;
        ++m_count;
    }
}
