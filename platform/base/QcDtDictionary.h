// Dictionaries: trees of named, typed items with text attributes, which is what every configuration file holds. An item
// is a flag, an integer, a double, a text or a dictionary of further items; a whole tree is read from and saved to one
// XML file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/QcDtNameEntry.h"

class QcDtDictionary;
class QcDtNameIndex;

// The codes of the kinds, as GetType gives them, FindOrAddItem takes them and files hold them.
enum QcDtKind : int {
    QcDtKindDictionary = 0,  // QcDtDictionary
    QcDtKindFlag = 1,        // QcDtDictFlagItem
    QcDtKindInteger = 3,     // QcDtDictIntItem
    QcDtKindDouble = 4,      // QcDtDictDoubleItem
    QcDtKindString = 5       // QcDtDictStringItem
};

// One item. Its name is the key under which its dictionary finds it; the tag is what a file calls its element; the
// local name is a text for people. All three are free texts, may be empty and are independent of each other once set.
// Wherever a text is taken a null pointer stands for an empty one.
//
// An item that was appended belongs to its dictionary, which deletes it; a pointer stays valid until the item is
// removed. Deleting an item that still has a parent takes it out of the parent first.
class ORVO_API QcDtDictItem : private QcDtNameEntry {
public:
    virtual ~QcDtDictItem();
    QcDtDictItem(const QcDtDictItem&) = delete;
    QcDtDictItem& operator=(const QcDtDictItem&) = delete;

    // A code of QcDtKind.
    virtual int GetType() const = 0;
    // A copy of the item with everything under it, without a parent. The caller owns it.
    virtual QcDtDictItem* Clone() const = 0;

    // What a file calls its element.
    const CString& GetTag() const { return m_tag; }
    void SetTag(const CString& tag) { m_tag = tag; }
    // The key under which the parent finds the item.
    const CString& GetName() const { return m_name; }
    // From here on the parent finds the item under the new name. The tag stays.
    void SetName(const CString& name);
    // A text for people.
    const CString& GetLocalName() const { return m_localName; }
    void SetLocalName(const CString& name) { m_localName = name; }

    // Attributes: texts by name, each name once, in the order in which they were first set. Names are case-sensitive.
    // A missing attribute reads as an empty text or 0. No attribute has an empty name: setting one does nothing.
    CString GetAttributeValue(const wchar_t* name) const;
    bool HasAttribute(const wchar_t* name) const;
    void SetAttributeValue(const CString& name, const CString& value);
    // Numbers as text: the shortest decimal form that reads back to the same double; integers in decimal.
    void SetAttributeDouble(const CString& name, double value);
    void SetAttributeInt(const CString& name, int value);
    // The attribute's text read leniently (_wtoi): leading white space skipped, 0 when there is no number.
    int GetAttributeInt(const wchar_t* name) const;
    // How many attributes there are.
    int GetAttributeCount() const { return static_cast<int>(m_attributes.size()); }
    // By index from 0; an empty text when out of range.
    const CString& GetAttributeName(int index) const;
    const CString& GetAttributeText(int index) const;

    // The value. Flags and integers have an int, doubles a double, texts a text, dictionaries none. Getting a value
    // that the kind does not have gives 0 or an empty text; setting one does nothing.
    virtual int GetIntValue() const { return 0; }
    virtual void SetIntValue(int) {}
    virtual double GetDoubleValue() const { return 0.0; }
    virtual void SetDoubleValue(double) {}
    virtual CString GetStringValue() const { return CString(); }
    virtual void SetStringValue(const CString&) {}

    // The dictionary that owns the item; null for a root and for an item of its own.
    QcDtDictionary* GetParent() const { return m_parent; }

    // A new item of a kind whose tag and name are `name`; null for a code that is no kind. The caller owns it.
    static QcDtDictItem* Create(int kind, const wchar_t* name);

protected:
    QcDtDictItem() = default;
    // The name is also the tag.
    explicit QcDtDictItem(const wchar_t* name) : QcDtNameEntry{name}, m_tag(m_name) {}
    // Everything but the value and the parent.
    void CopyNamesAndAttributes(const QcDtDictItem& other);
    // The same by moving; the other item, which has no parent, is left without any.
    void TakeNamesAndAttributes(QcDtDictItem& other);

private:
    friend class QcDtDictionary;
    friend class DictionaryReader;

    struct Attribute {
        CString name;
        CString value;
    };
    const Attribute* FindAttribute(const wchar_t* name) const;

    CString m_tag;
    CString m_localName;
    std::vector<Attribute> m_attributes;
    QcDtDictionary* m_parent = nullptr;
};

// A yes or no, held as an integer (any value is kept as it is).
class ORVO_API QcDtDictFlagItem : public QcDtDictItem {
public:
    // Value 0, without a parent. The name is also the tag.
    explicit QcDtDictFlagItem(const wchar_t* name = nullptr) : QcDtDictItem(name) {}
    int GetType() const override { return QcDtKindFlag; }
    QcDtDictFlagItem* Clone() const override;
    int GetIntValue() const override { return m_value; }
    void SetIntValue(int value) override { m_value = value; }

private:
    int m_value = 0;
};

