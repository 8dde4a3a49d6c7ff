// Reads the XML file of a dictionary, or refuses it as a whole.
// Why: docs/decisions/base.md
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/XmlGuard.h"

// What a file may be at most; a writer must stay below it too.
constexpr int kDictionaryMaxDepth = 256;                                  // the root is at depth 1
constexpr std::uint64_t kDictionaryMaxBytes = std::uint64_t{256} << 20U;  // of the file
constexpr int kDictionaryMaxNamespaces = 100;                             // declared around one element
constexpr const char* kDictionaryNamespace = "urn:orvo:dictionary";       // of the bookkeeping attributes

struct _xmlTextReader;

// The rules beside those of QcDtDictionary::ReadFromXML:
//   - An element with child elements is a dictionary, whatever dt:kind says; text beside the child elements is ignored.
//     Without child elements dt:kind decides (an unknown code counts as none), and without it the item is a text. The
//     root is always a dictionary.
//   - A text item keeps its text to the last blank; comments and processing instructions inside leave no trace.
//   - Element and attribute names keep the prefixes of other namespaces; declarations of namespaces are dropped, and so
//     are bookkeeping attributes that are not known.
//   - A number that cannot be read is 0 (leniently as _wtoi and _wtof read, doubles also "inf", "-inf" and "nan").
//   - Escapes in attribute names always count, elsewhere only in elements that carry dt:escaped="1".
//   - GB2312 is read as GB18030 when it does not suffice, since that is what programs write under its name.
// libxml2 says nothing on the standard error stream while this reads.
class ORVO_API DictionaryReader {
public:
    // Reads into this dictionary, which loses all that it holds, also when the file is refused.
    explicit DictionaryReader(QcDtDictionary& target);

    // False when the file, or these bytes of one, is refused: the dictionary is then empty.
    bool ReadFile(const wchar_t* path);
    bool ReadBytes(std::string_view bytes);

    // Whether a file would be read, without making anything of it. The path as the system takes it.
    static bool AcceptsFile(const char* path);
    static bool AcceptsBytes(std::string_view bytes);

    // Why a file is refused.
    struct Fault {
        // What is wrong.
        enum class Kind {
            None,            // it is not
            System,          // it cannot be opened or read: `error`
            NoOrdinaryFile,  // a folder, a pipe, a device
            Empty,           // no bytes
            Forbidden,       // more than a file may hold, or a document type declaration: near `line`
            NoXml,           // the XML library stopped at `line`
        };
        Kind kind = Kind::None;  // which of the others hold something
        int error = 0;           // an errno
        int line = 0;            // from 1
    };
    // Why the file at a path (as the system takes it) would be refused.
    static Fault FaultOf(const char* path);

private:
    // Where bytes come from: an open file, or memory when there is none.
    struct Source {
        int file = -1;
        std::string_view memory;
        std::uint64_t position = 0;
        std::array<char, 256> beginning = {};  // enough of it to see the XML declaration
        XmlGuard guard;
        int error = 0;           // an errno of a read that failed
        bool hasFailed = false;  // a read that failed, or more than a file may hold
    };
    // An element that has begun and not yet ended.
    struct OpenElement {
        std::unique_ptr<QcDtDictItem> draft;   // until its kind is known
        QcDtDictionary* dictionary = nullptr;  // from then on, when it is one
        int kind = -1;                         // as the file says; -1 when it says nothing
        bool hasTag = false;                   // named by dt:tag, and not by the element
        bool hasName = false;
        bool isEscaped = false;
    };

    // The name of an attribute as it stands in the file, and what it means.
    struct AttributeName {
        std::string bytes;
        CString name;
        bool isEscaped;
    };

    DictionaryReader() = default;
    static int ReadFrom(void* source, char* buffer, int length);
    bool ReadFile(const char* path);
    bool Open(const char* path, Source& source);
    bool Read(Source& source);
    bool ReadAs(const char* encoding, Source& source);
    bool ReadNodes(_xmlTextReader* xml);
    bool TakeNamespaces(_xmlTextReader* xml);
    bool TakeNode(_xmlTextReader* xml);
    void Clear();
    void BeginElement(_xmlTextReader* xml);
    void EndElement();
    void TakeAttributes(_xmlTextReader* xml, OpenElement& element, QcDtDictItem& item);
    static void TakeBookkeeping(_xmlTextReader* xml, OpenElement& element, QcDtDictItem& item);
    const AttributeName& NameOf(std::string_view bytes);
    static void Unescape(const OpenElement& element, QcDtDictItem& item);
    QcDtDictionary& DictionaryOf(OpenElement& element);

    QcDtDictionary* m_target = nullptr;  // null: only check
    std::vector<OpenElement> m_open;
    std::vector<AttributeName> m_names;  // the last few: most elements have the same ones
    std::size_t m_nextName = 0;
    std::vector<int> m_namespaces;  // declared by each open element
    int m_namespaceCount = 0;
    std::string m_text;  // of the innermost element, as far as it has come
    Fault m_fault;       // of the last reading
};
