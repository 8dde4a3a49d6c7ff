// The settings and their standards as dictionaries, compared value by value: the form in which files hold them.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/QcDtDictionary.h"

class OrvoDataSet;
class OrvoStdSet;

// One field of a standard, by all the names it goes by.
struct StandardField {
    const wchar_t* key;    // in the standard's dictionary; "date" is an attribute there
    const char* jsonKey;   // in answers
    const wchar_t* label;  // built-in text
};

// Every field but the name, in the order of files.
ORVO_API const std::vector<StandardField>& StandardFields();

// The form of settings with all their standards, or of one standard. Never null.
ORVO_API std::unique_ptr<QcDtDictionary> FormOf(const OrvoDataSet& settings);
ORVO_API std::unique_ptr<QcDtDictionary> FormOf(const OrvoStdSet& standard);

// The dictionaries of the standards in the form of settings, in their order; they belong to it.
ORVO_API std::vector<const QcDtDictionary*> StandardsIn(const QcDtDictionary& settings);
// The one of that name, which belongs to the form; null for none.
ORVO_API const QcDtDictionary* FindStandardIn(const QcDtDictionary& settings, const CString& name);

// Whether two items (null: a missing one) are of one kind and hold the same values, attributes and items, in the same
// order. Two values that are no numbers count as the same.
ORVO_API bool IsSameItem(const QcDtDictItem* left, const QcDtDictItem* right);

// The value of a field in the form of a standard: an item of its own, or null for a missing one. ("date" gives a text.)
ORVO_API std::unique_ptr<QcDtDictItem> FieldValue(const QcDtDictionary& standard, const StandardField& field);
// Puts it there; null leaves the field alone.
ORVO_API void SetFieldValue(QcDtDictionary& standard, const StandardField& field, const QcDtDictItem* value);

// The fields in which two standards differ; they are those of StandardFields, which live as long as the library.
ORVO_API std::vector<const StandardField*> DifferingFields(const OrvoStdSet& left, const OrvoStdSet& right);
