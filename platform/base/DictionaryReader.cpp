// Builds a tree of items from the nodes that libxml2's streaming reader gives.
#include "platform/base/DictionaryReader.h"

#include <fcntl.h>
#include <libxml/xmlreader.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "platform/base/TextNumber.h"
#include "platform/base/XmlNames.h"
#include "platform/base/XmlQuiet.h"

namespace {

std::string_view ViewOf(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

char ToAsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether the XML declaration at the beginning of a file names GB2312.
bool DeclaresGb2312(std::string_view beginning) {
    std::string text(beginning);
    std::transform(text.begin(), text.end(), text.begin(), ToAsciiLower);
    if (text.rfind("<?xml", 0) != 0)
        return false;
    text.resize(std::min(text.find("?>"), text.size()));
    const std::size_t name = text.find("encoding");
    if (name == std::string::npos)
        return false;
    const std::size_t quote = text.find_first_of("\"'", name);
    return quote != std::string::npos && text.compare(quote + 1, 6, "gb2312") == 0 &&
           text.find(text[quote], quote + 1) == quote + 7;
}

// The code of a kind, written exactly; -1 for everything else.
int KindOf(std::string_view text) {
    for (const int kind : {QcDtKindDictionary, QcDtKindFlag, QcDtKindInteger, QcDtKindDouble, QcDtKindString})
        if (text == std::string(1, static_cast<char>('0' + kind)))
            return kind;
    return -1;
}

double DoubleOf(const CString& text) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    if (text == L"inf")
        return kInfinity;
    if (text == L"-inf")
        return -kInfinity;
    return text == L"nan" ? std::numeric_limits<double>::quiet_NaN() : _wtof(text);
}

void SetValue(QcDtDictItem& item, const CString& text) {
    switch (item.GetType()) {
        case QcDtKindFlag:
        case QcDtKindInteger:
            item.SetIntValue(_wtoi(text));
            break;
        case QcDtKindDouble:
            item.SetDoubleValue(DoubleOf(text));
            break;
        default:
            item.SetStringValue(text);
    }
}

}  // namespace

DictionaryReader::DictionaryReader(QcDtDictionary& target) : m_target(&target) {}

bool DictionaryReader::ReadFile(const wchar_t* path) {
    return ReadFile(path ? ToUtf8(path).c_str() : "");
}

bool DictionaryReader::ReadBytes(std::string_view bytes) {
    Source source;
    source.memory = bytes;
    return Read(source);
}

bool DictionaryReader::AcceptsFile(const char* path) {
    return DictionaryReader().ReadFile(path);
}

bool DictionaryReader::AcceptsBytes(std::string_view bytes) {
    return DictionaryReader().ReadBytes(bytes);
}

DictionaryReader::Fault DictionaryReader::FaultOf(const char* path) {
    DictionaryReader reader;
    return reader.ReadFile(path) ? Fault() : reader.m_fault;
}

bool DictionaryReader::ReadFile(const char* path) {
    Source source;
    const bool isGood = Open(path, source) && Read(source);
    if (source.file >= 0)
        close(source.file);
    if (!isGood)
        Clear();
    return isGood;
}

// Asks before opening as well, since opening a device can do things. Not blocking: nobody may ever write to a pipe.
bool DictionaryReader::Open(const char* path, Source& source) {
    struct stat status = {};
    const auto refuse = [this](Fault::Kind kind, int error) {
        m_fault = {kind, error, 0};
        return false;
    };
    if (stat(path, &status) != 0)
        return refuse(Fault::Kind::System, errno);
    if (!S_ISREG(status.st_mode))
        return refuse(Fault::Kind::NoOrdinaryFile, 0);
    source.file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (source.file < 0 || fstat(source.file, &status) != 0)
        return refuse(Fault::Kind::System, errno);
    if (!S_ISREG(status.st_mode))
        return refuse(Fault::Kind::NoOrdinaryFile, 0);
    if (status.st_size == 0)
        return refuse(Fault::Kind::Empty, 0);
    if (static_cast<std::uint64_t>(status.st_size) > kDictionaryMaxBytes)
        return refuse(Fault::Kind::System, EFBIG);
    return true;
}

