// The window's parts and how they work together.
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QThread>
#include <QVBoxLayout>
#include <exception>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/base/PlainText.h"
#include "platform/host/CommandLine.h"
#include "platform/window/CFileDialog.h"
#include "platform/window/HostFrame.h"
#include "platform/window/MessageBox.h"
#include "workbench/Texts.h"
#include "workbench/commands/ConfigRecovery.h"
#include "workbench/commands/PromptLine.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/RequestForm.h"
#include "workbench/panel/ResultFiles.h"
#include "workbench/view/ElidedLabel.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/AboutText.h"
#include "workbench/window/CommandEdit.h"
#include "workbench/window/CommandLog.h"
#include "workbench/window/HintColors.h"
#include "workbench/window/SavedView.h"
#include "workbench/window/SettingsNote.h"
#include "workbench/window/SunBar.h"
#include "workbench/window/WindowIcon.h"
#include "workbench/window/WindowKeys.h"

MenuActions MainWindow::ActionsOfMenu() {
    MenuActions actions;
    actions.open = [this] { ChooseFile(); };
    actions.save = [this] { Save(); };
    actions.saveAs = [this] { SaveAs(); };
    actions.run = [this](const CString& line) { RunLine(line); };
    actions.setLanguage = [this](const CString& language) { SetLanguage(language); };
    actions.about = [this] { ShowAbout(); };
    actions.addPanels = [this](QMenu& menu) { m_panels->AddEntries(menu); };
    actions.addAnalyses = [this](QMenu& menu) { m_panels->AddAnalyses(menu); };
    actions.toggleParallel = [this] {
        m_view->SetParallel(!m_view->IsParallel());
        ToggleParallel();
    };
    actions.toggleSun = [this] { m_sun->SetOn(!m_sun->IsOn()); };
    actions.savePicture = [this] { SavePicture(); };
    actions.reload = [this] { Reload(); };
    actions.openFile = [this](const CString& path) { OpenFile(path); };
    actions.recent = [this] { return m_memory.Get().recent; };
    actions.clearRecent = [this] { m_memory.ForgetRecent(); };
    actions.keys = [this] { ShowKeys(); };
    return actions;
}

MainWindow::MainWindow() : m_menu(*this, ActionsOfMenu()) {
    setObjectName("MainWindow");
    setWindowIcon(WindowIcon());
    setAcceptDrops(true);
    BuildWidgets();
    new HintColors(*this);  // the window's own
    AttachFrame(m_frame, static_cast<QWidget*>(this));
    acedSetAcadFrame(&m_frame);
    TakeOverStreams();
    m_memory.Load();
    CFileDialog::SetFolder(m_memory.Get().folder.GetString());
    if (const CString& kept = m_memory.Get().language; !kept.IsEmpty() && !g_isLanguageAsked && g_pTeskLangSwitch)
        g_pTeskLangSwitch->SetLanguage(kept.GetString());
    m_view->SetParallel(m_memory.Get().isParallel);
    Retranslate();
    m_sun->SetBeijing(m_memory.Get().isBeijing);
    m_sun->SetOn(m_memory.Get().isSunny);
    m_sun->m_onChoice = [this] { KeepSun(); };
    m_menu.SetSunny(m_sun->IsOn());
    m_panels->GetAnalysis().GetForm().SetKept(m_memory.Get().fields);
    RestorePlace();
    m_edit->setFocus();
    for (const CString& message : MessagesOnUnusableFiles())
        m_log->AddComplaint(message);
}

// At first a usual size, or all of a smaller screen.
void MainWindow::RestorePlace() {
    resize(QSize(1100, 760).boundedTo(screen()->availableSize()));
    const RememberedWindow& kept = m_memory.Get();
    restoreGeometry(QByteArray::fromStdString(kept.place));
    m_panels->RestorePlaces(QByteArray::fromStdString(kept.panels));
    m_panels->FitTo(width());
}

MainWindow::~MainWindow() {
    m_panels.reset();
    SetOutputSink(nullptr);
    SetCommandLineSink(nullptr, nullptr);
    SetMessageSink(nullptr, nullptr);
    acedSetAcadFrame(nullptr);
}

