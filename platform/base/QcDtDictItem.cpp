// Items of a dictionary: names, attributes, and the kinds that hold one value.
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"

namespace {

const CString& NoText() {
    static const CString noText;
    return noText;
}

}  // namespace

QcDtDictItem::~QcDtDictItem() {
    if (m_parent)
        m_parent->Detach(this);
}

void QcDtDictItem::SetName(const CString& name) {
    if (m_parent)
        m_parent->Rename(this, name);
    else
        m_name = name;
}

const QcDtDictItem::Attribute* QcDtDictItem::FindAttribute(const wchar_t* name) const {
    const std::wstring_view wanted = ViewOf(name);
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [wanted](const Attribute& attribute) { return attribute.name.View() == wanted; });
    return found == m_attributes.end() ? nullptr : &*found;
}

CString QcDtDictItem::GetAttributeValue(const wchar_t* name) const {
    const Attribute* attribute = FindAttribute(name);
    return attribute ? attribute->value : CString();
}

bool QcDtDictItem::HasAttribute(const wchar_t* name) const {
    return FindAttribute(name) != nullptr;
}

void QcDtDictItem::SetAttributeValue(const CString& name, const CString& value) {
    if (name.IsEmpty())
        return;
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [&name](const Attribute& attribute) { return attribute.name == name; });
    if (found == m_attributes.end())
        m_attributes.push_back({name, value});
    else
        found->value = value;
}

void QcDtDictItem::SetAttributeDouble(const CString& name, double value) {
    SetAttributeValue(name, DoubleToText(value));
}

void QcDtDictItem::SetAttributeInt(const CString& name, int value) {
    SetAttributeValue(name, IntToText(value));
}

int QcDtDictItem::GetAttributeInt(const wchar_t* name) const {
    return _wtoi(GetAttributeValue(name));
}

const CString& QcDtDictItem::GetAttributeName(int index) const {
    return index < 0 || index >= GetAttributeCount() ? NoText() : m_attributes[static_cast<std::size_t>(index)].name;
}

const CString& QcDtDictItem::GetAttributeText(int index) const {
    return index < 0 || index >= GetAttributeCount() ? NoText() : m_attributes[static_cast<std::size_t>(index)].value;
}

QcDtDictItem* QcDtDictItem::Create(int kind, const wchar_t* name) {
    switch (kind) {
        case QcDtKindDictionary:
            return new QcDtDictionary(name);
        case QcDtKindFlag:
            return new QcDtDictFlagItem(name);
        case QcDtKindInteger:
            return new QcDtDictIntItem(name);
        case QcDtKindDouble:
            return new QcDtDictDoubleItem(name);
        case QcDtKindString:
            return new QcDtDictStringItem(name);
        default:
            return nullptr;
    }
}

void QcDtDictItem::CopyNamesAndAttributes(const QcDtDictItem& other) {
    SetTag(other.m_tag);
    SetName(other.m_name);
    SetLocalName(other.m_localName);
    m_attributes = other.m_attributes;
}

void QcDtDictItem::TakeNamesAndAttributes(QcDtDictItem& other) {
    m_tag = std::move(other.m_tag);
    m_localName = std::move(other.m_localName);
    m_attributes = std::move(other.m_attributes);
    SetName(std::exchange(other.m_name, CString()));
}

QcDtDictFlagItem* QcDtDictFlagItem::Clone() const {
    auto copy = std::make_unique<QcDtDictFlagItem>();
    copy->CopyNamesAndAttributes(*this);
    copy->m_value = m_value;
    return copy.release();
}

QcDtDictIntItem* QcDtDictIntItem::Clone() const {
    auto copy = std::make_unique<QcDtDictIntItem>();
    copy->CopyNamesAndAttributes(*this);
    copy->m_value = m_value;
    return copy.release();
}

QcDtDictDoubleItem* QcDtDictDoubleItem::Clone() const {
    auto copy = std::make_unique<QcDtDictDoubleItem>();
    copy->CopyNamesAndAttributes(*this);
    copy->m_value = m_value;
    return copy.release();
}

QcDtDictStringItem* QcDtDictStringItem::Clone() const {
    auto copy = std::make_unique<QcDtDictStringItem>();
    copy->CopyNamesAndAttributes(*this);
    copy->m_value = m_value;
    return copy.release();
}
