// Editing in the cells of a grid on the screen, with real keys and clicks.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QPushButton>

#include "support/ClassFont.h"
#include "window/GridForTests.h"

namespace {

// Runs a body with the focus in the grid and 东城's name the active cell.
void RunAtCity(const std::function<void(GridDialog&, NotingGrid&)>& body) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        dialog.m_grid.SetCurCell(dialog.m_grid.GetRow(1), 1);
        body(dialog, dialog.m_grid);
    });
}

CString CityName(const NotingGrid& grid) {
    return grid.GetRow(1)->GetItemText(1);
}

// An editor that refuses its text, or has no window, or gives the arrows away.
class OddEdit : public QcUiGridEdit {
public:
    using QcUiGridEdit::QcUiGridEdit;
    ~OddEdit() override { ++s_nDeleted; }
    bool Create(const RECT& cellRect) override { return m_creates && QcUiGridEdit::Create(cellRect); }
    bool CanEndEdit() override { return m_canEnd; }
    bool WantsArrowKeys() override { return m_wantsArrows; }

    bool m_creates = true;
    bool m_canEnd = true;
    bool m_wantsArrows = true;
    static inline int s_nDeleted = 0;
};

TEST(QcUiGridEdit, F2EnterAndADoubleClickOpenAnEditor) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
            Press(key);
            ASSERT_NE(EditorOf(grid), nullptr);
            EXPECT_EQ(EditorOf(grid)->text(), "东城");
            EXPECT_EQ(EditorOf(grid)->selectedText(), "东城");
            EXPECT_TRUE(EditorOf(grid)->hasFocus());
            EXPECT_EQ(EditorOf(grid)->accessibleName(), "城市");
            Press(Qt::Key_Escape);
            EXPECT_FALSE(grid.IsEditing());
            EXPECT_TRUE(ViewOf(grid)->hasFocus());
        }
        const QPoint place = PlaceOf(grid, grid.GetRow(2), 1).center();
        QTest::mouseDClick(ViewOf(grid)->viewport(), Qt::LeftButton, {}, place);
        ASSERT_NE(EditorOf(grid), nullptr);
        EXPECT_EQ(EditorOf(grid)->text(), "西城");
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(2)->GetCell(1));
    });
}

TEST(QcUiGridEdit, TypingReplacesTheText) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("ab");
        ASSERT_NE(EditorOf(grid), nullptr);
        EXPECT_EQ(EditorOf(grid)->text(), "ab");
        EXPECT_EQ(CityName(grid), L"东城") << "not before the edit ends";
        Press(Qt::Key_Return);
        EXPECT_EQ(CityName(grid), L"ab");
        EXPECT_FALSE(grid.IsEditing());
    });
}

TEST(QcUiGridEdit, HasTheGridsFontWhereTheToolkitHasAnotherForEdits) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        const QFont font = ViewOf(grid)->font();
        const ClassFont large("QLineEdit", 2 * font.pointSize());
        Type("ab");
        ASSERT_NE(EditorOf(grid), nullptr);
        EXPECT_EQ(EditorOf(grid)->font(), font);
    });
}

TEST(QcUiGridEdit, InputMethodsTypeIntoTheCell) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        EXPECT_TRUE(ViewOf(grid)->testAttribute(Qt::WA_InputMethodEnabled));
        QInputMethodEvent event;
        event.setCommitString("海淀");
        QCoreApplication::sendEvent(ViewOf(grid), &event);
        ASSERT_NE(EditorOf(grid), nullptr);
        EXPECT_EQ(EditorOf(grid)->text(), "海淀");
        Press(Qt::Key_Return);
        EXPECT_EQ(CityName(grid), L"海淀");
    });
}

TEST(QcUiGridEdit, KeysEndTheEditAndMove) {
    struct Move {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int row;
        int column;
    };
    for (const Move& move :
         {Move{Qt::Key_Return, {}, 2, 1}, Move{Qt::Key_Enter, Qt::KeypadModifier, 2, 1}, Move{Qt::Key_Down, {}, 2, 1},
          Move{Qt::Key_Up, {}, 0, 1}, Move{Qt::Key_Tab, {}, 1, 2}, Move{Qt::Key_Backtab, Qt::ShiftModifier, 1, 0},
          Move{Qt::Key_Tab, Qt::ShiftModifier, 1, 0}}) {
        RunAtCity([&move](GridDialog&, NotingGrid& grid) {
            Type("x");
            Press(move.key, move.modifiers);
            EXPECT_FALSE(grid.IsEditing());
            EXPECT_EQ(CityName(grid), L"x");
            EXPECT_EQ(grid.GetCurRow(), grid.GetRow(move.row)) << move.key;
            EXPECT_EQ(grid.GetCurColumn(), move.column) << move.key;
            EXPECT_TRUE(ViewOf(grid)->hasFocus());
        });
    }
}

