// Makes the panels, and joins them with view and drawing.
#include "workbench/window/SidePanels.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <algorithm>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/LayerPanel.h"
#include "workbench/window/OpenDrawing.h"
#include "workbench/window/PropertiesPanel.h"

SidePanels::SidePanels(QMainWindow& window, SceneView& view, OpenDrawing& drawing)
    : m_window(window),
      m_view(view),
      m_drawing(drawing),
      m_layers(new LayerPanel(&window)),
      m_properties(new PropertiesPanel(&window)),
      m_analysis(new AnalysisPanel(&window, view)),
      m_layerDock(AddDock(*m_layers, "LayerDock", Qt::RightDockWidgetArea)),
      m_propertyDock(AddDock(*m_properties, "PropertyDock", Qt::RightDockWidgetArea)),
      m_analysisDock(AddDock(*m_analysis, "AnalysisDock", Qt::LeftDockWidgetArea)) {
    // Where one is to be in the place of another, what they are called stands above them.
    window.setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    AddEntry(*m_layerDock, "Ctrl+1");
    AddEntry(*m_propertyDock, "Ctrl+2");
    AddEntry(*m_analysisDock, "Ctrl+3");
    for (QAction* action : m_analysis->GetActions())
        window.addAction(action);
    m_toFields = AddWayTo(m_analysis->GetFirstField(), *m_analysisDock, "Ctrl+L");
    m_toTable = AddWayTo(m_analysis->GetTable(), *m_analysisDock, "Ctrl+T");
    m_layers->m_onHidden = [this] { ShowHidden(); };
    m_analysis->m_onHidden = [this] { ShowHidden(); };
    m_layers->m_onHeights = [this](const std::vector<LayerHeight>& heights) {
        m_drawing.SetHeights(heights);
        if (m_onHeights)
            m_onHeights();
    };
    m_layers->m_onRefused = [this](const CString& typed) {
        if (m_onComplaint)
            m_onComplaint(SayFormat(L"“%s”不是高度：请写大于 0、不超过 10000 的米数，例如 18.5；空着就是没有高度",
                                    Printable(typed)));
    };
    m_view.m_onPick = [this] {
        ShowPicked();
        m_analysis->TakePicked(m_view.GetPicked());
    };
    Retranslate();
}

QDockWidget* SidePanels::AddDock(QWidget& panel, const char* name, Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(&m_window);
    dock->setObjectName(name);
    dock->setWidget(&panel);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_window.addDockWidget(area, dock);
    return dock;
}

// The toolkit's own entry would close a panel that is there, but behind another one.
void SidePanels::AddEntry(QDockWidget& dock, const char* key) {
    auto* entry = new QAction(&m_window);
    entry->setShortcut(QKeySequence(key));
    entry->setCheckable(true);
    m_window.addAction(entry);
    m_entries.push_back({&dock, entry});
    // Told also when a tab comes to the front or goes.
    QObject::connect(&dock, &QDockWidget::visibilityChanged, entry, &QAction::setChecked);
    QObject::connect(entry, &QAction::triggered, &dock, [&dock](bool isWanted) {
        dock.setVisible(isWanted);
        if (!isWanted)
            return;
        dock.raise();
        dock.widget()->setFocus();
    });
}

// A dozen steps of Tab lie between two parts of a panel.
QAction* SidePanels::AddWayTo(QWidget& target, QDockWidget& dock, const char* key) {
    auto* way = new QAction(&m_window);
    way->setShortcut(QKeySequence(key));
    m_window.addAction(way);
    QObject::connect(way, &QAction::triggered, &dock, [&dock, &target] {
        dock.show();
        dock.raise();
        target.setFocus(Qt::ShortcutFocusReason);
    });
    return way;
}

void SidePanels::Retranslate() {
    m_layerDock->setWindowTitle(ShownSay(L"所有图层"));
    m_propertyDock->setWindowTitle(ShownSay(L"所选实体"));
    m_layers->Retranslate();
    m_properties->Retranslate();
    m_analysisDock->setWindowTitle(ShownSay(L"日照分析"));
    m_analysis->setAccessibleName(ShownSay(L"日照分析"));
    m_analysis->Retranslate();
    for (const auto& [dock, entry] : m_entries)
        entry->setText(dock->windowTitle());
    m_toFields->setText(ShownSay(L"转到分析的第一栏"));
    m_toTable->setText(ShownSay(L"转到窗的列表"));
    ShowPicked();
}

