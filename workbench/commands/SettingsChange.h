// A change of the settings that are saved: nobody else saves between reading the file anew and writing it.
#pragma once

#include "platform/base/FileLock.h"
#include "workbench/settings/SettingsFile.h"

// Begins with the settings as the file has them by now, together with what this program has not saved yet.
class SettingsChange {
public:
    SettingsChange() = default;
    SettingsChange(const SettingsChange&) = delete;
    SettingsChange& operator=(const SettingsChange&) = delete;

    // False, with a complaint, when another program keeps the file locked.
    bool Begin();
    // Saves the settings and tells what others had changed, too. False, with a complaint, when they cannot be saved.
    bool Save();
    const CString& Path() const { return m_path; }

private:
    FileLock m_lock;
    CString m_path;
    OthersChanges m_others;
};

// The settings in force are those of the file: at the start, before anything changes them.
void RememberSavedSettings();

// The same as a change's beginning, before the module itself saves at the end; the program has locked the file.
void TakeInAtTheEnd();
