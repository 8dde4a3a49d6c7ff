// The window for everybody: with the keyboard alone, by a screen reader, on a small screen, in each language.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableView>
#include <QTimeEdit>
#include <QTreeWidget>
#include <set>

#include "platform/base/Support.h"
#include "workbench/WindowStage.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/DayLine.h"
#include "workbench/panel/WindowModel.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/LayerPanel.h"
#include "workbench/window/PropertiesPanel.h"
#include "workbench/window/WindowKeys.h"

namespace {

class WindowForAll : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        m_window->resize(1200, 900);
    }
    // The sample, analysed by its key: so every control has something to show.
    void OpenAndAnalyse() const {
        ASSERT_TRUE(m_window->OpenFile(FromUtf8(SourceFolder() + "/data/samples/courtyard.dxf")));
        QTest::keyClick(m_window.get(), Qt::Key_F9);
        ASSERT_GT(Find<QTableView>("WindowTable")->model()->rowCount(), 0) << Log();
    }
    // Whatever takes the focus by Tab, in the order of Tab, from the command line on; each once.
    std::vector<QWidget*> InTabOrder() const {
        std::vector<QWidget*> order;
        for (QWidget* next = Edit(); order.empty() || next != Edit(); next = next->nextInFocusChain())
            if (next->isVisible() && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus) && !next->focusProxy())
                order.push_back(next);
        return order;
    }
    // Presses Tab until this has the focus; false after a whole round.
    bool TabTo(const QWidget* wanted) const {
        for (int i = 0; i < 200 && QApplication::focusWidget() != wanted; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        return QApplication::focusWidget() == wanted;
    }
    // What a screen reader says a control is: its own name, its text, or that of the label beside it.
    std::string NameOf(const QWidget* widget) const {
        QString name = widget->accessibleName();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget); button && name.isEmpty())
            name = button->text();
        if (const auto* tabs = qobject_cast<const QTabBar*>(widget); tabs && name.isEmpty())
            name = tabs->tabText(tabs->currentIndex());
        if (const auto* text = qobject_cast<const QLabel*>(widget); text && name.isEmpty())
            name = text->text();
        for (const QLabel* label : m_window->findChildren<QLabel*>())
            if (label->buddy() == widget && name.isEmpty())
                name = label->text();
        return name.toStdString();
    }
};

bool IsChinese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.script() == QChar::Script_Han; });
}

}  // namespace

