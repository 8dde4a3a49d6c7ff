// The toolkit's file dialog; the desktop's own where there is one.
#include "platform/window/CFileDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <memory>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/window/toolkit/Application.h"
#include "platform/window/toolkit/ModalRun.h"
#include "platform/window/toolkit/QtText.h"

namespace {

// What the next dialogs are answered with by a test; none while null.
std::unique_ptr<CString>& NextFile() {
    static std::unique_ptr<CString> next;
    return next;
}

CString& LastFolder() {
    static CString folder;
    return folder;
}

// Of a folder that was chosen it is the one around it, in which one finds it again.
void Remember(const CString& chosen) {
    LastFolder() = FromQString(QFileInfo(ToQString(chosen)).absolutePath());
}

// A name without a folder goes into the last one.
void Begin(QFileDialog& dialog, const QString& name) {
    const QString folder = ToQString(LastFolder());
    if (!name.contains('/') && !folder.isEmpty() && QFileInfo(folder).isDir())
        dialog.setDirectory(folder);
    if (!name.isEmpty())
        dialog.selectFile(name);
}

// "Description|*.a;*.b|...||" as the toolkit has it: "Description (*.a *.b)". A description that names its patterns
// already is not given them twice.
QStringList Filters(const CString& filter) {
    CStringArray parts;
    CutStrToArr(filter, L"|", parts);
    QStringList filters;
    for (int i = 0; i + 1 < parts.GetSize(); i += 2) {
        QString description = ToQString(parts.GetAt(i));
        const QString patterns = ToQString(parts.GetAt(i + 1)).replace(';', ' ');
        if (patterns.isEmpty())
            break;
        const qsizetype bracket = description.lastIndexOf('(');
        if (bracket > 0 && description.endsWith(')'))
            description = description.left(bracket).trimmed();
        filters << description + " (" + (patterns == "*.*" ? QString("*") : patterns) + ")";
    }
    return filters;
}

// The toolkit's dialog with our captions and our questions.
class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* owner, bool open, bool isFolder, DWORD flags) : QFileDialog(owner), m_isFolder(isFolder) {
        setObjectName("FileDialog");
        setOption(DontUseNativeDialog, ModalDriver::IsThere());
        setAcceptMode(open ? AcceptOpen : AcceptSave);
        m_mustExist = open && (flags & OFN_FILEMUSTEXIST) != 0;
        m_asks = !open && (flags & OFN_OVERWRITEPROMPT) != 0;
        setFileMode(isFolder ? Directory : m_mustExist ? ExistingFile : AnyFile);
        setOption(ShowDirsOnly, isFolder);
        setOption(DontConfirmOverwrite, !m_asks || IsOurs());
        setWindowTitle(ToQString(isFolder ? PlatformText(L"选择文件夹")
                                 : open   ? PlatformText(L"打开文件")
                                          : PlatformText(L"保存文件")));
        setLabelText(LookIn, ToQString(PlatformText(L"位置：")));
        setLabelText(FileName, ToQString(isFolder ? PlatformText(L"文件夹(&N)：") : PlatformText(L"文件名(&N)：")));
        setLabelText(FileType, ToQString(PlatformText(L"文件类型(&T)：")));
        setLabelText(Accept, ToQString(isFolder ? PlatformText(L"选择(&S)")
                                       : open   ? PlatformText(L"打开(&O)")
                                                : PlatformText(L"保存(&S)")));
        setLabelText(Reject, ToQString(PlatformText(L"取消")));
        NameTypes();
    }

    // Carries out a driver's answer. What cannot be accepted is left. False for an answer that it does not know.
    bool Press(int command) {
        const QPointer<FileDialog> alive = this;
        if (command == IDOK)
            accept();
        if (!alive.isNull() && isVisible())
            reject();
        return command == IDOK || command == IDCANCEL || command == ModalDriver::kCareful;
    }

protected:
    void accept() override {
        const QPointer<FileDialog> alive = this;
        if (IsOurs() && IsNewFolder())
            return done(QDialog::Accepted);  // the toolkit itself accepts only those that are there
        if (!IsOurs() || MayAccept()) {
            if (!alive.isNull())
                QFileDialog::accept();
        }
    }

