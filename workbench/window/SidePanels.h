// The panels that stand beside the view: the layers of the open drawing, the properties of what was picked, and the
// analysis.
// Why: docs/decisions/workbench.md
#pragma once

#include <QByteArray>
#include <Qt>
#include <functional>
#include <vector>

#include "scene/LayerHeight.h"

class AnalysisPanel;
class LayerPanel;
class OpenDrawing;
class PropertiesPanel;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QWidget;
class SceneView;

// Belongs to the window, the view and the drawing, and goes before them. A further panel is one more AddDock.
class SidePanels {
public:
    SidePanels(QMainWindow& window, SceneView& view, OpenDrawing& drawing);

    // Shows the open drawing: another one, or a later state of the same.
    void ShowDrawing(bool isAnother);
    void Retranslate();
    // An entry for each panel, which shows and hides it, and the ways to the fields and the table.
    void AddEntries(QMenu& menu) const;
    // An entry for each thing that can be had of the drawing.
    void AddAnalyses(QMenu& menu) const;

    // Places of the panels as bytes to be kept (QMainWindow::saveState): those that a window with room has.
    void RestorePlaces(const QByteArray& kept);
    QByteArray PlacesToKeep();
    // In a window without much room the panels stand behind each other, with tabs and the analysis in front, so that
    // the view has room; with more they go back to where they were. To be called whenever the window has another width.
    void FitTo(int width);

    // What changes the drawing's scene.
    QWidget* GetLayers() const;
    AnalysisPanel& GetAnalysis() const { return *m_analysis; }

    // The user gave heights to layers, which are the drawing's already.
    std::function<void()> m_onHeights;
    std::function<void(const CString&)> m_onComplaint;

private:
    QDockWidget* AddDock(QWidget& panel, const char* name, Qt::DockWidgetArea area);
    void AddEntry(QDockWidget& dock, const char* key);
    QAction* AddWayTo(QWidget& target, QDockWidget& dock, const char* key);
    void Stack();
    void Spread();
    std::vector<bool> ShownPanels() const;
    void ShowPanels(const std::vector<bool>& shown);
    void ShowPicked();
    void ShowHidden();

    QMainWindow& m_window;
    SceneView& m_view;
    OpenDrawing& m_drawing;
    LayerPanel* m_layers;
    PropertiesPanel* m_properties;
    AnalysisPanel* m_analysis;
    QDockWidget* m_layerDock;
    QDockWidget* m_propertyDock;
    QDockWidget* m_analysisDock;
    struct Entry {
        QDockWidget* dock;
        QAction* action;
    };
    std::vector<Entry> m_entries;
    QAction* m_toFields;
    QAction* m_toTable;
    bool m_isStacked = false;
    QByteArray m_spread;  // the places with room
};
