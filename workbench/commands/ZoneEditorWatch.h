// The editor of the places keeps the rule that its positions have no sign. Whoever saves some that have one is told.
#pragma once

#include <vector>

#include "platform/base/CString.h"

class QcUiGrid;

// Watches, while it lives, what editors of the places have saved when they go. There may be one at a time.
//
// A position that begins with a minus sign is not read back as it is shown. From one degree on its text is saved as it
// stands, and everybody reads the whole degrees of it; within a degree it is saved as a number without the sign.
class ZoneEditorWatch {
public:
    ZoneEditorWatch();
    ~ZoneEditorWatch();
    ZoneEditorWatch(const ZoneEditorWatch&) = delete;
    ZoneEditorWatch& operator=(const ZoneEditorWatch&) = delete;

    // Complains about the places that were saved with positions that lead elsewhere; says nothing where there are none.
    void Report() const;

private:
    static void OnGridGoing(const QcUiGrid& grid, void* watch);

    std::vector<CString> m_lostMinutes;  // rows in words: place and texts
    std::vector<CString> m_lostSigns;
};
