// The host's main window: the drawing in three dimensions, the command line, the menus, and the settings in force.
// Why: docs/decisions/workbench.md
#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/window/CWnd.h"
#include "workbench/terminal/CollectedOutput.h"
#include "workbench/terminal/OutputSink.h"
#include "workbench/window/LongWork.h"
#include "workbench/window/MainMenu.h"
#include "workbench/window/OpenDrawing.h"
#include "workbench/window/SidePanels.h"
#include "workbench/window/WindowMemory.h"

class CommandEdit;
class CommandLog;
class ElidedLabel;
class KeysWindow;
class QLabel;
class SceneView;
class SunBar;

// While it lives it is the host's frame (acedGetAcadFrame), and what subcommands answer, what commands print and what
// the platform reports appears in its log. There may be one at a time. PrepareWindows must have succeeded.
class MainWindow : public QMainWindow, private OutputSink {
public:
    MainWindow();
    ~MainWindow() override;

    // Opens a drawing as the menu does, the question about unsaved changes included. False when it was not opened; the
    // reason stands in the log.
    bool OpenFile(const CString& path);
    // Runs a line as if it were typed.
    void RunLine(const CString& line);
    // Closes the window, now or when the command that runs has ended; dialogs that are open are cancelled. The question
    // about unsaved changes is asked.
    void CloseSoon();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void TakeAnswer(std::string_view text) override;
    void TakeComplaint(std::string_view text) override;
    void TakeNote(std::string_view text) override;

    void BuildWidgets();
    void TakeOverStreams();
    // From whichever thread.
    void AddComplaint(const CString& text);
    // At once in the window's thread, and later and in its order for another one.
    void InOwnThread(const std::function<void()>& work);
    // Puts every text of the window into the language in force.
    void Retranslate();
    // Shows what a command may have changed: the settings' note, the drawing and its state.
    void Refresh();
    void RefreshTitle();
    void RunTyped(const CString& line);
    MenuActions ActionsOfMenu();
    void RestorePlace();
    enum class Aside { Reading, Saving, Analysing };
    void RunAside(Aside kind, const QString& title, std::vector<QWidget*> disabled,
                  const std::function<void(SceneProgress&)>& work);
    void JoinAnalysis();
    // True when what runs may be stopped because the window is closed.
    bool MayStopWork();
    // Closes the window now if it was to be closed while something ran.
    bool CloseIfAsked();
    void CloseLaterIfAsked();
    void ChooseFile();
    void Reload();
    // After a command: another program, or the command itself, may have written the drawing's file.
    void ReloadIfWritten();
    void ToggleParallel();
    QWidget* BuildView();
    void KeepSun();
    void SavePicture();
    void ShowKeys();
    void ApplyHeights();
    void TellOfDrawing();
    bool Save();
    bool SaveAs();
    bool SaveTo(const CString& path);
    // True when the open drawing may go: it has no unsaved changes, or the user has saved or given them up.
    bool MayLeaveDrawing();
    void SetLanguage(const CString& language);
    void ShowAbout();

    CWnd m_frame;
    CollectedOutput m_output;
    OpenDrawing m_drawing;
    MainMenu m_menu;
    WindowMemory m_memory;
    std::unique_ptr<SidePanels> m_panels;
    std::unique_ptr<LongWork> m_work;
    bool m_isRunning = false;
    Aside m_aside = Aside::Reading;  // what ran last
    bool m_isClosing = false;        // once nothing runs any more
    bool m_isClosed = false;
    CommandLog* m_log = nullptr;
    CommandEdit* m_edit = nullptr;
    SceneView* m_view = nullptr;
    SunBar* m_sun = nullptr;
    ElidedLabel* m_note = nullptr;
    QLabel* m_counts = nullptr;
    KeysWindow* m_keys = nullptr;  // none before it was asked for
};