TEST(QcUiGridEdit, TabGoesOverTheEndsOfRowsAndStopsAtTheLast) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        grid.SetCurCell(grid.GetRow(1), 2);
        Press(Qt::Key_F2);
        Press(Qt::Key_Tab);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(2)->GetCell(0));
        Press(Qt::Key_F2);
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(1)->GetCell(2));
        grid.SetCurCell(grid.GetRow(6), 2);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
            Press(Qt::Key_F2);
            Press(key);
            EXPECT_FALSE(grid.IsEditing());
            EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(6)->GetCell(2));
        }
    });
}

TEST(QcUiGridEdit, EscapeCancelsTheEditAndThenTheDialog) {
    GridDialog dialog;
    const INT_PTR result = dialog.Run([&](const ModalWindow& window) {
        NotingGrid& grid = dialog.m_grid;
        grid.SetFocus();
        grid.SetCurCell(grid.GetRow(1), 1);
        Type("x");
        Press(Qt::Key_Escape);
        EXPECT_EQ(CityName(grid), L"东城");
        EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
        Press(Qt::Key_Escape);
        EXPECT_FALSE(static_cast<QWidget*>(window.widget)->isVisible());
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(QcUiGridEdit, EnterIsTheDialogsWhereNothingCanBeEdited) {
    GridDialog dialog(false);
    EXPECT_EQ(dialog.RunInGrid([] { Press(Qt::Key_Return); }), IDOK);
    GridDialog locked;
    EXPECT_EQ(locked.RunInGrid([&] {
        locked.m_grid.SetCurRow(locked.m_grid.GetRow(1));
        locked.m_grid.SetOption(QCGRID_READONLY);
        Press(Qt::Key_Return);
    }),
              IDOK);
}

TEST(QcUiGridEdit, TabWithoutAnEditIsTheDialogs) {
    RunAtCity([](GridDialog& dialog, NotingGrid&) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), WidgetFor(dialog.GetDlgItem(IDOK)->m_hWnd));
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget(), WidgetFor(dialog.GetDlgItem(10)->m_hWnd));
    });
}

TEST(QcUiGridEdit, InsAndDelAreTheEditors) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Press(Qt::Key_F2);
        Press(Qt::Key_Insert);
        Press(Qt::Key_Delete);
        ASSERT_NE(EditorOf(grid), nullptr);
        EXPECT_EQ(EditorOf(grid)->text(), "") << "Del deletes the selected text";
        EXPECT_EQ(grid.GetRowCount(), 7);
        Press(Qt::Key_Return);
        EXPECT_EQ(CityName(grid), L"");
    });
}

TEST(QcUiGridEdit, LosingTheFocusTakesTheText) {
    RunAtCity([](GridDialog& dialog, NotingGrid& grid) {
        EXPECT_TRUE(grid.IsActiveShown());
        Type("x");
        EXPECT_TRUE(grid.IsActiveShown());
        dialog.GetDlgItem(10)->SetFocus();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(CityName(grid), L"x");
        EXPECT_FALSE(grid.IsActiveShown());
        EXPECT_EQ(QApplication::focusWidget(), WidgetFor(dialog.GetDlgItem(10)->m_hWnd)) << "it stays where it went";
        grid.SetFocus();
        EXPECT_TRUE(grid.IsActiveShown());
    });
}

TEST(QcUiGridEdit, AClickOnAnotherCellTakesTheText) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("x");
        ClickCell(grid, grid.GetRow(2), 0);
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(CityName(grid), L"x");
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(2)->GetCell(0));
    });
}

TEST(QcUiGridEdit, UnmodifiedTextsAreNotTaken) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Press(Qt::Key_F2);
        grid.GetEditCtrl()->SetText(L"from the program");
        grid.EndEditCell();
        EXPECT_EQ(CityName(grid), L"东城");
        Press(Qt::Key_F2);
        grid.GetEditCtrl()->SetText(L"from the program");
        grid.GetEditCtrl()->SetModified(true);
        grid.EndEditCell();
        EXPECT_EQ(CityName(grid), L"from the program");
        grid.EndEditCell();
        grid.CancelEditCell();
    });
}

