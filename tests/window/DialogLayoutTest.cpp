// How a template becomes a dialog: units, growing columns, order, groups, languages.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <cmath>

#include "platform/window/CWnd.h"
#include "support/TableSwitch.h"
#include "window/DialogForTests.h"

namespace {

// The pixels of dialog units, computed from the font as the units are defined.
struct Units {
    explicit Units(const QWidget& dialog) {
        const QFontMetrics metrics = dialog.fontMetrics();
        int letters = 0;
        for (char upper = 'A', lower = 'a'; upper <= 'Z'; ++upper, ++lower)
            letters += metrics.horizontalAdvance(QString(QChar(upper)) + QChar(lower));
        width = std::round(letters / 52.0);  // of an average letter, in whole pixels
        height = metrics.height();
    }
    double X(int units) const { return units * width / 4; }
    double Y(int units) const { return units * height / 8; }
    double width;
    double height;
};

QWidget* DialogOf(const ModalWindow& window) {
    return static_cast<QWidget*>(window.widget);
}

TEST(DialogLayout, PlacesAreDialogUnitsOfTheFont) {
    DialogForTests dialog("EDITTEXT 10, 20, 16, 80, 14\nPUSHBUTTON \"Go\", 11, 120, 60, 50, 14\n");
    dialog.Run([](const ModalWindow& window) {
        const Units units(*DialogOf(window));
        const QRect edit = Control(window, 10)->geometry();
        EXPECT_NEAR(edit.left(), units.X(20), 1);
        EXPECT_NEAR(edit.top(), units.Y(16), 1);
        EXPECT_NEAR(edit.width(), units.X(80), 1);
        EXPECT_NEAR(edit.height(), units.Y(14), 1);
        EXPECT_NEAR(DialogOf(window)->height(), units.Y(100), 1);
        EXPECT_NEAR(DialogOf(window)->width(), units.X(200), 1);
        EXPECT_EQ(DialogOf(window)->minimumSize(), DialogOf(window)->maximumSize());
    });
}

constexpr const char* kForm =
    "GROUPBOX \"G\", -1, 4, 2, 190, 60\n"
    "LTEXT \"Name:\", 30, 8, 16, 30, 8\n"
    "EDITTEXT 10, 40, 14, 60, 14\n"
    "LTEXT \"Age:\", 31, 8, 36, 30, 8\n"
    "EDITTEXT 11, 40, 34, 60, 14\n"
    "CONTROL \"Check\", 12, \"Button\", BS_AUTOCHECKBOX | WS_TABSTOP, 110, 16, 40, 10\n"
    "PUSHBUTTON \"OK\", 1, 110, 80, 40, 14\n"
    "PUSHBUTTON \"Cancel\", 2, 154, 80, 40, 14\n";

TEST(DialogLayout, ColumnsGrowForLongerTextsAndStayInLine) {
    const TableSwitch english(
        {{L"Name:", L"The name that everybody calls it by:"}, {L"Cancel", L"Leave everything as it is"}});
    DialogForTests dialog(kForm);
    dialog.Run([](const ModalWindow& window) {
        auto* label = Control<QLabel>(window, 30);
        EXPECT_EQ(label->text(), "The name that everybody calls it by:");
        for (const int id : {30, 31})
            EXPECT_GE(Control(window, id)->width(), Control(window, id)->sizeHint().width());
        for (const int id : {1, 2, 12})
            EXPECT_GE(Control(window, id)->width(), Control(window, id)->sizeHint().width()) << id;
        EXPECT_EQ(Control(window, 10)->x(), Control(window, 11)->x());
        EXPECT_GT(Control(window, 10)->x(), label->geometry().right());
        EXPECT_EQ(Control(window, 1)->y(), Control(window, 2)->y());
        EXPECT_LT(Control(window, 1)->geometry().right(), Control(window, 2)->x());
        EXPECT_LT(Control(window, 2)->geometry().right(), DialogOf(window)->width());
        const auto* group = DialogOf(window)->findChild<QGroupBox*>();
        for (const int id : {30, 10, 31, 11, 12})
            EXPECT_TRUE(group->geometry().contains(Control(window, id)->geometry())) << id;
    });
}

TEST(DialogLayout, TheKeyboardVisitsTheTemplatesOrder) {
    DialogForTests dialog(
        "EDITTEXT 12, 7, 60, 60, 14\n"
        "GROUPBOX \"G\", -1, 4, 2, 190, 50\n"
        "EDITTEXT 10, 7, 7, 60, 14\n"
        "EDITTEXT 13, 7, 30, 60, 14, NOT WS_TABSTOP\n"
        "EDITTEXT 11, 100, 7, 60, 14\n");
    dialog.Run([](const ModalWindow& window) {
        std::vector<int> visited;
        for (int i = 0; i < 4; ++i) {
            visited.push_back(CWnd::GetFocus()->GetDlgCtrlID());
            QTest::keyClick(DialogOf(window)->focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited, (std::vector<int>{12, 10, 11, 12}));
    });
}

TEST(DialogLayout, FramesLieBehindWhatStandsInThem) {
    DialogForTests dialog("EDITTEXT 10, 7, 14, 60, 14\nGROUPBOX \"G\", -1, 4, 2, 190, 50\n");
    dialog.Run([](const ModalWindow& window) {
        EXPECT_EQ(DialogOf(window)->childAt(Control(window, 10)->geometry().center()), Control(window, 10));
    });
}

TEST(DialogLayout, RadioButtonsExcludeEachOtherWithinTheirGroup) {
    DialogForTests dialog(
        "CONTROL \"a\", 10, \"Button\", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 7, 7, 40, 10\n"
        "CONTROL \"b\", 11, \"Button\", BS_AUTORADIOBUTTON, 7, 20, 40, 10\n"
        "CONTROL \"c\", 12, \"Button\", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 7, 40, 40, 10\n"
        "CONTROL \"d\", 13, \"Button\", BS_AUTORADIOBUTTON, 7, 60, 40, 10\n");
    dialog.Run([](const ModalWindow& window) {
        const auto click = [&](int id) { Control<QRadioButton>(window, id)->click(); };
        const auto checked = [&] {
            std::string all;
            for (int id = 10; id <= 13; ++id)
                all += Control<QRadioButton>(window, id)->isChecked() ? 'x' : '.';
            return all;
        };
        EXPECT_EQ(checked(), "....");
        click(11);
        click(12);
        EXPECT_EQ(checked(), ".xx.");
        click(10);
        EXPECT_EQ(checked(), "x.x.");
        QTest::keyClick(Control(window, 10), Qt::Key_Down);
        EXPECT_EQ(checked(), ".xx.") << "the arrows move within a group";
    });
}

TEST(DialogLayout, ALabelsLettersAreNotCutOff) {
    DialogForTests dialog(kForm);
    dialog.Run([](const ModalWindow& window) {
        for (const int id : {30, 31}) {
            const QWidget* label = Control(window, id);
            EXPECT_GE(label->height(), label->sizeHint().height());
        }
    });
}

// A template gives a combo box the height of its open list.
TEST(DialogLayout, ComboBoxesAreAsHighAsTheEditsInLineWithThem) {
    DialogForTests dialog(
        "EDITTEXT 10, 7, 7, 60, 14\nCOMBOBOX 11, 80, 7, 60, 90, CBS_DROPDOWNLIST\n"
        "COMBOBOX 12, 150, 7, 40, 90, CBS_DROPDOWN\nCOMBOBOX 13, 7, 30, 60, 4, CBS_DROPDOWNLIST\n");
    dialog.Run([](const ModalWindow& window) {
        const QWidget* edit = Control(window, 10);
        for (const int id : {11, 12}) {
            const QWidget* combo = Control(window, id);
            EXPECT_EQ(combo->y(), edit->y());
            EXPECT_EQ(combo->height(), std::max(edit->height(), combo->sizeHint().height()));
        }
        EXPECT_LT(Control(window, 13)->height(), edit->height()) << "the template's height is the most";
    });
}

TEST(DialogLayout, EditsThatOnlyShowLookLikeIt) {
    DialogForTests dialog("EDITTEXT 10, 7, 7, 60, 14\nEDITTEXT 11, 7, 27, 60, 14, ES_READONLY\n");
    dialog.Run([](const ModalWindow& window) {
        const QPalette palette = DialogOf(window)->palette();
        ASSERT_NE(palette.color(QPalette::Base), palette.color(QPalette::Window));
        EXPECT_EQ(Control(window, 10)->palette().color(QPalette::Base), palette.color(QPalette::Base));
        EXPECT_EQ(Control(window, 11)->palette().color(QPalette::Base), palette.color(QPalette::Window));
    });
}

TEST(DialogLayout, TheDefaultButtonIsMarked) {
    DialogForTests dialog(
        "EDITTEXT 10, 7, 7, 60, 14\nPUSHBUTTON \"B\", 2, 7, 60, 50, 14\nDEFPUSHBUTTON \"A\", 1, 60, 60, 50, 14\n");
    dialog.Run([](const ModalWindow& window) {
        EXPECT_TRUE(Control<QPushButton>(window, 1)->isDefault());
        EXPECT_FALSE(Control<QPushButton>(window, 2)->isDefault());
    });
}

TEST(DialogLayout, CaptionAndTextsAreInTheLanguageOfTheInterface) {
    const TableSwitch english({{L"Test", L"Probe"}, {L"G", L"Group"}});
    DialogForTests dialog(kForm);
    dialog.Run([](const ModalWindow& window) {
        EXPECT_EQ(DialogOf(window)->windowTitle(), "Probe");
        EXPECT_EQ(DialogOf(window)->findChild<QGroupBox*>()->title(), "Group");
        EXPECT_EQ(Control<QLabel>(window, 31)->text(), "Age:") << "untranslated: as built in";
    });
}

TEST(DialogLayout, AnUnknownClassIsAPlaceForTheProgramsOwnWindow) {
    DialogForTests dialog("CONTROL \"\", 50, \"QcUiGrid\", WS_TABSTOP, 10, 10, 100, 50\n");
    dialog.Run([&](const ModalWindow& window) {
        ASSERT_NE(dialog.GetDlgItem(50), nullptr);
        RECT rect = {};
        dialog.GetDlgItem(50)->GetWindowRect(&rect);
        EXPECT_GT(rect.right - rect.left, 50);
        EXPECT_EQ(Control(window, 50)->size(), QSize(rect.right - rect.left, rect.bottom - rect.top));
    });
}

}  // namespace