QWidget* MainWindow::BuildView() {
    m_view = new SceneView(this);
    m_sun = new SunBar(this);
    m_sun->m_onSun = [this] {
        m_view->SetSun(m_sun->GetSun());
        m_panels->GetAnalysis().SetSun(m_sun->GetSun(), m_sun->GetDay());
    };
    auto* both = new QWidget(this);
    auto* column = new QVBoxLayout(both);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_sun);
    return both;
}

void MainWindow::KeepSun() {
    m_menu.SetSunny(m_sun->IsOn());
    m_memory.KeepSun(m_sun->IsOn(), m_sun->IsBeijing());
}

void MainWindow::BuildWidgets() {
    QWidget* const view = BuildView();
    m_log = new CommandLog(this);
    m_edit = new CommandEdit(this);
    m_edit->m_onLine = [this](const CString& line) { RunTyped(line); };
    m_edit->m_onChoices = [this](const std::vector<CString>& choices) {
        CString line;
        for (const CString& choice : choices)
            line += choice + L"  ";
        m_log->AddText(line);
    };

    auto* commands = new QWidget(this);
    auto* column = new QVBoxLayout(commands);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_log);
    column->addWidget(m_edit);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(view);
    splitter->addWidget(commands);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({600, 120});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);
    m_drawing.SetRunner([this](OpenDrawing::Work kind, const std::function<void(SceneProgress&)>& work) {
        const bool isReading = kind == OpenDrawing::Work::Reading;
        RunAside(isReading ? Aside::Reading : Aside::Saving, isReading ? ShownSay(L"读入图形") : ShownSay(L"保存图形"),
                 {m_panels->GetLayers(), &m_panels->GetAnalysis()}, work);
    });
    m_panels = std::make_unique<SidePanels>(*this, *m_view, m_drawing);
    m_panels->m_onHeights = [this] { ApplyHeights(); };
    m_panels->m_onComplaint = [this](const CString& text) { m_log->AddComplaint(text); };
    JoinAnalysis();
    m_view->m_onParallel = [this] { ToggleParallel(); };

    m_note = new ElidedLabel(this);
    m_note->setObjectName("Note");
    m_counts = new QLabel(this);
    m_counts->setObjectName("Counts");
    statusBar()->addWidget(m_note, 1);
    statusBar()->addPermanentWidget(m_counts);
    m_work = std::make_unique<LongWork>(*statusBar());
}

// The drawing is not to be touched meanwhile. What is in the view may be looked at from all sides.
void MainWindow::RunAside(Aside kind, const QString& title, std::vector<QWidget*> disabled,
                          const std::function<void(SceneProgress&)>& work) {
    disabled.insert(disabled.end(), {menuBar(), m_edit});
    m_isRunning = true;
    m_aside = kind;
    const auto end = [this] { m_isRunning = false; };
    try {
        m_work->Run(title, disabled, work, kind != Aside::Saving);
    } catch (...) {
        end();
        throw;
    }
    end();
}

void MainWindow::JoinAnalysis() {
    AnalysisPanel& panel = m_panels->GetAnalysis();
    panel.m_say = [this](const CString& text) { m_log->AddText(text); };
    panel.m_complain = [this](const CString& text) { m_log->AddComplaint(text); };
    panel.m_onTime = [this](double hours) { m_sun->ShineAt(hours); };
    panel.m_onNorth = [this](double degrees) {
        m_sun->SetNorth(degrees);
        m_view->SetNorth(degrees);
    };
    panel.m_mayRun = [this] { return !m_isRunning && !m_isClosing; };
    panel.m_run = [this](const QString& title, std::vector<QWidget*> disabled,
                         const std::function<void(SceneProgress&)>& work) {
        if (!m_panels->GetAnalysis().m_mayRun())
            return false;
        // Heights are typed into the list of layers.
        disabled.push_back(m_panels->GetLayers());
        RunAside(Aside::Analysing, title, disabled, work);
        CloseLaterIfAsked();
        return true;
    };
}

// Once whoever ran something has shown what there is.
void MainWindow::CloseLaterIfAsked() {
    QMetaObject::invokeMethod(
        this, [this] { CloseIfAsked(); }, Qt::QueuedConnection);
}

bool MainWindow::CloseIfAsked() {
    if (!m_isClosing || m_isRunning)
        return false;
    close();
    return m_isClosed;
}

