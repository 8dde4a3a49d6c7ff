// The module's dialogs as its script has them, and how tests look at them.
#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/window/WindowStyles.h"
#include "platform/window/resource/ResourceScript.h"
#include "support/Folders.h"

// The dialogs for Chinese texts, each with the roomier one beside it.
struct DialogPair {
    UINT chinese;
    UINT wide;
};
inline constexpr DialogPair kPairs[] = {{2000, 2001}, {2004, 2015}, {2005, 2016},
                                        {2008, 2014}, {2009, 2013}, {2010, 2017}};

inline std::string SourceText(const std::string& path) {
    std::ifstream file(SourceFolder() + "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Read once, from the sources: the numbers first, which the script includes. Without dialogs when it cannot be read.
inline const ResourceScript& ModuleDialogs() {
    static const ResourceScript script = [] {
        ResourceScript reader;
        CString message;
        reader.Parse(SourceText("module/resources/Resource.h") + SourceText("module/resources/OrvoDataBase.rc"),
                     message);
        return reader;
    }();
    return script;
}

// An empty one for a number that no dialog has.
inline DialogTemplate DialogOf(UINT id) {
    const DialogTemplate* dialog = ModuleDialogs().FindDialog(id);
    return dialog ? *dialog : DialogTemplate();
}

// The first item of this number; an empty one where there is none.
inline DialogItemTemplate ItemOf(const DialogTemplate& dialog, UINT id) {
    for (const DialogItemTemplate& item : dialog.items)
        if (item.id == id)
            return item;
    return {};
}

inline bool IsButton(const DialogItemTemplate& item, DWORD kind) {
    return item.windowClass == L"BUTTON" && (item.style & BS_TYPEMASK) == kind;
}
inline bool IsGroupBox(const DialogItemTemplate& item) {
    return IsButton(item, BS_GROUPBOX);
}
inline bool IsRadio(const DialogItemTemplate& item) {
    return IsButton(item, BS_AUTORADIOBUTTON);
}

// The height while a combo box's list is not dropped down.
inline int HeightOf(const DialogItemTemplate& item) {
    constexpr int kClosed = 14;
    return item.windowClass == L"COMBOBOX" ? kClosed : item.cy;
}
