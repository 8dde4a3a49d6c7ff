// The menu bar of the window.
#pragma once

#include <functional>
#include <vector>

#include "platform/base/CString.h"

class QAction;
class QMainWindow;
class QMenu;

// What the menu's entries do. Each must be set.
struct MenuActions {
    std::function<void()> open;
    std::function<void()> save;
    std::function<void()> saveAs;
    std::function<void(const CString&)> run;          // a line of the command line
    std::function<void(const CString&)> setLanguage;  // "zh" or "en"
    std::function<void()> about;
    std::function<void(QMenu&)> addPanels;  // fills the view's menu with an entry for each panel
    std::function<void(QMenu&)> addAnalyses;
    std::function<void()> toggleParallel;
    std::function<void()> toggleSun;
    std::function<void()> savePicture;
    std::function<void()> reload;
    std::function<void(const CString&)> openFile;  // by its path
    std::function<std::vector<CString>()> recent;  // paths, the latest first
    std::function<void()> clearRecent;
    std::function<void()> keys;
};

// Belongs to a window and goes before it.
class MainMenu {
public:
    MainMenu(QMainWindow& window, MenuActions actions) : m_window(window), m_actions(std::move(actions)) {}

    // Builds the menus anew, in the language in force and with an entry for every command that plug-ins have added by
    // now. May be called from an entry of the old menus.
    void Build();
    // Saving is possible when a drawing is open.
    void SetHasDrawing(bool hasDrawing);
    void SetParallel(bool isParallel);
    void SetSunny(bool isSunny);
    // Names the recent files anew.
    void RefreshRecent();

private:
    QMenu* AddMenu(const wchar_t* title);
    void AddSamples(QMenu& menu);
    void AddDrawingMenu();
    void AddViewMenu();
    void AddAnalysisMenu();
    void AddCommandMenu();
    void AddLanguageMenu();
    void AddHelpMenu();

    QMainWindow& m_window;
    MenuActions m_actions;
    QAction* m_save = nullptr;
    QAction* m_saveAs = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_savePicture = nullptr;
    QAction* m_parallel = nullptr;
    QAction* m_sun = nullptr;
    QMenu* m_recent = nullptr;
    bool m_hasDrawing = false;
    bool m_isParallel = false;
    bool m_isSunny = false;
};
