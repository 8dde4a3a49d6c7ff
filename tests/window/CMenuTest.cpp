// Menus that pop up: entries, choosing by keys, mouse and driver, and what the owner hears.
#include "platform/window/CMenu.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QMenu>

#include "window/Notifications.h"

namespace {

QMenu* MenuOf(const ModalWindow& window) {
    return static_cast<QMenu*>(static_cast<QWidget*>(window.widget));
}

// Open, (grey) Delete, a separator, Insert, (checked) Shown.
struct Menus : testing::Test {
    CMenu menu;

    Menus() {
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING, 101, L"&Open\tCtrl+O");
        menu.AppendMenu(MF_STRING | MF_GRAYED, 102, L"&Delete");
        menu.AppendMenu(MF_SEPARATOR);
        menu.AppendMenu(MF_STRING, 103, L"&Insert");
        menu.AppendMenu(MF_STRING | MF_CHECKED, 104, L"&Shown");
    }
    int Track(const std::function<int(const ModalWindow&)>& answer, UINT flags = TPM_RETURNCMD, CWnd* owner = nullptr) {
        const ModalDriver driver(answer);
        const int result = menu.TrackPopupMenu(flags, 10, 10, owner);
        EXPECT_EQ(driver.GetCount(), 1);
        return result;
    }
    int AfterKeys(std::initializer_list<Qt::Key> keys) {
        return Track([&](const ModalWindow& window) {
            for (const Qt::Key key : keys)
                QTest::keyClick(MenuOf(window), key);
            return MenuOf(window)->isVisible() ? ModalDriver::kCareful : 0;
        });
    }
};

TEST_F(Menus, AreMadeOnce) {
    EXPECT_FALSE(menu.CreatePopupMenu()) << "it is made already";
}

TEST_F(Menus, ShowTheirEntriesAsTheyAre) {
    Track([&](const ModalWindow& window) {
        EXPECT_TRUE(window.text == L"&Open\tCtrl+O\n&Delete\n\n&Insert\n&Shown\n");
        const QList<QAction*> actions = MenuOf(window)->actions();
        EXPECT_EQ(actions.size(), 5);
        EXPECT_TRUE(actions[0]->isEnabled());
        EXPECT_FALSE(actions[0]->isCheckable());
        EXPECT_FALSE(actions[1]->isEnabled());
        EXPECT_TRUE(actions[2]->isSeparator());
        EXPECT_TRUE(actions[4]->isChecked());
        return ModalDriver::kCareful;
    });
}

TEST_F(Menus, ADriversCommandChoosesAnEntry) {
    EXPECT_EQ(Track([](const ModalWindow&) { return 103; }), 103);
    EXPECT_EQ(Track([](const ModalWindow&) { return 104; }), 104);
    for (const int leaving : {int{IDCANCEL}, ModalDriver::kCareful})
        EXPECT_EQ(Track([leaving](const ModalWindow&) { return leaving; }), 0);
}

TEST_F(Menus, ACommandThatNoPersonCouldChooseIsADriversMistake) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Track([](const ModalWindow&) { return 102; }), 0) << "grey", "command 102");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Track([](const ModalWindow&) { return 999; }), 0) << "unknown", "command 999");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Track([](const ModalWindow&) -> int { throw 1; }), 0), "its answer threw");
}

TEST_F(Menus, KeysChooseAnEntry) {
    EXPECT_EQ(AfterKeys({Qt::Key_Down, Qt::Key_Return}), 101);
    EXPECT_EQ(AfterKeys({Qt::Key_I}), 103) << "by its mnemonic";
    EXPECT_EQ(AfterKeys({Qt::Key_Up, Qt::Key_Return}), 104);
    EXPECT_EQ(AfterKeys({Qt::Key_Escape}), 0);
    EXPECT_EQ(AfterKeys({Qt::Key_D}), 0) << "grey: still open, and left";
}

TEST_F(Menus, AClickChoosesAnEntry) {
    const auto click = [this](int position) {
        return Track([position](const ModalWindow& window) {
            QMenu* shown = MenuOf(window);
            QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier,
                              shown->actionGeometry(shown->actions()[position]).center());
            return shown->isVisible() ? ModalDriver::kCareful : 0;
        });
    };
    EXPECT_EQ(click(3), 103);
    EXPECT_EQ(click(1), 0) << "grey";
    EXPECT_EQ(click(2), 0) << "a separator";
}

TEST_F(Menus, TheOwnerHearsOfTheChoiceUnlessItIsGivenBack) {
    DialogForTests dialog("PUSHBUTTON \"x\", 10, 7, 7, 40, 14\n");
    Notifications heard(dialog);
    dialog.Run([&](const ModalWindow&) {
        EXPECT_EQ(Track([](const ModalWindow&) { return 103; }, TPM_LEFTALIGN, &dialog), TRUE);
        EXPECT_EQ(heard.Take(), (std::vector<Notification>{{103, 0}}));
        EXPECT_EQ(Track([](const ModalWindow&) { return 103; }, TPM_RETURNCMD, &dialog), 103);
        EXPECT_EQ(Track([](const ModalWindow&) { return IDCANCEL; }, TPM_LEFTALIGN, &dialog), FALSE);
        EXPECT_TRUE(heard.Take().empty());
    });
}

TEST_F(Menus, GoWithTheirOwner) {
    for (const UINT flags : {TPM_RETURNCMD, TPM_LEFTALIGN}) {
        for (const int command : {0, 103}) {
            DialogForTests dialog("PUSHBUTTON \"x\", 10, 7, 7, 40, 14\n");
            dialog.Run([&](const ModalWindow&) {
                const auto answer = [&](const ModalWindow& window) {
                    EXPECT_EQ(window.owner, dialog.m_hWnd);
                    dialog.DestroyWindow();
                    return command;
                };
                EXPECT_EQ(Track(answer, flags, &dialog), 0);
            });
        }
    }
}

TEST(CMenu, MustBeCreatedFirst) {
    CMenu menu;
    EXPECT_FALSE(menu.AppendMenu(MF_STRING, 1, L"x"));
    const ModalDriver driver([](const ModalWindow&) { return 1; });
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 0);
    EXPECT_EQ(driver.GetCount(), 0);
}

TEST_F(Menus, ShowNothingWhereNobodyCouldAnswer) {
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 0);
}

}  // namespace