// An integer.
class ORVO_API QcDtDictIntItem : public QcDtDictItem {
public:
    // Value 0, without a parent. The name is also the tag.
    explicit QcDtDictIntItem(const wchar_t* name = nullptr) : QcDtDictItem(name) {}
    int GetType() const override { return QcDtKindInteger; }
    QcDtDictIntItem* Clone() const override;
    int GetIntValue() const override { return m_value; }
    void SetIntValue(int value) override { m_value = value; }

private:
    int m_value = 0;
};

// A double: any, also what is not finite.
class ORVO_API QcDtDictDoubleItem : public QcDtDictItem {
public:
    // Value 0.0, without a parent. The name is also the tag.
    explicit QcDtDictDoubleItem(const wchar_t* name = nullptr) : QcDtDictItem(name) {}
    int GetType() const override { return QcDtKindDouble; }
    QcDtDictDoubleItem* Clone() const override;
    double GetDoubleValue() const override { return m_value; }
    void SetDoubleValue(double value) override { m_value = value; }

private:
    double m_value = 0.0;
};

// A text.
class ORVO_API QcDtDictStringItem : public QcDtDictItem {
public:
    // An empty text, without a parent. The name is also the tag.
    explicit QcDtDictStringItem(const wchar_t* name = nullptr) : QcDtDictItem(name) {}
    int GetType() const override { return QcDtKindString; }
    QcDtDictStringItem* Clone() const override;
    CString GetStringValue() const override { return m_value; }
    void SetStringValue(const CString& value) override { m_value = value; }

private:
    CString m_value;
};

// A sequence of items that are found by index and by name. Names may repeat; a look-up gives the first item that bears
// the name and takes constant time however many items there are. Items are only ever added at the end.
//
// Constructing one allocates nothing for a null name, so it can be a static object. Not safe for use by several threads
// at once, save that any number may read while none writes.
class ORVO_API QcDtDictionary : public QcDtDictItem {
public:
    // The name is also the tag.
    explicit QcDtDictionary(const wchar_t* name = nullptr, const wchar_t* localName = nullptr);
    ~QcDtDictionary() override;

    int GetType() const override { return QcDtKindDictionary; }
    QcDtDictionary* Clone() const override;

    // How many items lie in it, those in their dictionaries not counted.
    int GetCount() const { return static_cast<int>(m_items.size()); }
    // By index from 0; null when out of range.
    QcDtDictItem* GetItem(int index);
    const QcDtDictItem* GetItem(int index) const;

    // The first item of the name, of whatever kind; null for none.
    QcDtDictItem* FindItem(const wchar_t* name);
    const QcDtDictItem* FindItem(const wchar_t* name) const;
    // The first dictionary of the name, also behind items of other kinds; null for none.
    QcDtDictionary* FindDict(const wchar_t* name);
    const QcDtDictionary* FindDict(const wchar_t* name) const;
    // The first item of the name whatever its kind (the caller checks that), else a new one of that kind at the end,
    // whose tag and name are `name`. Null when there is none and the code is no kind.
    QcDtDictItem* FindOrAddItem(const wchar_t* name, int kind);
    // The first dictionary of the name, else a new one at the end; null when only items of other kinds bear the name.
    QcDtDictionary* FindOrAddDict(const wchar_t* name);

    // Puts an item at the end and owns it from then on. False, and the item stays the caller's, for a null pointer, for
    // an item that has a parent, and for this dictionary itself or one that it lies in.
    bool AppendItem(QcDtDictItem* item);
    // Takes an item of this dictionary out and deletes it; false when it is no item of this dictionary (null included).
    bool RemoveItem(QcDtDictItem* item);
    // Deletes all items. Names and attributes of the dictionary itself stay.
    void RemoveAll();

    // Replaces everything in this dictionary, its own tag, name, local name and attributes included, by what a file
    // holds. False when the file is missing, unreadable or refused (not XML, truncated, with a document type
    // declaration, nested deeper than 256, larger than 256 MiB, no ordinary file): everything is then empty.
    // Files that people wrote are welcome: without bookkeeping attributes an element with child elements is a
    // dictionary and any other a text item.
    bool ReadFromXML(const wchar_t* path);
    // Saves the tree so that ReadFromXML gives it back to the last bit. The file is replaced in one step, and only when
    // it would change; its version before stays as NAME.bak, or as NAME.refused-1, -2 ... when ReadFromXML would have
    // refused it. False, and the file stays as it was, when any step fails, when ReadFromXML would refuse the new file,
    // and for a place in the installed data folder; each failure is reported (ReportMessage), with its cause.
    bool SaveToXML(const wchar_t* path) const;

private:
    friend class QcDtDictItem;
    friend class DictionaryReader;

    static QcDtDictItem* ItemOf(QcDtNameEntry* entry);
    QcDtDictItem* FindFirst(std::wstring_view name) const;
    QcDtDictionary* FindFirstDict(std::wstring_view name) const;
    // Takes an item out of the sequence and the index without deleting it.
    void Detach(QcDtDictItem* item);
    void Rename(QcDtDictItem* item, const CString& name);
    std::vector<QcDtDictItem*>::iterator PositionOf(const QcDtDictItem* item);
    void Enter(QcDtDictItem* item);

    std::vector<QcDtDictItem*> m_items;      // in rising m_order
    std::unique_ptr<QcDtNameIndex> m_index;  // only where searching the sequence would be slower
    std::uint64_t m_nextOrder = 0;
};
