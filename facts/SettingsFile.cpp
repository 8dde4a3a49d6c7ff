// Reads the settings file again and merges what others have written into it.
#include "facts/SettingsFile.h"

#include "facts/ClockText.h"
#include "facts/SettingsForm.h"
#include "platform/base/AtomicFile.h"
#include "platform/base/DictionaryFault.h"
#include "settings/OrvoDataSet.h"

namespace {

// The settings as a file gives them back: the module reads some values otherwise than it writes them, such as a step
// with a fraction. So nothing that only a reading has changed counts as somebody's change.
std::unique_ptr<QcDtDictionary> FileFormOf(const OrvoDataSet& settings) {
    OrvoDataSet read;
    read.LoadSunDataSetDict(FormOf(settings).get());
    return FormOf(read);
}

// What the file holds, likewise, so that only values are compared, not ways of writing them. Null for a damaged file.
std::unique_ptr<QcDtDictionary> ReadForm(const CString& path) {
    QcDtDictionary file;
    OrvoDataSet read;
    if (!file.ReadFromXML(path) || !read.LoadSunDataSetDict(&file))
        return nullptr;
    return FormOf(read);
}

}  // namespace

std::vector<SettingsConflict> OthersChanges::ConflictsWith(const OrvoDataSet& settings) const {
    if (IsEmpty())
        return {};
    return MergeSettings(*m_known, *FileFormOf(settings), *m_theirs).conflicts;
}

void SettingsFile::Remember(const OrvoDataSet& settings, const CString& path) {
    m_known = FileFormOf(settings);
    m_path = path;
    m_isSound = path.IsEmpty() || ReadForm(path);
}

SettingsFile::State SettingsFile::TakeIn(OrvoDataSet& settings, const CString& path, OthersChanges& changes) {
    changes = OthersChanges();
    if (path.IsEmpty() || path != m_path || !m_known)
        return State::Sound;
    std::unique_ptr<QcDtDictionary> theirs = ReadForm(path);
    m_isSound = theirs != nullptr;
    if (!theirs) {
        // Of a file that can be read and holds something else, a save would only keep a backup, until the next save.
        if (DictionaryFaultText(path).IsEmpty())
            KeepRefusedFile(path);
        return State::Damaged;
    }
    if (IsSameItem(m_known.get(), theirs.get()))
        return State::Sound;
    PutInForce(*MergeSettings(*m_known, *FileFormOf(settings), *theirs).form, settings);
    changes = OthersChanges(std::move(m_known), std::unique_ptr<QcDtDictionary>(theirs->Clone()));
    m_known = std::move(theirs);
    return State::Sound;
}

void PutInForce(const QcDtDictionary& form, OrvoDataSet& settings) {
    const CString city = settings.m_strCurCity;
    const std::unique_ptr<QcDtDictionary> copy(form.Clone());
    settings.LoadSunDataSetDict(copy.get());
    RefreshWholeStep(settings);
    if (settings.m_strCurCity != city)
        static_cast<OrvoZoneRecord&>(settings) = OrvoZoneRecord();
}

void RefreshWholeStep(OrvoDataSet& settings) {
    if (settings.m_dSpace >= 1.0 && settings.m_dSpace <= kMinutesPerDay)
        settings.m_nSpace = static_cast<int>(settings.m_dSpace);
}

SettingsFile& SharedSettingsFile() {
    static SettingsFile file;
    return file;
}
