// Writes a tree of items as elements, through libxml2's streaming writer.
#include "platform/base/DictionaryWriter.h"

#include <libxml/xmlwriter.h>

#include <memory>
#include <vector>

#include "platform/base/AtomicFile.h"
#include "platform/base/Characters.h"
#include "platform/base/DictionaryReader.h"
#include "platform/base/Message.h"
#include "platform/base/SaveFailure.h"
#include "platform/base/TextNumber.h"
#include "platform/base/XmlNames.h"
#include "platform/base/XmlQuiet.h"

namespace {

constexpr std::size_t kMostTagCharacters = 200;

const xmlChar* XmlOf(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}
const xmlChar* XmlOf(const std::string& text) {
    return XmlOf(text.c_str());
}

// Where the writer's bytes go; refuses what goes beyond the greatest size of a file.
int AppendBytes(void* context, const char* bytes, int length) {
    auto& out = *static_cast<std::string*>(context);
    if (out.size() + static_cast<std::size_t>(length) > kDictionaryMaxBytes)
        return -1;
    try {
        out.append(bytes, static_cast<std::size_t>(length));
    } catch (const std::bad_alloc&) {
        return -1;  // libxml2 is not to be unwound
    }
    return length;
}

bool IsElementName(const CString& tag) {
    const std::wstring_view text = tag.View();
    // A character is one unit or two, so that longer texts need no counting.
    if (text.size() > 2 * kMostTagCharacters || !IsXmlName(text))
        return false;
    std::size_t characters = 0;
    for (const wchar_t unit : text)
        characters += IsSecondOfPair(static_cast<char32_t>(unit)) ? 0 : 1;
    return characters <= kMostTagCharacters;
}

CString ValueText(const QcDtDictItem& item) {
    switch (item.GetType()) {
        case QcDtKindFlag:
        case QcDtKindInteger:
            return IntToText(item.GetIntValue());
        case QcDtKindDouble:
            return DoubleToText(item.GetDoubleValue());
        default:
            return item.GetStringValue();
    }
}

bool IsDictionary(const QcDtDictItem& item) {
    return item.GetType() == QcDtKindDictionary;
}

// Whether a reader would not find out the kind by itself.
bool NeedsKind(const QcDtDictItem& item) {
    return IsDictionary(item) ? static_cast<const QcDtDictionary&>(item).GetCount() == 0
                              : item.GetType() != QcDtKindString;
}

// Whether any text of the item that the file will hold needs escapes.
bool NeedsEscapes(const QcDtDictItem& item) {
    for (int i = 0; i < item.GetAttributeCount(); ++i)
        if (HasForbiddenCharacters(item.GetAttributeText(i).View()))
            return true;
    return HasForbiddenCharacters(item.GetTag().View()) || HasForbiddenCharacters(item.GetName().View()) ||
           HasForbiddenCharacters(item.GetLocalName().View()) ||
           (item.GetType() == QcDtKindString && HasForbiddenCharacters(item.GetStringValue().View()));
}

}  // namespace

bool DictionaryWriter::Write(const QcDtDictionary& root, std::string& bytes) {
    bytes.clear();
    bool isGood = false;
    try {
        const XmlQuiet quiet;
        xmlOutputBuffer* const buffer = xmlOutputBufferCreateIO(AppendBytes, nullptr, &bytes, nullptr);
        // The writer owns the buffer, and puts out what is left of it when it is freed.
        std::unique_ptr<xmlTextWriter, void (*)(xmlTextWriter*)> xml(buffer ? xmlNewTextWriter(buffer) : nullptr,
                                                                     xmlFreeTextWriter);
        isGood = xml && DictionaryWriter(xml.get()).WriteTree(root);
        xml.reset();
        isGood = isGood && !quiet.HasErrors();
    } catch (const std::bad_alloc&) {
        isGood = false;
    }
    // The surest way to know what the reader would refuse is to ask it.
    isGood = isGood && DictionaryReader::AcceptsBytes(bytes);
    if (!isGood)
        bytes.clear();
    return isGood;
}

