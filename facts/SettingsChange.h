// A change of the settings that are saved: nobody else saves between reading the file anew and writing it.
// Why: docs/decisions/facts.md
#pragma once

#include <vector>

#include "facts/SettingsFile.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FileLock.h"

// Begins with the settings as the file has them by now, together with what this program has not saved yet. Between
// Begin and Save the caller changes g_SunDataSet. What there is to tell the user is collected, a sentence each, in the
// interface's language, and is the caller's to show.
class ORVO_API SettingsChange {
public:
    // Nothing is read or locked yet.
    SettingsChange() = default;
    SettingsChange(const SettingsChange&) = delete;
    SettingsChange& operator=(const SettingsChange&) = delete;

    // False, and why in the messages, when another program keeps the file locked. A file that was damaged meanwhile is
    // told, too. Where no lock can be made (in a folder that cannot be written, say), it begins without one.
    bool Begin();
    // Saves the settings, and tells what others had changed, too. False, and why in the messages, when they cannot be
    // saved.
    bool Save();
    // What has not been taken yet: each message is given once.
    std::vector<CString> TakeMessages();
    // Of the settings file; empty before Begin, and where that has found none.
    const CString& Path() const { return m_path; }

private:
    FileLock m_lock;
    CString m_path;
    OthersChanges m_others;
    std::vector<CString> m_messages;
};

// The settings in force are those of the file: at the start, before anything changes them.
ORVO_API void RememberSavedSettings();

// The same as a change's beginning, before the module itself saves at the end; the program has locked the file. Gives
// what there is to tell.
ORVO_API std::vector<CString> TakeInAtTheEnd();