TEST_F(WindowForAll, NamesEverythingThatTakesTheFocus) {
    OpenAndAnalyse();
    QTest::keyClick(m_window.get(), Qt::Key_F6);
    for (const wchar_t* language : {L"zh", L"en"}) {
        m_window->findChild<QAction*>(language == std::wstring(L"zh") ? "LanguageZh" : "LanguageEn")->trigger();
        const std::vector<QWidget*> order = InTabOrder();
        EXPECT_GT(order.size(), 20U);
        for (const QWidget* widget : order)
            EXPECT_NE(NameOf(widget), "")
                << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
}

// Names of layers and places are data; they have Chinese letters in any language.
TEST_F(WindowForAll, SpeaksEnglishInEveryWidget) {
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the menus of the language before
    QTest::keyClick(m_window.get(), Qt::Key_F6);
    QTest::keyClick(m_window.get(), Qt::Key_F1);
    const std::set<QString> data = {"Note", "SunAbout", "SunPlace", "CommandLog"};
    for (const QWidget* widget : m_window->findChildren<QWidget*>()) {
        if (data.contains(widget->objectName()))
            continue;
        QStringList texts = {widget->accessibleName(), widget->accessibleDescription(), widget->toolTip(),
                             widget->windowTitle()};
        for (const char* property : {"text", "placeholderText", "title"})
            texts << widget->property(property).toString();
        if (const auto* combo = qobject_cast<const QComboBox*>(widget))
            for (int i = 0; i < combo->count(); ++i)
                texts << combo->itemText(i);
        for (const QAction* action : widget->actions())
            texts << action->text() << action->toolTip();
        for (const QString& text : texts)
            EXPECT_FALSE(IsChinese(text) && !text.contains(QString::fromUtf8("窗")) &&
                         !text.contains(QString::fromUtf8("中文")))
                << widget->objectName().toStdString() << ": " << text.toStdString();
    }
}

TEST_F(WindowForAll, ListsEveryShortcutOfItsMenus) {
    QString all;
    for (const KeyPart& part : WindowKeys())
        for (const KeyRow& row : part.rows)
            all += Shown(row.keys) + "\n";
    const QStringList known = all.split(QRegularExpression("[^A-Za-z0-9+ ]+"));
    int count = 0;
    for (const QAction* action : m_window->findChildren<QAction*>()) {
        const QString key = action->shortcut().toString(QKeySequence::PortableText);
        if (key.isEmpty())
            continue;
        ++count;
        EXPECT_TRUE(known.contains(key)) << action->text().toStdString() << ": " << key.toStdString();
    }
    EXPECT_GT(count, 10);
}

TEST_F(WindowForAll, ShowsItsKeysBesideItself) {
    EXPECT_EQ(Find<QTreeWidget>("KeysList"), nullptr);
    QTest::keyClick(m_window.get(), Qt::Key_F1);
    auto* list = Find<QTreeWidget>("KeysList");
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->isVisible());
    EXPECT_FALSE(list->window()->isModal()) << "one tries what one reads";
    EXPECT_EQ(list->topLevelItemCount(), static_cast<int>(WindowKeys().size()));
    EXPECT_EQ(list->topLevelItem(0)->child(1)->text(1).toStdString(), "平移");
    m_window->findChild<QAction*>("LanguageEn")->trigger();
    EXPECT_EQ(list->topLevelItem(0)->child(1)->text(1).toStdString(), "move");
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
}