void MainWindow::TakeOverStreams() {
    SetOutputSink(this);
    SetCommandLineSink(
        [](const wchar_t* text, void* window) { static_cast<MainWindow*>(window)->m_log->AddText(text); }, this);
    SetMessageSink([](const wchar_t* text, void* window) { static_cast<MainWindow*>(window)->AddComplaint(text); },
                   this);
}

void MainWindow::TakeAnswer(std::string_view text) {
    m_log->AddText(FromUtf8(text));
}

void MainWindow::TakeComplaint(std::string_view text) {
    AddComplaint(FromUtf8(text));
}

void MainWindow::TakeNote(std::string_view text) {
    InOwnThread([this, said = FromUtf8(text)] { m_log->AddText(said); });
}

void MainWindow::AddComplaint(const CString& text) {
    InOwnThread([this, text] { m_log->AddComplaint(text); });
}

void MainWindow::InOwnThread(const std::function<void()>& work) {
    if (QThread::currentThread() == thread())
        return work();
    QMetaObject::invokeMethod(this, work, Qt::QueuedConnection);
}

void MainWindow::Retranslate() {
    m_menu.Build();
    m_edit->setPlaceholderText(ShownSay(L"输入命令，Tab 补全，↑↓ 翻看用过的命令"));
    m_edit->setAccessibleName(ShownSay(L"命令行"));
    m_log->setAccessibleName(ShownSay(L"命令记录"));
    m_view->Retranslate();
    m_sun->Retranslate();
    m_panels->Retranslate();
    m_work->Retranslate();
    if (m_keys)
        m_keys->Retranslate();
    m_menu.SetParallel(m_view->IsParallel());
    Refresh();
}

void MainWindow::Refresh() {
    CString message;
    const std::shared_ptr<const Scene> before = m_drawing.GetScene();
    const bool isFresh = m_drawing.RefreshScene(message);
    if (!message.IsEmpty())
        m_log->AddComplaint(message);
    if (CloseIfAsked())
        return;
    const std::vector<IdleHeight> idle = m_drawing.TakeIdleHeights();
    for (const IdleHeight& each : idle)
        m_log->AddComplaint(IdleHeightText(each));
    if (m_drawing.GetScene() != before)
        m_view->UpdateScene(m_drawing.GetScene());
    if (m_drawing.GetScene() != before || !idle.empty() || !isFresh)  // heights may have been taken back
        m_panels->ShowDrawing(false);
    m_view->SetHint(
        m_drawing.IsOpen()
            ? Shown(TextForNoFaces(*m_drawing.GetScene()))
            : ShownSay(L"把 DXF 文件拖到这里，或按 Ctrl+O 打开。") + "\n\n" +
                  ShownSay(L"想先看看：菜单“图形”、“示例图形”里有 courtyard.dxf，打开它，再按 F9 分析日照。"));
    m_note->ShowText(Shown(Printable(SettingsNote())));
    m_sun->TakeSettings();
    m_panels->GetAnalysis().CheckState();
    RefreshTitle();
}

void MainWindow::RefreshTitle() {
    const Scene* scene = m_drawing.GetScene().get();
    m_counts->setText(scene ? Shown(SayFormat(L"实体：%d　面：%d", static_cast<int>(m_drawing.GetEntityCount()),
                                              static_cast<int>(scene->faces.size())))
                            : QString());
    setWindowTitle(scene ? Shown(Printable(m_drawing.GetFileName())) + "[*] - orvo" : QString("orvo"));
    setWindowModified(m_drawing.IsModified());
    m_menu.SetHasDrawing(m_drawing.IsOpen());
}

void MainWindow::RunLine(const CString& line) {
    m_edit->Submit(line);
}

void MainWindow::RunTyped(const CString& line) {
    if (m_isRunning) {
        m_log->AddComplaint(Say(L"上一条命令还没有结束"));
        return;
    }
    m_log->AddTyped(line);
    m_isRunning = true;
    PromptAnswer answer;
    try {
        answer = RunPromptLine(line, m_output);
    } catch (const std::exception& error) {
        m_output.Drop();
        m_log->AddComplaint(SayFormat(L"内部错误：%s", FromUtf8(error.what())));
    }
    m_isRunning = false;
    if (answer.isLeaving || m_isClosing) {
        close();
        return;
    }
    ReloadIfWritten();
    Refresh();
}