void SidePanels::RestorePlaces(const QByteArray& kept) {
    m_window.restoreState(kept);
    m_spread = m_window.saveState();
}

QByteArray SidePanels::PlacesToKeep() {
    if (m_isStacked)
        Spread();
    return m_window.saveState();
}

void SidePanels::FitTo(int width) {
    constexpr int kRoomy = 1000;
    const bool isNarrow = width < kRoomy;
    if (isNarrow && !m_isStacked)
        Stack();
    else if (!isNarrow && m_isStacked)
        Spread();
    else if (!isNarrow)
        m_spread = m_window.saveState();  // once the window is narrow, the panels have been pressed together already
}

void SidePanels::Stack() {
    m_isStacked = true;
    const std::vector<bool> shown = ShownPanels();
    m_window.addDockWidget(Qt::LeftDockWidgetArea, m_layerDock);
    m_window.addDockWidget(Qt::LeftDockWidgetArea, m_propertyDock);
    m_window.tabifyDockWidget(m_analysisDock, m_layerDock);
    m_window.tabifyDockWidget(m_layerDock, m_propertyDock);
    ShowPanels(shown);
    m_analysisDock->raise();
    constexpr int kWidth = 300;
    m_window.resizeDocks({m_analysisDock}, {kWidth}, Qt::Horizontal);
}

// Whoever has closed a panel meanwhile has closed it.
void SidePanels::Spread() {
    m_isStacked = false;
    const std::vector<bool> shown = ShownPanels();
    m_window.restoreState(m_spread);
    ShowPanels(shown);
}

std::vector<bool> SidePanels::ShownPanels() const {
    std::vector<bool> shown;
    for (const auto& [dock, entry] : m_entries)
        shown.push_back(!dock->isHidden());
    return shown;
}

void SidePanels::ShowPanels(const std::vector<bool>& shown) {
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_entries[i].dock->setVisible(shown[i]);
}

QWidget* SidePanels::GetLayers() const {
    return m_layers;
}

void SidePanels::AddEntries(QMenu& menu) const {
    for (const auto& [dock, entry] : m_entries)
        menu.addAction(entry);
    menu.addAction(m_toFields);
    menu.addAction(m_toTable);
}

void SidePanels::AddAnalyses(QMenu& menu) const {
    for (QAction* action : m_analysis->GetActions())
        menu.addAction(action);
}

void SidePanels::ShowDrawing(bool isAnother) {
    if (m_drawing.IsOpen())
        m_layers->SetRows(LayerRowsOf(*m_drawing.GetScene(), m_drawing.GetDatabase()), m_drawing.GetHeights(),
                          isAnother);
    m_analysis->SetDrawing(m_drawing.IsOpen()
                               ? PanelDrawing{&m_drawing.GetDatabase(), m_drawing.GetScene(), m_drawing.GetHeights(),
                                              m_drawing.GetPath(), m_drawing.GetFingerprint()}
                               : PanelDrawing(),
                           isAnother);
    ShowHidden();
    ShowPicked();
}

// What the list hides, and the project where that is off.
void SidePanels::ShowHidden() {
    HiddenLayers hidden = m_layers->GetHidden();
    const HiddenLayers project = m_analysis->GetHidden();
    hidden.resize(std::max(hidden.size(), project.size()));
    for (std::size_t i = 0; i < project.size(); ++i)
        hidden[i] = hidden[i] || project[i];
    m_view.SetHiddenLayers(hidden);
    m_analysis->SetHiddenCount(m_layers->CountHidden());
}

void SidePanels::ShowPicked() {
    m_properties->SetProperties(m_drawing.IsOpen()
                                    ? PropertiesOf(m_drawing.GetDatabase(), *m_drawing.GetScene(), m_view.GetPicked())
                                    : std::vector<EntityProperty>());
}
