// Writes the XML file of a dictionary, in a form that DictionaryReader gives back to the last bit.
#pragma once

#include <string>
#include <string_view>

#include "platform/base/Api.h"
#include "platform/base/QcDtDictionary.h"

struct _xmlTextWriter;

// UTF-8, two blanks a level, one element per item. The element is named by the tag; a tag that cannot name one, or has
// more than 200 characters, stands in the attribute dt:tag of an element "item". Behind the item's own attributes come,
// where they say something, dt:tag, dt:name (a name unlike the tag), dt:local, dt:kind (a kind that the content does
// not show) and dt:escaped.
class ORVO_API DictionaryWriter {
public:
    // The bytes of the file. False when the reader would refuse them (too deep, too large, a text or a name longer than
    // the XML library takes); `bytes` is then empty.
    static bool Write(const QcDtDictionary& root, std::string& bytes);

    // The same into a file, by the rules of SaveFileAtomically. Every failure is reported (ReportMessage), once.
    static bool SaveFile(const QcDtDictionary& root, const wchar_t* path);

private:
    explicit DictionaryWriter(_xmlTextWriter* xml) : m_xml(xml) {}
    bool WriteTree(const QcDtDictionary& root);
    bool BeginElement(const QcDtDictItem& item, bool isRoot);
    bool WriteAttributes(const QcDtDictItem& item);
    bool WriteBookkeeping(const QcDtDictItem& item, bool hasOwnElement);
    bool WriteAttribute(const char* name, std::wstring_view value);
    bool WriteLeaf(const QcDtDictItem& item);
    std::string TextOf(std::wstring_view text) const;

    _xmlTextWriter* m_xml;
    bool m_isEscaped = false;  // the element that is being written
};
