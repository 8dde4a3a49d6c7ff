// The panels beside the view: layers shown and hidden, heights, and properties of what is picked.
#include <QDockWidget>
#include <QLineEdit>

#include "workbench/WindowStage.h"
#include "workbench/window/LayerPanel.h"
#include "workbench/window/PropertiesPanel.h"

namespace {

// Two layers, one of them off, one spelled in two ways; a box of metres and a flat house.
constexpr const char* kPlan =
    "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n6\n0\nENDSEC\n"
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n3\n"
    "0\nLAYER\n2\nHouses\n70\n0\n62\n1\n0\nLAYER\n2\nOff\n70\n0\n62\n-3\n0\nLAYER\n2\nFlat\n70\n0\n62\n5\n"
    "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
    "0\nLWPOLYLINE\n5\nA1\n8\nHouses\n38\n2\n39\n12\n90\n4\n70\n1\n10\n0\n20\n0\n10\n10\n20\n0\n10\n10\n20\n8\n10\n0\n2"
    "0\n8\n"
    "0\nLWPOLYLINE\n5\nA2\n8\nFlat\n90\n4\n70\n1\n10\n20\n20\n0\n10\n30\n20\n0\n10\n30\n20\n8\n10\n20\n20\n8\n"
    "0\nLINE\n5\nA3\n8\nFLAT\n10\n0\n20\n20\n11\n30\n21\n20\n"
    "0\nLINE\n5\nA4\n8\nOff\n10\n0\n20\n20\n11\n30\n21\n20\n"
    "0\nENDSEC\n0\nEOF\n";

class WindowPanels : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        m_path = m_folder.Write("plan.dxf", kPlan);
        ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_path.string())));
    }
    LayerPanel* Layers() const { return Find<LayerPanel>("LayerPanel"); }
    SceneView* View() const { return Find<SceneView>("SceneView"); }
    QTreeWidgetItem* Layer(const char* name) const {
        for (int i = 0; i < Layers()->topLevelItemCount(); ++i)
            if (Layers()->topLevelItem(i)->text(LayerPanel::Name).startsWith(name))
                return Layers()->topLevelItem(i);
        ADD_FAILURE() << "no layer " << name;
        return nullptr;
    }
    // The value of a property; empty when there is none of that name.
    std::string Property(const char* name) const {
        const auto* panel = Find<PropertiesPanel>("PropertiesPanel");
        for (int i = 0; i < panel->topLevelItemCount(); ++i)
            if (panel->topLevelItem(i)->text(0) == QString::fromUtf8(name))
                return panel->topLevelItem(i)->text(1).toStdString();
        return {};
    }
    void Pick(std::uint64_t handle) const { View()->Pick(acdbCurDwg()->FindHandle(handle)); }
    // As a person types it: F2, the text, Enter.
    void TypeHeight(const char* layer, const char* text) const {
        Layers()->setCurrentItem(Layer(layer));
        QTest::keyClick(Layers(), Qt::Key_F2);
        auto* edit = Layers()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClick(edit, Qt::Key_Return);
        for (int i = 0; i < 100; ++i) {
            QApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the editor
        }
    }
    std::string Counts() const { return Find<QLabel>("Counts")->text().toStdString(); }

    std::filesystem::path m_path;
};

}  // namespace

TEST_F(WindowPanels, ListTheLayersOnce) {
    ASSERT_EQ(Layers()->topLevelItemCount(), 3);
    EXPECT_EQ(Layer("Houses")->text(LayerPanel::Faces), "6");
    EXPECT_EQ(Layer("Houses")->text(LayerPanel::Lines), "0");
    EXPECT_EQ(Layer("Flat")->text(LayerPanel::Lines), "5") << "in both spellings";
    EXPECT_FALSE(Layer("Off")->flags().testFlag(Qt::ItemIsEnabled)) << "the drawing's own state is not the list's";
    EXPECT_EQ(Layer("Off")->checkState(LayerPanel::Name), Qt::Unchecked);
}

TEST_F(WindowPanels, HideALayerInTheViewAndNotInTheDrawing) {
    Layers()->setCurrentItem(Layer("Flat"));
    QTest::keyClick(Layers(), Qt::Key_Space);
    EXPECT_EQ(Layer("Flat")->checkState(LayerPanel::Name), Qt::Unchecked);
    View()->setFocus();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(View(), Qt::Key_Period);
        EXPECT_EQ(Property("句柄"), "A1") << "nothing of the hidden layer is picked";
    }
    EXPECT_FALSE(acdbCurDwg()->IsModified());
    QTest::keyClick(Layers(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Layer("Flat")->checkState(LayerPanel::Name), Qt::Checked);
    QTest::keyClick(View(), Qt::Key_Period);
    EXPECT_EQ(Property("句柄"), "A2");
}