void MainWindow::CloseSoon() {
    m_isClosing = true;
    while (QWidget* dialog = QApplication::activeModalWidget())
        if (!dialog->close())
            break;  // it wants an answer
    close();
}

void MainWindow::ToggleParallel() {
    m_menu.SetParallel(m_view->IsParallel());
    m_memory.KeepParallel(m_view->IsParallel());
}

void MainWindow::SavePicture() {
    const QImage picture = m_view->GetShownPicture();
    if (picture.isNull()) {
        m_log->AddComplaint(Say(L"视图里没有可以保存的图像"));
        return;
    }
    CFileDialog dialog(FALSE, L"png", (m_drawing.GetStem() + L".png").GetString(),
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, PictureFilter().GetString(), &m_frame);
    if (dialog.DoModal() != IDOK)
        return;
    CString path = dialog.GetPathName();
    CString problem;
    const QImage stamped = StampedView(picture, m_sun->GetStamp(), m_panels->GetAnalysis().GetLegend());
    if (!SavePictureAs(stamped, path, problem))
        return m_log->AddComplaint(problem);
    m_log->AddText(SayFormat(L"视图已保存到 %s", Printable(path)));
    m_panels->GetAnalysis().GetFiles().SetMade(Say(L"图片："), path);
}

void MainWindow::ShowKeys() {
    if (!m_keys)
        m_keys = new KeysWindow(this);
    m_keys->show();
    m_keys->raise();
    m_keys->activateWindow();
}

void MainWindow::ApplyHeights() {
    const std::shared_ptr<const Scene> before = m_drawing.GetScene();
    Refresh();
    if (m_drawing.GetScene() == before)
        return;
    const std::vector<LayerHeight>& heights = m_drawing.GetHeights();
    const std::vector<LayerHeightUse>& uses = m_drawing.GetScene()->heights;
    for (std::size_t i = 0; i < uses.size() && i < heights.size(); ++i)
        m_log->AddText(SayFormat(L"图层 %s：%d 个闭合轮廓有了高度，%d 条开口的线没有", Printable(heights[i].layer),
                                 static_cast<int>(uses[i].bodyCount), static_cast<int>(uses[i].openCount)));
}

void MainWindow::SetLanguage(const CString& language) {
    if (m_isRunning)
        return;
    if (g_pTeskLangSwitch)
        g_pTeskLangSwitch->SetLanguage(language.GetString());
    m_memory.KeepLanguage(language);
    Retranslate();
}

void MainWindow::ShowAbout() {
    MessageBox(m_frame.m_hWnd, AboutText().GetString(), Say(L"关于 orvo").GetString(), MB_OK | MB_ICONINFORMATION);
}

// Reading leaves nothing behind, and saving comes to its end before the window goes. Escape in the box goes on, so that
// it does not stand in the way of a request from outside.
bool MainWindow::MayStopWork() {
    if (m_aside != Aside::Analysing || m_work->IsCancelled())
        return true;
    const CString question =
        SayFormat(L"还没有做完：%s。停止它并退出吗？没有做完的不会留下。", Typed(m_work->GetTitle()));
    return MessageBox(m_frame.m_hWnd, question.GetString(), L"orvo", MB_OKCANCEL | MB_ICONQUESTION | MB_DEFBUTTON2) ==
           IDOK;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // A command that is still running would return to a window that is gone.
    if (m_work->IsRunning() && (m_isClosing || MayStopWork())) {
        m_work->GiveUp();
        m_isClosing = true;
    }
    event->setAccepted(!m_isRunning && MayLeaveDrawing());
    m_isClosed = event->isAccepted();
    if (event->isAccepted()) {
        m_memory.KeepPlace(saveGeometry().toStdString(), m_panels->PlacesToKeep().toStdString());
        m_memory.KeepFolder(CFileDialog::GetFolder());
        m_memory.KeepFields(m_panels->GetAnalysis().GetForm().GetKept());
    }
    m_isClosing = m_isClosing && m_isRunning;
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // Not within the layout's own work.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_panels && !m_isClosed)
                m_panels->FitTo(width());
        },
        Qt::QueuedConnection);
}