int DictionaryReader::ReadFrom(void* context, char* buffer, int length) {
    auto& source = *static_cast<Source*>(context);
    ssize_t count = 0;
    if (source.file >= 0) {
        do
            count = read(source.file, buffer, static_cast<std::size_t>(length));
        while (count < 0 && errno == EINTR);
    } else {
        const std::string_view rest = source.memory.substr(source.position);
        count = static_cast<ssize_t>(std::min(rest.size(), static_cast<std::size_t>(length)));
        std::memcpy(buffer, rest.data(), static_cast<std::size_t>(count));
    }
    if (count > 0 && source.position < source.beginning.size()) {
        const std::size_t room = source.beginning.size() - source.position;
        std::memcpy(source.beginning.data() + source.position, buffer, std::min(room, static_cast<std::size_t>(count)));
    }
    source.position += static_cast<std::uint64_t>(std::max<ssize_t>(count, 0));
    const std::string_view bytes(buffer, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    // The file may have grown since its size was asked for.
    if (count < 0)
        source.error = errno;
    source.hasFailed =
        source.hasFailed || count < 0 || source.position > kDictionaryMaxBytes || !source.guard.Take(bytes);
    return source.hasFailed ? -1 : static_cast<int>(count);
}

bool DictionaryReader::Read(Source& source) {
    bool isGood = false;
    try {
        isGood = ReadAs(nullptr, source);
        if (!isGood && !source.hasFailed && DeclaresGb2312({source.beginning.data(), source.beginning.size()})) {
            source.position = 0;
            source.guard = {};
            isGood = (source.file < 0 || lseek(source.file, 0, SEEK_SET) == 0) && ReadAs("GB18030", source);
        }
    } catch (const std::bad_alloc&) {
        isGood = false;
    }
    if (!isGood)
        Clear();
    return isGood;
}

bool DictionaryReader::ReadAs(const char* encoding, Source& source) {
    Clear();
    const XmlQuiet quiet;
    const int options = XML_PARSE_NONET | (encoding ? XML_PARSE_IGNORE_ENC : 0);
    const std::unique_ptr<xmlTextReader, void (*)(xmlTextReader*)> xml(
        xmlReaderForIO(ReadFrom, nullptr, &source, nullptr, encoding, options), xmlFreeTextReader);
    if (!xml)
        return false;
    const bool isRead = ReadNodes(xml.get());
    if (isRead && !source.hasFailed && !quiet.HasErrors())
        return true;
    const Fault::Kind kind = source.error != 0                        ? Fault::Kind::System
                             : source.hasFailed || !quiet.HasErrors() ? Fault::Kind::Forbidden
                                                                      : Fault::Kind::NoXml;
    m_fault = {kind, source.error, std::max(xmlTextReaderGetParserLineNumber(xml.get()), 1)};
    return false;
}

void DictionaryReader::Clear() {
    m_open.clear();
    m_text.clear();
    m_namespaces.clear();
    m_namespaceCount = 0;
    if (!m_target)
        return;
    m_target->RemoveAll();
    m_target->CopyNamesAndAttributes(QcDtDictionary());
}

bool DictionaryReader::ReadNodes(xmlTextReader* xml) {
    bool hasRoot = false;
    int result = xmlTextReaderRead(xml);
    for (; result == 1; result = xmlTextReaderRead(xml)) {
        hasRoot = hasRoot || xmlTextReaderNodeType(xml) == XML_READER_TYPE_ELEMENT;
        if (!TakeNode(xml))
            return false;
    }
    return result == 0 && hasRoot;
}

// Counts the declarations in force, all of which the library searches for each prefix.
bool DictionaryReader::TakeNamespaces(xmlTextReader* xml) {
    const auto depth = static_cast<std::size_t>(xmlTextReaderDepth(xml));
    for (; m_namespaces.size() > depth; m_namespaces.pop_back())
        m_namespaceCount -= m_namespaces.back();
    int own = 0;
    for (const xmlNs* it = xmlTextReaderCurrentNode(xml)->nsDef; it; it = it->next)
        ++own;
    m_namespaces.push_back(own);
    m_namespaceCount += own;
    return m_namespaceCount <= kDictionaryMaxNamespaces;
}

bool DictionaryReader::TakeNode(xmlTextReader* xml) {
    switch (xmlTextReaderNodeType(xml)) {
        case XML_READER_TYPE_ELEMENT:
            if (xmlTextReaderDepth(xml) >= kDictionaryMaxDepth || !TakeNamespaces(xml))
                return false;
            if (m_target)
                BeginElement(xml);
            return true;
        case XML_READER_TYPE_END_ELEMENT:
            if (m_target)
                EndElement();
            return true;
        case XML_READER_TYPE_TEXT:
        case XML_READER_TYPE_CDATA:
        case XML_READER_TYPE_WHITESPACE:
        case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
            m_text += m_target && !m_open.empty() ? ViewOf(xmlTextReaderConstValue(xml)) : std::string_view();
            return true;
        case XML_READER_TYPE_DOCUMENT_TYPE:
        case XML_READER_TYPE_ENTITY_REFERENCE:
            return false;
        default:  // comments, processing instructions
            return true;
    }
}

void DictionaryReader::BeginElement(xmlTextReader* xml) {
    const bool isEmpty = xmlTextReaderIsEmptyElement(xml) == 1;
    if (!m_open.empty())
        DictionaryOf(m_open.back());
    m_text.clear();
    const bool isRoot = m_open.empty();
    OpenElement& element = m_open.emplace_back();
    if (isRoot)
        element.dictionary = m_target;
    else
        element.draft = std::make_unique<QcDtDictStringItem>();
    QcDtDictItem& item = isRoot ? static_cast<QcDtDictItem&>(*m_target) : *element.draft;
    item.m_tag = FromXmlUtf8(ViewOf(xmlTextReaderConstName(xml)));
    TakeAttributes(xml, element, item);
    if (isEmpty)
        EndElement();
}

void DictionaryReader::TakeAttributes(xmlTextReader* xml, OpenElement& element, QcDtDictItem& item) {
    bool hasEscapedNames = false;
    item.m_attributes.reserve(static_cast<std::size_t>(std::max(xmlTextReaderAttributeCount(xml), 0)));
    while (xmlTextReaderMoveToNextAttribute(xml) == 1) {
        if (xmlTextReaderIsNamespaceDecl(xml) == 1)
            continue;
        if (ViewOf(xmlTextReaderConstNamespaceUri(xml)) == kDictionaryNamespace) {
            TakeBookkeeping(xml, element, item);
            continue;
        }
        const AttributeName& name = NameOf(ViewOf(xmlTextReaderConstName(xml)));
        CString value = FromXmlUtf8(ViewOf(xmlTextReaderConstValue(xml)));
        // XML sees to it that no name stands twice, as long as none was written in another way.
        hasEscapedNames = hasEscapedNames || name.isEscaped;
        if (hasEscapedNames)
            item.SetAttributeValue(name.name, value);
        else
            item.m_attributes.push_back({name.name, std::move(value)});
    }
    if (element.isEscaped)
        Unescape(element, item);
    if (!element.hasName)
        item.SetName(item.GetTag());
}

const DictionaryReader::AttributeName& DictionaryReader::NameOf(std::string_view bytes) {
    constexpr std::size_t kMostNames = 16;
    for (const AttributeName& known : m_names)
        if (known.bytes == bytes)
            return known;
    const CString raw = FromXmlUtf8(bytes);
    AttributeName name = {std::string(bytes), UnescapeXml(raw.View()), false};
    name.isEscaped = name.name != raw;
    if (m_names.size() < kMostNames)
        return m_names.emplace_back(std::move(name));
    m_nextName = (m_nextName + 1) % kMostNames;
    return m_names[m_nextName] = std::move(name);
}

void DictionaryReader::TakeBookkeeping(xmlTextReader* xml, OpenElement& element, QcDtDictItem& item) {
    const std::string_view name = ViewOf(xmlTextReaderConstLocalName(xml));
    const std::string_view value = ViewOf(xmlTextReaderConstValue(xml));
    if (name == "kind") {
        element.kind = KindOf(value);
    } else if (name == "tag") {
        element.hasTag = true;
        item.SetTag(FromXmlUtf8(value));
    } else if (name == "name") {
        element.hasName = true;
        item.SetName(FromXmlUtf8(value));
    } else if (name == "local") {
        item.SetLocalName(FromXmlUtf8(value));
    } else if (name == "escaped") {
        element.isEscaped = value == "1";
    }
}

void DictionaryReader::Unescape(const OpenElement& element, QcDtDictItem& item) {
    if (element.hasTag)
        item.SetTag(UnescapeXml(item.GetTag().View()));
    if (element.hasName)
        item.SetName(UnescapeXml(item.GetName().View()));
    item.SetLocalName(UnescapeXml(item.GetLocalName().View()));
    for (QcDtDictItem::Attribute& attribute : item.m_attributes)
        attribute.value = UnescapeXml(attribute.value.View());
}

// The dictionary of an element that turns out to be one.
QcDtDictionary& DictionaryReader::DictionaryOf(OpenElement& element) {
    if (!element.dictionary) {
        auto dictionary = std::make_unique<QcDtDictionary>();
        dictionary->TakeNamesAndAttributes(*element.draft);
        element.draft.reset();
        element.dictionary = dictionary.get();
        m_open[m_open.size() - 2].dictionary->AppendItem(dictionary.release());
    }
    return *element.dictionary;
}

void DictionaryReader::EndElement() {
    OpenElement& element = m_open.back();
    if (!element.dictionary && element.kind == QcDtKindDictionary)
        DictionaryOf(element);
    if (!element.dictionary) {
        std::unique_ptr<QcDtDictItem> item = std::move(element.draft);
        if (element.kind != -1 && element.kind != QcDtKindString) {
            const std::unique_ptr<QcDtDictItem> draft(std::exchange(item, nullptr));
            item.reset(QcDtDictItem::Create(element.kind, nullptr));
            item->TakeNamesAndAttributes(*draft);
        }
        if (!m_text.empty()) {
            const CString text = FromXmlUtf8(m_text);
            SetValue(*item, element.isEscaped ? UnescapeXml(text.View()) : text);
        }
        m_open[m_open.size() - 2].dictionary->AppendItem(item.release());
    }
    m_open.pop_back();
    m_text.clear();
}
