// Texts as XML can hold them: which texts are element names, how characters that XML forbids are escaped, and UTF-8 in
// which every unit of a wide text survives.
#pragma once

#include <string>
#include <string_view>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// An escape is _xHHHH_, the value of one UTF-16 unit as hexadecimal digits (written in capitals); a character beyond
// the basic plane that has to be escaped takes eight digits. A surrogate without its partner is forbidden in XML; where
// wchar_t has 32 bits no two units are partners, so that text comes back unit by unit.

// Whether a text can be the name of an element or an attribute without a namespace: an XML name without a colon.
ORVO_API bool IsXmlName(std::wstring_view text);

// The name of an attribute as an XML name in UTF-8: what may not stand in a name is escaped, and so is the underscore
// of whatever looks like an escape, and "xmlns", which would declare a namespace. UnescapeXml gives the name back.
ORVO_API std::string EscapeXmlName(std::wstring_view name);

// Whether a text holds units that XML forbids even as character references.
ORVO_API bool HasForbiddenCharacters(std::wstring_view text);

// The text in UTF-8 with its forbidden units escaped, and the underscore of whatever looks like an escape.
ORVO_API std::string EscapeXmlText(std::wstring_view text);

// The plain text in UTF-8; only for a text without forbidden units.
ORVO_API std::string ToXmlUtf8(std::wstring_view text);

// The text of what is known to be good UTF-8.
ORVO_API CString FromXmlUtf8(std::string_view bytes);

// The text in which every escape is replaced by the unit it stands for. What is no escape stays.
ORVO_API CString UnescapeXml(std::wstring_view text);
