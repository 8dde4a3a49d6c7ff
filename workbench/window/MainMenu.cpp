// Menus, their entries and shortcuts.
#include "workbench/window/MainMenu.h"

#include <QActionGroup>
#include <QDir>
#include <QMainWindow>
#include <QMenuBar>

#include "platform/base/Language.h"
#include "platform/base/PlainText.h"
#include "platform/base/Support.h"
#include "workbench/commands/Completion.h"
#include "workbench/view/WidgetText.h"

namespace {

// Commands that are known here by more than their names.
struct TitledCommand {
    const wchar_t* command;
    const wchar_t* title;
};
constexpr TitledCommand kTitled[] = {
    {L"QcCityData", L"地区数据库(&Z)..."},
    {L"QSetSunPrec", L"日照设置(&S)..."},
};

QString TitleOf(const CString& command) {
    for (const TitledCommand& titled : kTitled)
        if (command == titled.command)
            return ShownSay(titled.title);
    return Shown(command).replace('&', "&&");
}

}  // namespace

// Entries of the old menus may be at work, so these go when control is back in the event loop.
void MainMenu::Build() {
    for (QMenu* menu : m_window.menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly))
        menu->deleteLater();
    m_window.menuBar()->clear();
    AddDrawingMenu();
    AddViewMenu();
    AddAnalysisMenu();
    AddCommandMenu();
    AddLanguageMenu();
    AddHelpMenu();
}

void MainMenu::SetHasDrawing(bool hasDrawing) {
    m_hasDrawing = hasDrawing;
    m_save->setEnabled(hasDrawing);
    m_saveAs->setEnabled(hasDrawing);
    m_reload->setEnabled(hasDrawing);
    m_savePicture->setEnabled(hasDrawing);
}

void MainMenu::SetParallel(bool isParallel) {
    m_isParallel = isParallel;
    m_parallel->setChecked(isParallel);
}

void MainMenu::SetSunny(bool isSunny) {
    m_isSunny = isSunny;
    m_sun->setChecked(isSunny);
}

void MainMenu::RefreshRecent() {
    m_recent->clear();
    int number = 0;
    for (const CString& path : m_actions.recent()) {
        const QString title = Shown(Printable(path)).replace('&', "&&");
        const QString mnemonic = number < 9 ? QString("&%1 ").arg(number + 1) : QString();
        m_recent->addAction(mnemonic + title, &m_window, [open = m_actions.openFile, path] { open(path); });
        ++number;
    }
    m_recent->setEnabled(number > 0);
    m_recent->addSeparator();
    m_recent->addAction(ShownSay(L"清空列表(&C)"), &m_window, [this] {
        m_actions.clearRecent();
        RefreshRecent();
    });
}

QMenu* MainMenu::AddMenu(const wchar_t* title) {
    return m_window.menuBar()->addMenu(ShownSay(title));
}

void MainMenu::AddDrawingMenu() {
    QMenu* menu = AddMenu(L"图形(&F)");
    menu->addAction(ShownSay(L"打开(&O)..."), QKeySequence::Open, &m_window, m_actions.open);
    m_recent = menu->addMenu(ShownSay(L"最近打开(&R)"));
    AddSamples(*menu);
    m_reload = menu->addAction(ShownSay(L"重新读入(&L)"), QKeySequence("F5"), &m_window, m_actions.reload);
    m_save = menu->addAction(ShownSay(L"保存(&S)"), QKeySequence::Save, &m_window, m_actions.save);
    m_saveAs = menu->addAction(ShownSay(L"另存为(&A)..."), QKeySequence("Ctrl+Shift+S"), &m_window, m_actions.saveAs);
    m_savePicture = menu->addAction(ShownSay(L"保存视图为图片(&P)..."), QKeySequence("Ctrl+Shift+P"), &m_window,
                                    m_actions.savePicture);
    menu->addSeparator();
    // The window's, too: while work disables the menus, the key still does what the frame's button does.
    m_window.addAction(menu->addAction(ShownSay(L"退出(&X)"), QKeySequence("Ctrl+Q"), &m_window, &QMainWindow::close));
    RefreshRecent();
    SetHasDrawing(m_hasDrawing);
}

// The drawings that came with the program.
void MainMenu::AddSamples(QMenu& menu) {
    QMenu* const samples = menu.addMenu(ShownSay(L"示例图形(&E)"));
    samples->setObjectName("Samples");
    const QDir folder(Shown(InstalledDataFolder()) + "/samples");
    for (const QString& name : folder.entryList({"*.dxf"}, QDir::Files | QDir::Readable, QDir::Name)) {
        const CString path = Typed(folder.filePath(name));
        samples->addAction(QString(name).replace('&', "&&"), &m_window,
                           [open = m_actions.openFile, path] { open(path); });
    }
    samples->setEnabled(!samples->isEmpty());
}

void MainMenu::AddViewMenu() {
    QMenu* menu = AddMenu(L"视图(&V)");
    m_parallel = menu->addAction(ShownSay(L"平行投影(&P)") + "\tP", &m_window, m_actions.toggleParallel);
    m_parallel->setCheckable(true);
    m_parallel->setChecked(m_isParallel);
    m_sun = menu->addAction(ShownSay(L"太阳和阴影(&U)"), QKeySequence("F6"), &m_window, m_actions.toggleSun);
    m_sun->setCheckable(true);
    m_sun->setChecked(m_isSunny);
    menu->addSeparator();
    m_actions.addPanels(*menu);
}

void MainMenu::AddAnalysisMenu() {
    QMenu* menu = AddMenu(L"日照分析(&Y)");
    m_actions.addAnalyses(*menu);
    menu->setToolTipsVisible(true);
}

void MainMenu::AddCommandMenu() {
    QMenu* menu = AddMenu(L"命令(&C)");
    for (const CString& command : HostCommandNames()) {
        QAction* action =
            menu->addAction(TitleOf(command), &m_window, [run = m_actions.run, command] { run(command); });
        action->setObjectName(Shown(command));
        action->setToolTip(Shown(command));
    }
    menu->setToolTipsVisible(true);
}

void MainMenu::AddLanguageMenu() {
    QMenu* menu = AddMenu(L"语言(&L)");
    auto* group = new QActionGroup(menu);  // the menu's
    const auto add = [&](const QString& title, const wchar_t* language, const wchar_t* name, const char* objectName) {
        QAction* action = menu->addAction(title, &m_window, [set = m_actions.setLanguage, language] { set(language); });
        action->setObjectName(objectName);
        action->setCheckable(true);
        action->setChecked(g_strCurLanguage == name);
        group->addAction(action);
    };
    // Each language is named in itself, for those who cannot read the other one.
    add(QString::fromUtf8("中文(&C)"), L"zh", L"Chs", "LanguageZh");
    add("&English", L"en", L"Enu", "LanguageEn");
}

void MainMenu::AddHelpMenu() {
    QMenu* menu = AddMenu(L"帮助(&H)");
    menu->addAction(ShownSay(L"按键(&K)"), QKeySequence::HelpContents, &m_window, m_actions.keys)
        ->setObjectName("HelpKeys");
    menu->addAction(ShownSay(L"命令列表(&L)"), &m_window, [run = m_actions.run] { run(L"help"); });
    menu->addAction(ShownSay(L"关于(&A)..."), &m_window, m_actions.about)->setObjectName("HelpAbout");
}