TEST(QcUiGridEdit, ATextThatCannotBeTakenStaysInItsEditor) {
    RunAtCity([](GridDialog& dialog, NotingGrid& grid) {
        grid.m_makeEditor = [](QcUiGridCell* cell) {
            auto* edit = new OddEdit(cell);
            edit->m_canEnd = false;
            return edit;
        };
        Type("x");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Up}) {
            Press(key);
            EXPECT_TRUE(grid.IsEditing());
        }
        dialog.GetDlgItem(10)->SetFocus();
        EXPECT_FALSE(grid.IsEditing()) << "the focus cannot be kept, the text is left";
        EXPECT_EQ(CityName(grid), L"东城");
    });
}

TEST(QcUiGridEdit, EditorsAreDeletedOnceAndNotTooEarly) {
    OddEdit::s_nDeleted = 0;
    RunAtCity([](GridDialog& dialog, NotingGrid& grid) {
        grid.m_makeEditor = [](QcUiGridCell* cell) { return new OddEdit(cell); };
        Type("x");
        dialog.GetDlgItem(10)->SetFocus();
        EXPECT_EQ(OddEdit::s_nDeleted, 0) << "its handler may be running";
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        grid.SetFocus();
        grid.m_makeEditor = [](QcUiGridCell* cell) {
            auto* edit = new OddEdit(cell);
            edit->m_creates = false;
            return edit;
        };
        EXPECT_FALSE(grid.EditCell(grid.GetRow(1), 1));
        EXPECT_FALSE(grid.IsEditing());
        grid.m_makeEditor = [](QcUiGridCell*) { return nullptr; };
        EXPECT_FALSE(grid.EditCell(grid.GetRow(1), 1));
    });
    EXPECT_EQ(OddEdit::s_nDeleted, 2);
}

TEST(QcUiGridEdit, ArrowsLeaveAnEditorThatGivesThemAway) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Press(Qt::Key_F2);
        Press(Qt::Key_Home);
        Press(Qt::Key_Left);
        EXPECT_TRUE(grid.IsEditing()) << "the plain editor keeps them";
        Press(Qt::Key_Escape);
        grid.m_makeEditor = [](QcUiGridCell* cell) {
            auto* edit = new OddEdit(cell);
            edit->m_wantsArrows = false;
            return edit;
        };
        Press(Qt::Key_F2);
        Press(Qt::Key_End);
        Press(Qt::Key_Left);
        EXPECT_TRUE(grid.IsEditing()) << "not at the beginning";
        Press(Qt::Key_Left);
        Press(Qt::Key_Left);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(1)->GetCell(0));
        grid.SetCurCell(grid.GetRow(1), 1);
        Press(Qt::Key_F2);
        Press(Qt::Key_End);
        Press(Qt::Key_Right);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(1)->GetCell(2));
    });
}

TEST(QcUiGridEdit, DeletingWhileEditing) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("x");
        grid.DeleteRow(grid.GetRow(2));
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(CityName(grid), L"x") << "another row goes: the text is taken";
        grid.SetCurCell(grid.GetRow(1), 1);
        Type("y");
        grid.DeleteRow(grid.GetRow(0));
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(Written(grid), L"河北(石家庄 唐山 保定)");
        grid.SetCurCell(grid.GetRow(1), 1);
        Type("z");
        grid.OnMenuCommand(QCGRID_CMD_DELETE_ROWS);
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(Written(grid), L"河北(唐山 保定)");
    });
}

TEST(QcUiGridEdit, ResetWhileEditing) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("x");
        grid.Reset();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(grid.GetRowCount(), 0);
        EXPECT_EQ(grid.GetColumnCount(), 3) << "columns on the screen stay";
        EXPECT_EQ(grid.GetCurRow(), nullptr);
        FillProvinces(grid);
        EXPECT_EQ(grid.GetRowCount(), 7);
    });
}

