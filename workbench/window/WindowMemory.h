// What the window remembers from one start to the next, in window.xml of the user's folder.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/base/CString.h"

class QcDtDictionary;

inline constexpr std::size_t kMostRecentFiles = 10;

struct RememberedWindow {
    std::string place;            // size, place and state of the window's frame, as the toolkit writes them
    std::string panels;           // the same of the panels
    CString language;             // "zh" or "en", once one was chosen in the window
    bool isParallel = false;      // the view
    bool isSunny = false;         // it, too
    bool isBeijing = false;       // the clock of its sun
    CString folder;               // where a file was chosen last
    std::vector<CString> recent;  // absolute paths of drawings, the latest first
    std::vector<std::pair<CString, CString>> fields;  // of the analysis, each with what stands in it
};

// Several windows may be open at once: each writes what it changed over what the file has by then, so that the recent
// files are those of all of them, and each field is that of the window which changed it last. Places are those of the
// window that closed last.
class WindowMemory {
public:
    // Reads the file; a missing one is none. One that is damaged, or something else, is not used, with a message that
    // tells why; the next save keeps it as window.xml.refused-1 (or the next number).
    void Load();
    const RememberedWindow& Get() const { return m_remembered; }

    void KeepPlace(const std::string& place, const std::string& panels);
    // Those that are other than when they were read or kept by this window.
    void KeepFields(const std::vector<std::pair<CString, CString>>& fields);
    // Likewise.
    void KeepFolder(const CString& folder);
    void KeepLanguage(const CString& language);
    void KeepParallel(bool isParallel);
    void KeepSun(bool isSunny, bool isBeijing);
    // Puts a file in front of the others.
    void KeepRecent(const CString& path);
    void ForgetRecent();

private:
    template <class Change>
    void Keep(Change change);

    RememberedWindow m_remembered;
    RememberedWindow m_own;  // what this window began with, or has kept since
    bool m_isTold = false;   // that it cannot be saved
};
