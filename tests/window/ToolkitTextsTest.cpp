// The menus that the toolkit brings along: in the program's language, whichever is in force when they open.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <memory>

#include "support/TableSwitch.h"
#include "window/DialogForTests.h"

namespace {

using Texts = std::vector<std::string>;

constexpr const char* kItems =
    "EDITTEXT 10, 7, 7, 60, 14, ES_AUTOHSCROLL\n"
    "CONTROL \"\", 11, \"SysDateTimePick32\", DTS_SHORTDATEFORMAT | WS_TABSTOP, 7, 30, 80, 14\n"
    "COMBOBOX 12, 7, 50, 60, 60, CBS_DROPDOWN | WS_TABSTOP\n";

// The entries of a menu, without their keys.
Texts EntriesOf(const QMenu& menu) {
    Texts entries;
    for (const QAction* action : menu.actions())
        if (!action->isSeparator())
            entries.push_back(action->text().section('\t', 0, 0).toStdString());
    return entries;
}

Texts MenuOf(QLineEdit& edit) {
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    return EntriesOf(*menu);
}

}  // namespace

TEST(ToolkitTexts, AreChineseAsBuiltIn) {
    DialogForTests(kItems).Run([](const ModalWindow& window) {
        const Texts expected = {"撤消(&U)", "重做(&R)", "剪切(&T)", "复制(&C)", "粘贴(&P)", "删除", "全选"};
        EXPECT_EQ(MenuOf(*Control<QLineEdit>(window, 10)), expected);
        EXPECT_EQ(MenuOf(*Control(window, 12)->findChild<QLineEdit*>()), expected);
    });
}

TEST(ToolkitTexts, PassThroughTheLanguageSwitchWhenAMenuOpens) {
    DialogForTests(kItems).Run([](const ModalWindow& window) {
        QLineEdit& edit = *Control<QLineEdit>(window, 10);
        {
            const TableSwitch language({{L"剪切(&T)", L"Snip"}, {L"全选", L"Everything"}});
            EXPECT_EQ(MenuOf(edit),
                      (Texts{"撤消(&U)", "重做(&R)", "Snip", "复制(&C)", "粘贴(&P)", "删除", "Everything"}));
        }
        EXPECT_EQ(MenuOf(edit).at(2), "剪切(&T)");
    });
}

TEST(ToolkitTexts, CoverTheMenuOfTheDatePicker) {
    DialogForTests(kItems).Run([](const ModalWindow& window) {
        auto* picker = Control<QDateEdit>(window, 11);
        Texts entries;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&entries] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                entries = EntriesOf(*menu);
                menu->close();
            }
        });
        look.start(0);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(4, 4), picker->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(picker, &event);
        for (int i = 0; i < 100 && entries.empty(); ++i)
            QApplication::processEvents();
        EXPECT_EQ(entries, (Texts{"撤消(&U)", "重做(&R)", "剪切(&T)", "复制(&C)", "粘贴(&P)", "删除", "全选(&A)",
                                  "增加(&S)", "减少(&D)"}));
    });
}

TEST(ToolkitTexts, LeaveAllOthersAlone) {
    DialogForTests(kItems).Run([](const ModalWindow&) {
        EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Delete"), "Delete");
        EXPECT_EQ(QCoreApplication::translate("QLineEdit", "Something"), "Something");
        EXPECT_EQ(QCoreApplication::translate("QAbstractSpinBox", "&Undo"), "&Undo");
    });
}
