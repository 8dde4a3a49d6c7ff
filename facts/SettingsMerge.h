// Two programs have changed the same settings: what each of them changed, put together.
// Why: docs/decisions/facts.md
#pragma once

#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/QcDtDictionary.h"

// Something that both have changed, each in its own way. What is merged holds this program's value.
struct SettingsConflict {
    CString standard;      // its name; empty for a setting
    const wchar_t* label;  // built-in text for the field; null for a standard as a whole, which one of them deleted
};

// What comes of a merge.
struct MergedSettings {
    std::unique_ptr<QcDtDictionary> form;     // in the form of SettingsForm.h; never null
    std::vector<SettingsConflict> conflicts;  // empty where both can be had
};

// Merges item by item: the settings one by one, standards by their names, and each standard field by field. All three
// are in the form of SettingsForm.h: `known` is what this program last read or wrote, `mine` what it has now, `theirs`
// what the file holds now.
//   - What only one of them has changed, added or deleted is changed, added or deleted. What both have changed is as in
//     `mine`, and told; also where one deleted the standard that the other changed.
//   - Standards stand in the order of `theirs`; those that only `mine` has follow the one that they follow there.
//   - The current standard is a name here, not an index. Where the chosen one was deleted, the other one's choice takes
//     its place, else the first standard.
//   - The analysed places are those of both, without those that either has removed.
//   - Should nothing be left of the standards, because each deleted what the other kept, those of `mine` stay.
ORVO_API MergedSettings MergeSettings(const QcDtDictionary& known, const QcDtDictionary& mine,
                                      const QcDtDictionary& theirs);