TEST(QcUiGridEdit, InsertingClosingAndLockingEndAnEdit) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        const std::vector<std::function<void()>> ends = {
            [&] { grid.GetRow(0)->AppendChild(); },
            [&] { grid.AppendRow(); },
            [&] { grid.GetRow(0)->Expand(false); },
            [&] { grid.SetOption(QCGRID_READONLY); },
        };
        for (const auto& end : ends) {
            grid.SetCurCell(grid.GetRow(1), 1);
            Type("x");
            ASSERT_TRUE(grid.IsEditing());
            end();
            EXPECT_FALSE(grid.IsEditing());
            EXPECT_EQ(CityName(grid), L"x");
            grid.GetRow(1)->SetItemText(1, L"");
        }
    });
}

TEST(QcUiGridEdit, ScrollingEndsAnEdit) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("x");
        ASSERT_GT(ViewOf(grid)->verticalScrollBar()->maximum(), 0);
        ViewOf(grid)->verticalScrollBar()->setValue(1);
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(CityName(grid), L"x");
    });
}

TEST(QcUiGridEdit, TheEditorStandsOverItsCell) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        grid.GetRow(5)->GetCell(1)->SetStyle(QCGRID_CELL_CENTER);
        ASSERT_TRUE(grid.EditCell(grid.GetRow(5), 1));
        EXPECT_TRUE(grid.OwnsWindow(grid.GetEditCtrl()->GetWnd()));
        EXPECT_TRUE(grid.OwnsWindow(&grid));
        QWidget* viewport = ViewOf(grid)->viewport();
        const QRect cell = PlaceOf(grid, grid.GetRow(5), 1);
        EXPECT_TRUE(viewport->rect().contains(cell)) << "scrolled to";
        const QPoint corner = viewport->mapFrom(ViewOf(grid), EditorOf(grid)->pos());
        EXPECT_TRUE(cell.contains(QRect(corner, EditorOf(grid)->size())));
        EXPECT_GE(EditorOf(grid)->height(), EditorOf(grid)->fontMetrics().height());
        EXPECT_EQ(EditorOf(grid)->parentWidget(), ViewOf(grid));
        EXPECT_TRUE(EditorOf(grid)->alignment().testFlag(Qt::AlignHCenter));
    });
}

TEST(QcUiGridEdit, AnEditInAClosedRowOpensIt) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        grid.GetRow(3)->Expand(false);
        ASSERT_TRUE(grid.EditCell(grid.GetRow(5), 1));
        EXPECT_TRUE(grid.GetRow(3)->IsExpanded());
        EXPECT_EQ(EditorOf(grid)->text(), "唐山");
        EXPECT_FALSE(grid.EditCell(grid.GetRow(5), 3));
        EXPECT_FALSE(grid.EditCell(nullptr, 0));
    });
}

TEST(QcUiGridEdit, TheDialogMayEndWhileEditing) {
    GridDialog dialog;
    for (int run = 0; run < 2; ++run) {
        dialog.RunInGrid([&] {
            dialog.m_grid.SetCurCell(dialog.m_grid.GetRow(1), 1);
            Type("x");
            ASSERT_TRUE(dialog.m_grid.IsEditing());
            dialog.EndDialog(IDOK);
        });
        EXPECT_EQ(dialog.m_grid.m_hWnd, nullptr);
        EXPECT_FALSE(dialog.m_grid.IsEditing());
        EXPECT_EQ(dialog.m_grid.GetRowCount(), 7) << "rows live without the window";
        dialog.m_grid.AppendRow();
    }
}

TEST(QcUiGridEdit, TheWindowMayBeDestroyedWhileEditing) {
    RunAtCity([](GridDialog&, NotingGrid& grid) {
        Type("x");
        delete ViewOf(grid);
        EXPECT_EQ(grid.m_hWnd, nullptr);
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(grid.GetCurRow(), nullptr);
        grid.GetRow(0)->AppendChild();
    });
}

TEST(QcUiGridEdit, TheGridMayGoBeforeItsWindow) {
    GridDialog dialog(false);
    dialog.Run([&](const ModalWindow&) {
        auto grid = std::make_unique<NotingGrid>();
        grid->AppendColumn(L"a");
        grid->AppendColumn(L"b");
        ASSERT_TRUE(grid->Create(kGridStyle, {0, 0, 100, 100}, &dialog, 77));
        FillProvinces(*grid);
        grid->EditCell(grid->GetRow(1), 1);
        QTreeView* view = ViewOf(*grid);
        grid.reset();
        EXPECT_EQ(view->model(), nullptr);
        QTest::keyClick(view, Qt::Key_Insert);
        EXPECT_FALSE(view->grab().isNull());
    });
}

}  // namespace