private:
    // Whether the toolkit shows it, and not the desktop, which asks its own questions.
    bool IsOurs() const { return findChild<QWidget*>("fileNameEdit") != nullptr; }

    // The toolkit ties the label to nothing that has the focus, and then shows the mark of its key as a letter.
    void NameTypes() {
        auto* label = findChild<QLabel*>("fileTypeLabel");
        auto* types = findChild<QComboBox*>("fileTypeCombo");
        if (label != nullptr && types != nullptr)
            label->setBuddy(types);
    }

    bool IsNewFolder() const {
        const QStringList files = selectedFiles();
        const QFileInfo folder(m_isFolder && !files.isEmpty() ? files.front() : QString());
        return !folder.fileName().isEmpty() && !folder.exists() && folder.dir().exists();
    }

    bool MayAccept() {
        const QStringList files = selectedFiles();
        const QFileInfo file(files.isEmpty() ? QString() : files.front());
        if (files.isEmpty() || file.isDir())
            return true;
        const HWND box = reinterpret_cast<HWND>(static_cast<QWidget*>(this));
        const CString name = FromQString(file.fileName());
        const CString title = FromQString(windowTitle());
        CString text;
        if (m_mustExist && !file.exists()) {
            text.Format(PlatformText(L"文件“%s”不存在。"), name);
            ::MessageBox(box, text, title, MB_ICONEXCLAMATION);
            return false;
        }
        if (!m_asks || !file.exists())
            return true;
        text.Format(PlatformText(L"文件“%s”已经存在。要替换它吗？"), name);
        return ::MessageBox(box, text, title, MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) == IDYES;
    }

    bool m_isFolder;
    bool m_mustExist = false;
    bool m_asks = false;
};

}  // namespace

CFileDialog::CFileDialog(BOOL openFile, const wchar_t* defaultExtension, const wchar_t* fileName, DWORD flags,
                         const wchar_t* filter, CWnd* parent)
    : m_isOpen(openFile != FALSE),
      m_flags(flags),
      m_extension(defaultExtension),
      m_fileName(fileName),
      m_filter(filter),
      m_parent(parent) {}

INT_PTR CFileDialog::DoModal() {
    m_path.Empty();
    if (const CString* next = NextFile().get()) {
        m_path = *next;
        if (!m_path.IsEmpty())
            Remember(m_path);
        return m_path.IsEmpty() ? IDCANCEL : IDOK;
    }
    if (!CanBeAnswered()) {
        ReportMessage(m_isFolder ? PlatformText(L"没有显示器，无法选择文件夹。")
                                 : PlatformText(L"没有显示器，无法选择文件。"));
        return IDCANCEL;
    }
    const HWND owner = m_parent ? m_parent->m_hWnd : nullptr;
    auto* dialog = new FileDialog(WidgetOf(owner), m_isOpen, m_isFolder, m_flags);
    dialog->setNameFilters(Filters(m_filter));
    if (!m_isOpen)
        dialog->setDefaultSuffix(ToQString(m_extension));
    Begin(*dialog, ToQString(m_fileName));
    // It goes with its owner, should that be destroyed meanwhile.
    if (!::RunModal(dialog, {FromQString(dialog->windowTitle()), CString(), owner, nullptr},
                    [dialog](int command) { return dialog->Press(command); }))
        return IDCANCEL;
    const QStringList files = dialog->selectedFiles();
    if (dialog->result() == QDialog::Accepted && !files.isEmpty())
        m_path = FromQString(QFileInfo(files.front()).absoluteFilePath());
    delete dialog;
    if (!m_path.IsEmpty())
        Remember(m_path);
    return m_path.IsEmpty() ? IDCANCEL : IDOK;
}

CString CFileDialog::GetFileName() const {
    return m_path.Mid(m_path.ReverseFind(L'/') + 1);
}

void CFileDialog::SetFolder(const wchar_t* folder) {
    LastFolder() = folder;
}

CString CFileDialog::GetFolder() {
    return LastFolder();
}

void CFileDialog::SetNextFileForTest(const wchar_t* path) {
    NextFile() = std::make_unique<CString>(path);
}

void CFileDialog::ShowDialogsAgainForTest() {
    NextFile().reset();
}

CFolderPickerDialog::CFolderPickerDialog(const wchar_t* folder, DWORD flags, CWnd* parent)
    : CFileDialog(TRUE, nullptr, folder, flags, nullptr, parent) {
    m_isFolder = true;
}