bool DictionaryWriter::SaveFile(const QcDtDictionary& root, const wchar_t* path) {
    std::string bytes;
    int cause = kUnreadableContent;
    if (Write(root, bytes))
        cause = SaveFileAtomically(path, bytes, DictionaryReader::AcceptsFile).cause;
    if (cause != 0)
        ReportMessage(SaveFailureText(path, cause));
    return cause == 0;
}

bool DictionaryWriter::WriteTree(const QcDtDictionary& root) {
    struct Level {
        const QcDtDictionary* dictionary;
        int next;
    };
    if (xmlTextWriterSetIndent(m_xml, 1) < 0 || xmlTextWriterSetIndentString(m_xml, XmlOf("  ")) < 0 ||
        xmlTextWriterStartDocument(m_xml, nullptr, "UTF-8", nullptr) < 0 || !BeginElement(root, true))
        return false;
    std::vector<Level> open = {{&root, 0}};
    while (!open.empty()) {
        Level& level = open.back();
        const QcDtDictItem* const item = level.dictionary->GetItem(level.next++);
        if (!item) {
            open.pop_back();
            if (xmlTextWriterEndElement(m_xml) < 0)
                return false;
        } else if (open.size() >= static_cast<std::size_t>(kDictionaryMaxDepth) || !BeginElement(*item, false)) {
            return false;
        } else if (IsDictionary(*item)) {
            open.push_back({static_cast<const QcDtDictionary*>(item), 0});
        } else if (!WriteLeaf(*item)) {
            return false;
        }
    }
    return xmlTextWriterEndDocument(m_xml) >= 0;
}

bool DictionaryWriter::BeginElement(const QcDtDictItem& item, bool isRoot) {
    m_isEscaped = NeedsEscapes(item);
    const bool hasOwnElement = IsElementName(item.GetTag());
    const std::string name = hasOwnElement ? ToXmlUtf8(item.GetTag().View()) : "item";
    return xmlTextWriterStartElement(m_xml, XmlOf(name)) >= 0 &&
           (!isRoot || xmlTextWriterWriteAttribute(m_xml, XmlOf("xmlns:dt"), XmlOf(kDictionaryNamespace)) >= 0) &&
           WriteAttributes(item) && WriteBookkeeping(item, hasOwnElement);
}

bool DictionaryWriter::WriteAttributes(const QcDtDictItem& item) {
    for (int i = 0; i < item.GetAttributeCount(); ++i) {
        const std::string name = EscapeXmlName(item.GetAttributeName(i).View());
        if (!WriteAttribute(name.c_str(), item.GetAttributeText(i).View()))
            return false;
    }
    return true;
}

bool DictionaryWriter::WriteBookkeeping(const QcDtDictItem& item, bool hasOwnElement) {
    return (hasOwnElement || WriteAttribute("dt:tag", item.GetTag().View())) &&
           (item.GetName() == item.GetTag() || WriteAttribute("dt:name", item.GetName().View())) &&
           (item.GetLocalName().IsEmpty() || WriteAttribute("dt:local", item.GetLocalName().View())) &&
           (!NeedsKind(item) || WriteAttribute("dt:kind", IntToText(item.GetType()).View())) &&
           (!m_isEscaped || WriteAttribute("dt:escaped", L"1"));
}

bool DictionaryWriter::WriteAttribute(const char* name, std::wstring_view value) {
    return xmlTextWriterWriteAttribute(m_xml, XmlOf(name), XmlOf(TextOf(value))) >= 0;
}

bool DictionaryWriter::WriteLeaf(const QcDtDictItem& item) {
    const CString text = ValueText(item);
    return (text.IsEmpty() || xmlTextWriterWriteString(m_xml, XmlOf(TextOf(text.View()))) >= 0) &&
           xmlTextWriterEndElement(m_xml) >= 0;
}

std::string DictionaryWriter::TextOf(std::wstring_view text) const {
    return m_isEscaped ? EscapeXmlText(text) : ToXmlUtf8(text);
}
