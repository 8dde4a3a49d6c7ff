// Makes the panels, and joins them with view and drawing.
#include "workbench/window/SidePanels.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
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
      m_layerDock(AddDock(*m_layers, "LayerDock")),
      m_propertyDock(AddDock(*m_properties, "PropertyDock")) {
    m_layerDock->toggleViewAction()->setShortcut(QKeySequence("Ctrl+1"));
    m_propertyDock->toggleViewAction()->setShortcut(QKeySequence("Ctrl+2"));
    for (const QDockWidget* dock : {m_layerDock, m_propertyDock})
        window.addAction(dock->toggleViewAction());
    m_layers->m_onHidden = [this] { m_view.SetHiddenLayers(m_layers->GetHidden()); };
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
    m_view.m_onPick = [this] { ShowPicked(); };
    Retranslate();
}

QDockWidget* SidePanels::AddDock(QWidget& panel, const char* name) {
    auto* dock = new QDockWidget(&m_window);
    dock->setObjectName(name);
    dock->setWidget(&panel);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_window.addDockWidget(Qt::RightDockWidgetArea, dock);
    return dock;
}

void SidePanels::Retranslate() {
    m_layerDock->setWindowTitle(ShownSay(L"所有图层"));
    m_propertyDock->setWindowTitle(ShownSay(L"所选实体"));
    m_layers->Retranslate();
    m_properties->Retranslate();
    ShowPicked();
}

QWidget* SidePanels::GetLayers() const {
    return m_layers;
}

void SidePanels::AddEntries(QMenu& menu) const {
    menu.addAction(m_layerDock->toggleViewAction());
    menu.addAction(m_propertyDock->toggleViewAction());
}

void SidePanels::ShowDrawing(bool isAnother) {
    if (m_drawing.IsOpen())
        m_layers->SetRows(LayerRowsOf(*m_drawing.GetScene(), m_drawing.GetDatabase()), m_drawing.GetHeights(),
                          isAnother);
    m_view.SetHiddenLayers(m_layers->GetHidden());
    ShowPicked();
}

void SidePanels::ShowPicked() {
    m_properties->SetProperties(m_drawing.IsOpen()
                                    ? PropertiesOf(m_drawing.GetDatabase(), *m_drawing.GetScene(), m_view.GetPicked())
                                    : std::vector<EntityProperty>());
}
