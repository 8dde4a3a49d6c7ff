// The settings file between programs: what this one knows of it, and what others have written into it since.
// Why: docs/decisions/facts.md
#pragma once

#include <memory>
#include <vector>

#include "facts/SettingsMerge.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/QcDtDictionary.h"

class OrvoDataSet;

// What others have written since this program last read or wrote the file.
class ORVO_API OthersChanges {
public:
    // Nothing.
    OthersChanges() = default;
    // From what this program knew of the file to what stands there now, both in the form of SettingsForm.h.
    OthersChanges(std::unique_ptr<QcDtDictionary> known, std::unique_ptr<QcDtDictionary> theirs)
        : m_known(std::move(known)), m_theirs(std::move(theirs)) {}

    // Whether nobody has written anything.
    bool IsEmpty() const { return !m_theirs; }
    // What others and this program have both changed, by the settings as they are now.
    std::vector<SettingsConflict> ConflictsWith(const OrvoDataSet& settings) const;

private:
    std::unique_ptr<QcDtDictionary> m_known;
    std::unique_ptr<QcDtDictionary> m_theirs;
};

// Keeps the settings in memory (which the module reads at its start and writes whenever it saves) from undoing what
// others write meanwhile. Whoever calls TakeIn and then saves holds the file's lock (FileLock.h) from before the one
// until after the other.
class ORVO_API SettingsFile {
public:
    // How the file was found.
    enum class State {
        Sound,    // the file was read; or there is none, or one at another place than before
        Damaged,  // it is refused, or holds no settings
    };

    // The settings are now as the file has them: right after they were read, and after each save. (A damaged file has
    // none; what the program puts in force instead is what it knows.)
    void Remember(const OrvoDataSet& settings, const CString& path);
    // Reads the file anew and merges into the settings what others have changed since. Settings that were never
    // remembered stay as they are, and so they do where the file is damaged: the next save replaces it, and it stays
    // beside as NAME.refused-1, or the next number that is free.
    State TakeIn(OrvoDataSet& settings, const CString& path, OthersChanges& changes);
    // Whether the file was sound when it was last looked at.
    bool IsSound() const { return m_isSound; }

private:
    std::unique_ptr<QcDtDictionary> m_known;
    CString m_path;
    bool m_isSound = true;
};

// Puts settings in the form of SettingsForm.h (or of a file) in force. What no file keeps follows: the whole-number
// copies, and the position of the place, which is unknown until somebody looks it up when the place is another one.
ORVO_API void PutInForce(const QcDtDictionary& form, OrvoDataSet& settings);

// The step's whole-number copy is made to agree with the step, so that the note line tells the truth.
ORVO_API void RefreshWholeStep(OrvoDataSet& settings);

// The one of this program, which lives as long as it does.
ORVO_API SettingsFile& SharedSettingsFile();
