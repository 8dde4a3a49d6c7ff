// Asking for a file to open or to save, or for a folder.
// Why: docs/decisions/window.md
#pragma once

#include "platform/window/CWnd.h"

inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x0002;  // ask before an existing file's name is taken
inline constexpr DWORD OFN_HIDEREADONLY = 0x0004;     // no choice of opening for reading only: there is none here
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x1000;    // refuse a name that is none of a file

// OFN_FILEMUSTEXIST: opening refuses, with a message, a name that is none of a file. OFN_OVERWRITEPROMPT: saving asks
// before it takes the name of a file that exists.
//
// A ModalDriver answers it like any dialog (IDOK accepts what is named in it); SetNextFileForTest chooses the file
// without one.
class ORVO_API CFileDialog {
public:
    // Filter: pairs of a description and patterns ("图纸 (*.dxf)|*.dxf|全部 (*.*)|*.*||"). The default extension is
    // added when saving to a name without one.
    explicit CFileDialog(BOOL openFile, const wchar_t* defaultExtension = nullptr, const wchar_t* fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const wchar_t* filter = nullptr,
                         CWnd* parent = nullptr);

    // IDOK with a path, or IDCANCEL; also IDCANCEL, with a message, where nobody could answer.
    INT_PTR DoModal();
    // Full path of the chosen file; empty before, and when the dialog was cancelled.
    CString GetPathName() const { return m_path; }
    // Its last part; empty as well.
    CString GetFileName() const;

    // Where dialogs begin that were given no name with a folder: where a file was chosen last, by any of them, or what
    // was set since. Empty, or gone meanwhile: where the toolkit has it.
    static void SetFolder(const wchar_t* folder);
    static CString GetFolder();

    // For tests: the next dialogs are not shown, but answered with this path (null: cancelled), until they are to be
    // shown again.
    static void SetNextFileForTest(const wchar_t* path);
    static void ShowDialogsAgainForTest();

protected:
    // Whether it is a folder that is asked for; set before DoModal.
    bool m_isFolder = false;

private:
    bool m_isOpen;
    DWORD m_flags;
    CString m_extension;
    CString m_fileName;
    CString m_filter;
    CString m_path;
    CWnd* m_parent;
};

// Asks for a folder: one that is there, or the name of a new one in a folder that is there. It is not made.
class ORVO_API CFolderPickerDialog : public CFileDialog {
public:
    // The folder that is shown first; null: the current one. Flags as above; the parent is not owned, and may be null.
    explicit CFolderPickerDialog(const wchar_t* folder = nullptr, DWORD flags = 0, CWnd* parent = nullptr);
};
