// Menus, their entries and shortcuts.
#include "workbench/window/MainMenu.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>

#include "platform/base/Language.h"
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
    AddCommandMenu();
    AddLanguageMenu();
    AddHelpMenu();
}

void MainMenu::SetHasDrawing(bool hasDrawing) {
    m_hasDrawing = hasDrawing;
    m_save->setEnabled(hasDrawing);
    m_saveAs->setEnabled(hasDrawing);
}

QMenu* MainMenu::AddMenu(const wchar_t* title) {
    return m_window.menuBar()->addMenu(ShownSay(title));
}

void MainMenu::AddDrawingMenu() {
    QMenu* menu = AddMenu(L"图形(&F)");
    menu->addAction(ShownSay(L"打开(&O)..."), QKeySequence::Open, &m_window, m_actions.open);
    m_save = menu->addAction(ShownSay(L"保存(&S)"), QKeySequence::Save, &m_window, m_actions.save);
    m_saveAs = menu->addAction(ShownSay(L"另存为(&A)..."), QKeySequence("Ctrl+Shift+S"), &m_window, m_actions.saveAs);
    menu->addSeparator();
    menu->addAction(ShownSay(L"退出(&X)"), QKeySequence("Ctrl+Q"), &m_window, &QMainWindow::close);
    SetHasDrawing(m_hasDrawing);
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
    const auto add = [&](const QString& title, const wchar_t* language, const wchar_t* name) {
        QAction* action = menu->addAction(title, &m_window, [set = m_actions.setLanguage, language] { set(language); });
        action->setCheckable(true);
        action->setChecked(g_strCurLanguage == name);
        group->addAction(action);
    };
    // Each language is named in itself, for those who cannot read the other one.
    add(QString::fromUtf8("中文(&C)"), L"zh", L"Chs");
    add("&English", L"en", L"Enu");
}

void MainMenu::AddHelpMenu() {
    QMenu* menu = AddMenu(L"帮助(&H)");
    menu->addAction(ShownSay(L"命令列表(&L)"), QKeySequence::HelpContents, &m_window,
                    [run = m_actions.run] { run(L"help"); });
    menu->addAction(ShownSay(L"关于(&A)..."), &m_window, m_actions.about);
}
