// The dialogs of places, on the places that ship.
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include "Album.h"
#include "Hands.h"
#include "Scenes.h"
#include "frame/Commands.h"
#include "platform/window/CFileDialog.h"
#include "resources/Resource.h"
#include "zone/OrvoPlaceDlg.h"

namespace {

constexpr int kProvinceRow = 1;  // the second province that ships, whose cities are few enough to be seen together
constexpr int kCityRow = 2;
constexpr int kLongitude = 2;
constexpr int kNote = 4;

void EditPlaces() {
    g_commandTable[0].m_pFunction();
}

QModelIndex CellOf(const QTreeView& tree, int city, int column) {
    return tree.model()->index(city, column, tree.model()->index(kProvinceRow, 0));
}

void ShowMenu(Album& album, const char* name, const ModalWindow& window, QTreeView& tree, const QModelIndex& cell) {
    const ModalDriver driver([&](const ModalWindow& menu) {
        album.Take(name, window, static_cast<QWidget*>(menu.widget));
        return ModalDriver::kCareful;  // no entry: the menu closes
    });
    const QPoint place = tree.visualRect(cell).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, tree.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(tree.viewport(), &event);
}

void WorkInEditor(Album& album, const ModalWindow& window) {
    auto& tree = ControlAs<QTreeView>(window, IDC_ZONE_GRID);
    album.Take("places", window);
    tree.collapse(tree.model()->index(0, 0));
    tree.scrollToTop();
    tree.setFocus();
    tree.setCurrentIndex(CellOf(tree, kCityRow, kLongitude));
    album.Take("places-selected", window);
    QTest::keyClick(&tree, Qt::Key_F2);
    album.Take("places-position", window);
    QTest::keyClicks(tree.focusWidget() ? tree.focusWidget() : &tree, "1212");
    album.Take("places-position-typed", window);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    tree.setCurrentIndex(CellOf(tree, kCityRow, kNote));
    QTest::keyClick(&tree, Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), "WGS 84");
    album.Take("places-note", window);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ShowMenu(album, "places-menu-city", window, tree, CellOf(tree, kCityRow, 1));
    ShowMenu(album, "places-menu-province", window, tree, tree.model()->index(kProvinceRow, 0));
}

// A file of places, or what should be one.
QString WriteFile(const QTemporaryDir& folder, const char* text) {
    const QString path = folder.filePath("import.xml");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
        throw std::logic_error("no file to import");
    return path;
}

}  // namespace

void TakeZoneEditor(Album& album) {
    album.Show("places", &EditPlaces, [&](const ModalWindow& window) { WorkInEditor(album, window); });
}

void TakeImports(Album& album) {
    const QTemporaryDir folder;
    const auto import = [&](const char* name, const ModalWindow& window, const char* text) {
        CFileDialog::SetNextFileForTest(WriteFile(folder, text).toStdWString().c_str());
        album.TakeBox(name, [&] { Click(window, IDC_IMPORT_ZONES); });
    };
    album.Show("message-imported", &EditPlaces, [&](const ModalWindow& window) {
        import("message-no-xml", window, "no document");
        import("message-no-places", window, "<other/>");
        import("message-imported", window, "<ORVO_ZONEDATA xmlns:dt=\"urn:orvo:dictionary\"/>");
    });
    CFileDialog::ShowDialogsAgainForTest();
}

void TakePlace(Album& album) {
    CString province;
    CString city = L"宁波";
    const auto choose = [&] { SunZoneDlgDoModal(province, city, nullptr); };
    album.Show("place", choose, [&](const ModalWindow& window) { album.Take("place", window); });
}