TEST_F(WindowPanels, TellWhatWasPicked) {
    Pick(0xA1);
    EXPECT_EQ(Property("句柄"), "A1");
    EXPECT_EQ(Property("类型"), "LWPOLYLINE");
    EXPECT_EQ(Property("图层"), "Houses");
    EXPECT_EQ(Property("实体颜色"), "1");
    EXPECT_EQ(Property("长（东西）"), "10.000 m");
    EXPECT_EQ(Property("宽（南北）"), "8.000 m");
    EXPECT_EQ(Property("高"), "12.000 m");
    EXPECT_EQ(Property("底面标高"), "2.000 m");
    EXPECT_EQ(Property("面数"), "6");
    Pick(0xA3);
    EXPECT_EQ(Property("类型"), "LINE");
    EXPECT_EQ(Property("线数"), "1");
    QTest::keyClick(View(), Qt::Key_Escape);
    EXPECT_EQ(Property("句柄"), "");
}

TEST_F(WindowPanels, GiveOutlinesAHeight) {
    EXPECT_EQ(Counts(), "实体：4　面：6");
    TypeHeight("Flat", "18.5");
    EXPECT_EQ(Counts(), "实体：4　面：12");
    EXPECT_EQ(Layer("Flat")->text(LayerPanel::Height), "18.5");
    EXPECT_TRUE(HasLogged("图层 Flat：1 个闭合轮廓有了高度，1 条开口的线没有")) << Log();
    Pick(0xA2);
    EXPECT_EQ(Property("高"), "18.500 m");
    EXPECT_FALSE(acdbCurDwg()->IsModified());
    for (const char* bad : {"high", "-3", "0", "10001", "nan"}) {
        TypeHeight("Flat", bad);
        EXPECT_TRUE(HasLogged((std::string("“") + bad + "”不是高度").c_str())) << Log();
        EXPECT_EQ(Layer("Flat")->text(LayerPanel::Height), "18.5") << bad;
        EXPECT_EQ(Counts(), "实体：4　面：12") << bad;
    }
    TypeHeight("Flat", "");
    EXPECT_EQ(Counts(), "实体：4　面：6");
    EXPECT_EQ(Layer("Flat")->text(LayerPanel::Height), "");
}

TEST_F(WindowPanels, KeepWhatWasChosenOverAReloadAndNotForAnotherDrawing) {
    TypeHeight("Flat", "3");
    Layers()->setCurrentItem(Layer("Houses"));
    QTest::keyClick(Layers(), Qt::Key_Space);
    Pick(0xA2);
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    EXPECT_TRUE(HasLogged("已重新读入 plan.dxf")) << Log();
    EXPECT_EQ(Counts(), "实体：4　面：12");
    EXPECT_EQ(Layer("Houses")->checkState(LayerPanel::Name), Qt::Unchecked);
    EXPECT_EQ(Property("句柄"), "A2") << "still picked";
    EXPECT_EQ(Layer("Flat")->text(LayerPanel::Height), "3");
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
    EXPECT_EQ(Layers()->topLevelItemCount(), 1);
    EXPECT_EQ(Property("句柄"), "");
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(m_path.string())));
    EXPECT_EQ(Counts(), "实体：4　面：6");
    EXPECT_EQ(Layer("Houses")->checkState(LayerPanel::Name), Qt::Checked);
}

TEST_F(WindowPanels, AreShownAndHiddenByTheirKeys) {
    auto* dock = Find<QDockWidget>("LayerDock");
    dock->raise();
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+1"));
    EXPECT_FALSE(dock->isVisible());
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+1"));
    EXPECT_TRUE(dock->isVisible());
}

TEST_F(WindowPanels, HaveNamesForScreenReaders) {
    EXPECT_EQ(Layers()->accessibleName().toStdString(), "图层列表");
    EXPECT_EQ(Find<PropertiesPanel>("PropertiesPanel")->accessibleName().toStdString(), "所选实体的属性");
    for (const auto* widget : {static_cast<QWidget*>(Layers()), static_cast<QWidget*>(View())})
        EXPECT_NE(widget->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(WindowPanels, StateThatTheListChangesNothingInTheDrawing) {
    EXPECT_TRUE(Layer("Houses")->toolTip(LayerPanel::Name).contains(QString::fromUtf8("照样投下阴影")));
}
