// Scenes of the window, played with the sample of a courtyard.
#include "WindowScenes.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QDir>
#include <QPushButton>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <map>

#include "platform/base/Support.h"
#include "platform/window/ModalDriver.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/WindowModel.h"
#include "workbench/view/SceneView.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/MainWindow.h"

namespace {

// Until the view has drawn what it shows at rest.
void Settle(const MainWindow& window) {
    constexpr int kLongerThanItMoves = 400;
    QTest::qWait(kLongerThanItMoves);
    window.findChild<SceneView*>("SceneView")->GetPicture();
}

// By its name alone, which the window shows: where it lies on this machine is nothing for a picture.
bool Open(MainWindow& window) {
    const QString folder = Shown(InstalledDataFolder()) + "/samples";
    return QDir::setCurrent(folder) && window.OpenFile(L"courtyard.dxf");
}

// The first window that fails, as a click on its row chooses it.
bool ChooseFailing(const MainWindow& window) {
    auto& table = *window.findChild<QTableView*>("WindowTable");
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        const QModelIndex cell = table.model()->index(row, WindowModel::Verdict);
        if (!cell.data(Qt::BackgroundRole).isValid())
            continue;
        table.setFocus();
        table.setCurrentIndex(cell.siblingAtColumn(WindowModel::Name));
        return true;
    }
    return false;
}

// From where the tower, its shadow on the windows and the sun on its path are all in sight.
void LookAround(QWidget& view) {
    constexpr int kSouthwards = 5;
    QTest::keyClick(&view, Qt::Key_3);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&view, Qt::Key_PageUp);
    for (int i = 0; i < kSouthwards; ++i)
        QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Home);
}

// Run, the failing window, and the hour at which the tower hides it.
bool Analyse(MainWindow& window) {
    if (!Open(window))
        return false;
    QTest::mouseClick(window.findChild<QPushButton*>("RunAnalysis"), Qt::LeftButton);
    constexpr int kMinute = 12 * 60 + 10;
    window.findChild<QSlider*>("SunSlider")->setValue(kMinute);
    if (!ChooseFailing(window))
        return false;
    LookAround(*window.findChild<QWidget*>("SceneView"));
    return true;
}

// The box that an entry of the menu shows.
bool ShowBox(const MainWindow& window, const char* entry, const TakePicture& take) {
    bool isShown = false;
    const ModalDriver driver([&](const ModalWindow& box) {
        isShown = true;
        take(*static_cast<QWidget*>(box.widget));
        return int{IDCANCEL};
    });
    auto* action = window.findChild<QAction*>(entry);
    if (action != nullptr)
        action->trigger();
    return isShown;
}

}  // namespace

QStringList WindowScenes() {
    return {"empty", "drawing", "analysed", "keys", "about"};
}

bool ShowScene(const QString& name, MainWindow& window, const TakePicture& take) {
    if (name == "about")
        return ShowBox(window, "HelpAbout", take);
    if (name == "keys") {
        window.findChild<QAction*>("HelpKeys")->trigger();
        take(*window.findChild<QWidget*>("KeysWindow"));
        return true;
    }
    const bool isReady = name == "empty"      ? true
                         : name == "drawing"  ? Open(window)
                         : name == "analysed" ? Analyse(window)
                                              : false;
    if (!isReady)
        return false;
    Settle(window);
    take(window);
    return true;
}