TEST_F(WindowForAll, IsOperatedByTabInEachPanel) {
    OpenAndAnalyse();
    Edit()->setFocus();
    QTest::keyClick(Edit(), Qt::Key_Escape);
    auto* need = Find<QLineEdit>("Need");
    ASSERT_TRUE(TabTo(need));
    QTest::keyClick(need, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(need, "1");
    auto* run = Find<QPushButton>("RunAnalysis");
    ASSERT_TRUE(TabTo(run));
    QTest::keyClick(run, Qt::Key_Space);
    EXPECT_TRUE(HasLogged("达标 14 个，不达标 0 个")) << Log();
    auto* failing = Find<QCheckBox>("OnlyFailing");
    ASSERT_TRUE(TabTo(failing));
    auto* table = Find<QTableView>("WindowTable");
    QTest::keyClick(failing, Qt::Key_Space);
    EXPECT_EQ(table->model()->rowCount(), 0);
    QTest::keyClick(failing, Qt::Key_Space);
    ASSERT_TRUE(TabTo(table));
    QTest::keyClick(table, Qt::Key_Down);
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_TRUE(Find<SceneView>("SceneView")->GetChosen());
    auto* day = Find<DayLine>("DayLine");
    ASSERT_TRUE(TabTo(day));
    QTest::keyClick(day, Qt::Key_Right);
    EXPECT_EQ(day->GetCurrent(), 0);
    auto* layers = Find<LayerPanel>("LayerPanel");
    ASSERT_TRUE(TabTo(layers));
    QTest::keyClick(layers, Qt::Key_Home);
    QTest::keyClick(layers, Qt::Key_Space);
    EXPECT_EQ(layers->topLevelItem(0)->checkState(LayerPanel::Name), Qt::Unchecked);
    auto* properties = Find<PropertiesPanel>("PropertiesPanel");
    ASSERT_TRUE(TabTo(properties));
    QTest::keyClick(properties, Qt::Key_Down);
    EXPECT_NE(properties->currentItem(), nullptr);
    auto* sun = Find<QCheckBox>("SunSwitch");
    ASSERT_TRUE(TabTo(sun));
    QTest::keyClick(sun, Qt::Key_Space);
    EXPECT_TRUE(Find<SceneView>("SceneView")->GetSun());
    ASSERT_TRUE(TabTo(Find<SceneView>("SceneView")));
    ASSERT_TRUE(TabTo(Edit())) << "and round";
}

// On a screen of 800 by 600 all panels are there, and the view has most of the room.
TEST_F(WindowForAll, HasRoomForTheViewOnASmallScreen) {
    ASSERT_LE(m_window->screen()->availableSize().width(), 900) << "the screen of these tests is a small one";
    m_window->resize(800, 600);
    QCoreApplication::processEvents();
    const auto isInFront = [this](const char* name) { return !Find<QDockWidget>(name)->visibleRegion().isEmpty(); };
    EXPECT_GE(Find<SceneView>("SceneView")->width(), 450);
    EXPECT_GE(Find<SceneView>("SceneView")->height(), 300);
    EXPECT_TRUE(isInFront("AnalysisDock"));
    EXPECT_FALSE(isInFront("LayerDock"));
    for (const auto& [key, name] :
         {std::pair("Ctrl+1", "LayerDock"), {"Ctrl+2", "PropertyDock"}, {"Ctrl+3", "AnalysisDock"}}) {
        QTest::keySequence(m_window.get(), QKeySequence(key));
        EXPECT_TRUE(isInFront(name)) << key;
        EXPECT_TRUE(Find<QDockWidget>(name)->isAncestorOf(QApplication::focusWidget())) << key;
    }
    QTest::keySequence(m_window.get(), QKeySequence("Ctrl+3"));
    EXPECT_FALSE(Find<QDockWidget>("AnalysisDock")->isVisible());
}

// Made smaller, and larger again, the window is as it was; what was closed meanwhile stays closed, the next time, too.
TEST_F(WindowForAll, GivesThePanelsTheirPlacesBackWhenThereIsRoomAgain) {
    const auto resize = [this](int width, int height) {
        m_window->resize(width, height);
        QTRY_COMPARE(m_window->width(), width);
        QCoreApplication::processEvents();
    };
    const auto isInFront = [this](const char* name) { return !Find<QDockWidget>(name)->visibleRegion().isEmpty(); };
    resize(1300, 900);
    const int names = Find<QDockWidget>("LayerDock")->width();
    EXPECT_TRUE(isInFront("LayerDock") && isInFront("PropertyDock") && isInFront("AnalysisDock"));
    resize(800, 600);
    EXPECT_TRUE(isInFront("AnalysisDock"));
    EXPECT_FALSE(isInFront("LayerDock") || isInFront("PropertyDock"));
    EXPECT_GE(Find<QWidget>("SunSlider")->width(), 144);
    for (int i = 0; i < 2; ++i)  // to the front, and away
        QTest::keySequence(m_window.get(), QKeySequence("Ctrl+2"));
    resize(1300, 900);
    EXPECT_TRUE(isInFront("LayerDock") && isInFront("AnalysisDock"));
    EXPECT_EQ(Find<QDockWidget>("LayerDock")->width(), names);
    EXPECT_FALSE(Find<QDockWidget>("PropertyDock")->isVisible());
}

TEST_F(WindowForAll, SaysWhatToDoWhenThereIsNothingYet) {
    EXPECT_NE(Find<QLabel>("AnalysisSummary")->text().indexOf(QString::fromUtf8("还没有结果")), -1);
    OpenAndAnalyse();
    EXPECT_EQ(Find<QLabel>("AnalysisSummary")->text().indexOf(QString::fromUtf8("还没有结果")), -1);
}

TEST_F(WindowForAll, SaysWhichProgramItIsAndWhereThingsLie) {
    const ModalDriver driver([](const ModalWindow& window) {
        const std::string text = ToUtf8(window.text.View());
        for (const std::string& part :
             {std::string("orvo "), std::string("Qt ") + qVersion(), std::string("docs/orvo.md"),
              ToUtf8(UserFolder().View()), ToUtf8(InstalledDataFolder().View()), std::string("libxml2"),
              std::string("GeoNames")})
            EXPECT_NE(text.find(part), std::string::npos) << part;
        return int{IDOK};
    });
    m_window->findChild<QAction*>("HelpAbout")->trigger();
    EXPECT_EQ(driver.GetCount(), 1);
}
