// The window's drawing: chosen, dropped, opened, read anew, saved, and asked about before it goes.
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "platform/base/PlainText.h"
#include "platform/base/Support.h"
#include "platform/window/CFileDialog.h"
#include "platform/window/MessageBox.h"
#include "workbench/Texts.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/CommandLog.h"
#include "workbench/window/MainWindow.h"

namespace {

// The first local file among what is dragged; empty when there is none.
CString DraggedFile(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            return Typed(url.toLocalFile());
    return CString();
}

CString DrawingFilter() {
    return Say(L"图形文件 (*.dxf)") + L"|*.dxf;*.DXF|" + Say(L"所有文件 (*)") + L"|*||";
}

}  // namespace

void MainWindow::ChooseFile() {
    if (m_isRunning)
        return;
    CFileDialog dialog(TRUE, L"dxf", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, DrawingFilter().GetString(),
                       &m_frame);
    if (dialog.DoModal() == IDOK)
        OpenFile(dialog.GetPathName());
}

bool MainWindow::OpenFile(const CString& path) {
    if (m_isRunning)
        return false;  // what runs may be working on the drawing that is open
    if (!MayLeaveDrawing())
        return false;
    m_log->AddText(SayFormat(L"正在打开 %s ...", Printable(path)));
    CString message;
    const bool isOpen = m_drawing.Open(path, message);
    if (CloseIfAsked())
        return isOpen;
    if (!isOpen) {
        m_log->AddComplaint(message.IsEmpty() ? Say(L"已取消打开") : message);
        return false;
    }
    if (!message.IsEmpty())
        m_log->AddComplaint(message);
    m_view->SetScene(m_drawing.GetScene());
    m_panels->ShowDrawing(true);
    m_memory.KeepRecent(m_drawing.GetPath());
    // What is made of a sample lies better elsewhere.
    if (!IsInstalledDataPath(m_drawing.GetPath().GetString()))
        CFileDialog::SetFolder(m_drawing.GetFolder().GetString());
    m_menu.RefreshRecent();
    TellOfDrawing();
    Refresh();
    return true;
}

void MainWindow::TellOfDrawing() {
    const Scene& scene = *m_drawing.GetScene();
    m_log->AddText(SayFormat(L"已打开：实体 %d 个，面 %d 个", static_cast<int>(m_drawing.GetEntityCount()),
                             static_cast<int>(scene.faces.size())));
    if (scene.faultyCount > 0)
        m_log->AddComplaint(SayFormat(L"%d 个实体的数据组不成面，没有显示", static_cast<int>(scene.faultyCount)));
    if (!scene.tooLarge.empty())
        m_log->AddComplaint(m_drawing.GetTooLargeText());
    if (scene.lines.leftOutCount > 0)
        m_log->AddComplaint(SayFormat(L"%d 个实体的线太多（图形一共超过 %d 段），没有显示",
                                      static_cast<int>(scene.lines.leftOutCount),
                                      static_cast<int>(kMostSceneSegments)));
    if (scene.faces.empty() && !scene.lines.segments.empty())
        m_log->AddText(Say(L"这个图形只有线，没有面。要让闭合的轮廓成为房屋，请在图层列表里写上它们的高度"));
}

void MainWindow::Reload() {
    if (m_isRunning || !m_drawing.IsOpen() || !MayLeaveDrawing())
        return;
    // The ids of a drawing that was read anew are others.
    const std::uint64_t picked = m_drawing.GetDatabase().GetHandle(m_view->GetPicked());
    CString message;
    const bool isRead = m_drawing.Reload(message);
    if (CloseIfAsked())
        return;
    if (!isRead)
        return m_log->AddComplaint(message.IsEmpty() ? Say(L"已取消重新读入") : message);
    if (!message.IsEmpty())
        m_log->AddComplaint(message);
    m_view->UpdateScene(m_drawing.GetScene());
    m_panels->ShowDrawing(false);
    m_view->Pick(m_drawing.GetDatabase().FindHandle(picked));  // which panels look up in the drawing that they know
    m_log->AddText(SayFormat(L"已重新读入 %s", Printable(m_drawing.GetFileName())));
    Refresh();
}

// Changes that are not saved stay: those of the file can be had with F5, after a question.
void MainWindow::ReloadIfWritten() {
    if (!m_drawing.IsOpen() || !m_drawing.HasFileChanged())
        return;
    if (m_drawing.IsModified())
        m_log->AddComplaint(SayFormat(L"%s 的文件已被改写，这里的图形还有没有保存的改动；按 F5 重新读入",
                                      Printable(m_drawing.GetFileName())));
    else
        Reload();
}

bool MainWindow::Save() {
    if (!m_drawing.IsOpen())
        return true;
    if (m_isRunning)
        return false;
    if (m_drawing.HasFileChanged() &&
        MessageBox(
            m_frame.m_hWnd,
            SayFormat(L"%s 打开以后被别的程序改动过。仍要用这里的图形替换它吗？", m_drawing.GetFileName()).GetString(),
            L"orvo", MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) != IDYES)
        return false;
    return SaveTo(m_drawing.GetPath());
}

bool MainWindow::SaveAs() {
    if (!m_drawing.IsOpen())
        return true;
    if (m_isRunning)
        return false;
    CFileDialog dialog(FALSE, L"dxf", m_drawing.GetPath().GetString(), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       DrawingFilter().GetString(), &m_frame);
    return dialog.DoModal() == IDOK && SaveTo(dialog.GetPathName());
}

bool MainWindow::SaveTo(const CString& path) {
    CString message;
    const bool isSaved = m_drawing.Save(path, message);
    if (isSaved)
        m_log->AddText(SayFormat(L"已保存到 %s", Printable(path)));
    else
        m_log->AddComplaint(message);
    m_panels->ShowDrawing(false);  // another file
    RefreshTitle();
    CloseLaterIfAsked();
    return isSaved;
}

bool MainWindow::MayLeaveDrawing() {
    if (!m_drawing.IsModified())
        return true;
    const CString question = SayFormat(L"%s 有没有保存的改动。现在保存吗？", m_drawing.GetFileName());
    const int answer = MessageBox(m_frame.m_hWnd, question.GetString(), L"orvo", MB_YESNOCANCEL | MB_ICONQUESTION);
    return answer == IDNO || (answer == IDYES && Save());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!m_isRunning && !DraggedFile(*event->mimeData()).IsEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const CString path = DraggedFile(*event->mimeData());
    if (m_isRunning || path.IsEmpty())
        return;
    event->acceptProposedAction();
    OpenFile(path);
}
