// The degree edit as the editor of a grid's cell.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <functional>
#include <string>

#include "controls/EditDialog.h"
#include "controls/OrvoDegreeEdit.h"
#include "platform/window/QcUiGrid.h"
#include "support/ClassFont.h"

namespace {

constexpr UINT kGrid = 2001;

// Notes the rectangle that the grid gives for the cell, and whether the active cell is shown when a modified edit is
// about to end.
class NotingEdit : public OrvoDegreeEdit {
public:
    NotingEdit(QcUiGridCell* cell, RECT& rect, std::vector<bool>& wasShown)
        : OrvoDegreeEdit(cell), m_rect(rect), m_wasShown(wasShown) {}
    using OrvoDegreeEdit::Create;
    bool Create(const RECT& cellRect) override {
        m_rect = cellRect;
        return OrvoDegreeEdit::Create(cellRect);
    }
    bool CanEndEdit() override {
        m_wasShown.push_back(GetCell()->GetGrid()->IsActiveShown());
        return OrvoDegreeEdit::CanEndEdit();
    }

private:
    RECT& m_rect;
    std::vector<bool>& m_wasShown;
};

// Two columns of angles.
class AngleGrid : public QcUiGrid {
public:
    AngleGrid() : QcUiGrid(1, 100) {
        AppendColumn(L"one", 120);
        AppendColumn(L"two", 120);
    }
    QcUiGridCellCtrl* CreateCellCtrl(QcUiGridCell* cell) override {
        m_editor = new NotingEdit(cell, m_rect, m_wasShown);  // the grid's from here on
        return m_editor;
    }
    int GetEditOffset() const override { return kEditOffset; }
    // Every edit tells its parent that the focus has gone, as part of its default processing.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (wParam == MAKEWPARAM(101, EN_KILLFOCUS))
            m_losses.push_back(IsEditing());
        return QcUiGrid::OnCommand(wParam, lParam);
    }

    static constexpr int kEditOffset = 3;
    std::vector<bool> m_losses;    // of the focus: whether the cell was still being edited
    std::vector<bool> m_wasShown;  // the active cell, when a modified edit was about to end

    OrvoDegreeEdit* m_editor = nullptr;
    RECT m_rect{};
};

using GridBody = std::function<void(EditDialog&, AngleGrid&)>;

void RunGrid(DWORD cellStyle, const GridBody& body, const std::function<void(AngleGrid&)>& beforeEdit = nullptr) {
    EditDialog dialog;
    AngleGrid grid;
    RunDialog(dialog, [&] {
        ASSERT_TRUE(grid.Create(0x56810000, RECT{5, 5, 320, 140}, &dialog, kGrid));
        QcUiGridTreeRow* row = grid.AppendRow();
        row->SetItemText(0, L"116度28分00秒");
        row->GetCell(0)->SetStyle(cellStyle);
        row->SetItemText(1, L"039度54分00秒");
        if (beforeEdit)
            beforeEdit(grid);
        ASSERT_TRUE(grid.EditCell(row, 0));
        ASSERT_NE(grid.m_editor, nullptr);
        body(dialog, grid);
    });
}

bool IsEditingCell(const AngleGrid& grid) {
    return grid.IsEditing() && grid.GetEditCtrl() != nullptr;
}

}  // namespace

TEST(DegreeCell, HasTheEditorsStyleNumberAndPlace) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        const OrvoDegreeEdit& edit = *grid.m_editor;
        EXPECT_EQ(edit.GetStyle(), 0x56000084U);
        EXPECT_EQ(edit.GetDlgCtrlID(), 101);
        EXPECT_EQ(edit.GetParent()->GetSafeHwnd(), grid.GetSafeHwnd());
        EXPECT_TRUE(edit.IsWindowVisible());
        RECT place{};
        edit.GetWindowRect(&place);
        grid.ScreenToClient(&place);
        EXPECT_EQ(place.left, grid.m_rect.left + 2);
        EXPECT_EQ(place.top, grid.m_rect.top);
        EXPECT_EQ(place.right, grid.m_rect.right);
        EXPECT_EQ(place.bottom, grid.m_rect.bottom);
        EXPECT_GT(place.right - place.left, 50) << "the cell's rectangle is a real one";
        EXPECT_EQ(LineOf(edit)->textMargins(), QMargins(0, AngleGrid::kEditOffset, 0, 0))
            << "lower by the grid's offset";
    });
}

TEST(DegreeCell, IsGivenTheGridsFont) {
    const auto body = [](EditDialog&, AngleGrid& grid) {
        const QLineEdit& line = *LineOf(*grid.m_editor);
        EXPECT_EQ(line.font().pointSize(), 23);
        EXPECT_TRUE(line.testAttribute(Qt::WA_SetFont)) << "as its own, and not by lying in the grid";
    };
    RunGrid(0, body, [](AngleGrid& grid) {
        QFont font = WidgetOf(grid)->font();
        font.setPointSize(23);
        WidgetOf(grid)->setFont(font);
    });
}

TEST(DegreeCell, HasTheGridsFontWhereTheToolkitHasAnotherForEdits) {
    RunGrid(0, [](EditDialog& dialog, AngleGrid& grid) {
        const QFont font = WidgetOf(grid)->font();
        const ClassFont large("QLineEdit", 2 * font.pointSize());
        ASSERT_NE(WidgetOf(*dialog.GetDlgItem(kSecondEdit))->font(), font);
        grid.CancelEditCell();
        ASSERT_TRUE(grid.EditCell(grid.GetRow(0), 1));
        EXPECT_EQ(LineOf(*grid.m_editor)->font(), font);
    });
}

TEST(DegreeCell, StandsInTheMiddleWhereTheCellDoes) {
    RunGrid(QCGRID_CELL_CENTER, [](EditDialog&, AngleGrid& grid) {
        EXPECT_EQ(grid.m_editor->GetStyle(), 0x56000085U);
        EXPECT_TRUE(LineOf(*grid.m_editor)->alignment().testFlag(Qt::AlignHCenter));
    });
    RunGrid(0x10 | 0x40, [](EditDialog&, AngleGrid& grid) { EXPECT_EQ(grid.m_editor->GetStyle(), 0x56000084U); });
}

TEST(DegreeCell, ShowsTheCellsTextSelectedAndTakesTheFocus) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        EXPECT_EQ(TextOf(*grid.m_editor), L"116度28分00秒");
        EXPECT_EQ(SelectionOf(*grid.m_editor), (Selection{0, 10}));
        EXPECT_FALSE(grid.m_editor->IsModified());
        EXPECT_TRUE(LineOf(*grid.m_editor)->hasFocus());
        EXPECT_TRUE(grid.IsActiveShown());
        EXPECT_FALSE(grid.m_editor->OrvoDegreeEdit::Create(grid.m_rect)) << "there is a window already";
    });
}

TEST(DegreeCell, TakesWhatIsTyped) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        for (const wchar_t digit : std::wstring(L"1213000"))
            grid.m_editor->SendMessage(WM_CHAR, static_cast<WPARAM>(digit), 1);
        EXPECT_TRUE(grid.m_editor->IsModified());
        grid.EndEditCell();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(grid.GetRow(0)->GetItemText(0), L"121度30分00秒");
    });
}

TEST(DegreeCell, EndsWhenTheFocusLeavesTheGrid) {
    RunGrid(0, [](EditDialog& dialog, AngleGrid& grid) {
        grid.m_editor->SendMessage(WM_CHAR, L'0', 1);
        dialog.GetDlgItem(kSecondEdit)->SetFocus();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_FALSE(grid.IsActiveShown());
        EXPECT_EQ(grid.m_losses, std::vector<bool>{true}) << "told once, before the end";
        EXPECT_EQ(grid.m_wasShown, std::vector<bool>{false}) << "hidden before the end";
        EXPECT_EQ(grid.GetRow(0)->GetItemText(0), L"016度28分00秒");
        EXPECT_TRUE(WidgetOf(*dialog.GetDlgItem(kSecondEdit))->hasFocus());
    });
}

TEST(DegreeCell, EndsWithTheActiveCellShownWhenTheFocusStaysInTheGrid) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        grid.m_editor->SendMessage(WM_CHAR, L'0', 1);
        grid.m_editor->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(grid.GetSafeHwnd()));
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_TRUE(grid.IsActiveShown());
        EXPECT_EQ(grid.GetRow(0)->GetItemText(0), L"016度28分00秒");
    });
}

// Where the focus stays in the grid, the frame is the grid's own affair.
TEST(DegreeCell, LeavesAnActiveCellHiddenThatWasSo) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        grid.ShowActive(false);
        grid.m_editor->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(grid.m_editor->GetSafeHwnd()));
        EXPECT_FALSE(grid.IsActiveShown()) << "the focus stays in the editor";
        EXPECT_TRUE(IsEditingCell(grid));
        grid.m_editor->SendMessage(WM_CHAR, L'0', 1);
        grid.m_editor->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(grid.GetSafeHwnd()));
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_EQ(grid.m_wasShown, std::vector<bool>{false}) << "the focus goes to the grid";
    });
}

TEST(DegreeCell, GoesOnWhenTheFocusStaysInTheEditor) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        grid.m_editor->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(grid.m_editor->GetSafeHwnd()));
        EXPECT_TRUE(IsEditingCell(grid));
        EXPECT_TRUE(grid.IsActiveShown());
        EXPECT_TRUE(grid.m_losses.empty()) << "nothing happens at all";
    });
}

TEST(DegreeCell, ShowsTheActiveCellWhenItGetsTheFocus) {
    RunGrid(0, [](EditDialog&, AngleGrid& grid) {
        grid.ShowActive(false);
        grid.m_editor->SetSel(3, 3);
        grid.m_editor->SendMessage(WM_SETFOCUS);
        EXPECT_TRUE(grid.IsActiveShown());
        EXPECT_EQ(SelectionOf(*grid.m_editor), (Selection{4, 5})) << "what every masked edit does comes first";
    });
}

TEST(DegreeCell, NeedsAGridForItsWindow) {
    QcUiGridCell cell(nullptr, 0);
    OrvoDegreeEdit edit(&cell);
    EXPECT_EQ(edit.GetCell(), &cell);
    EXPECT_FALSE(static_cast<QcUiGridCellCtrl&>(edit).Create(RECT{0, 0, 80, 20}));
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr);
    edit.SendMessage(WM_KILLFOCUS);
}

TEST(DegreeCell, OutlivesItsWindow) {
    EditDialog dialog;
    RunDialog(dialog, [&] {
        OrvoDegreeEdit edit(nullptr);
        ASSERT_TRUE(static_cast<CEdit&>(edit).Create(WS_CHILD | WS_VISIBLE, RECT{0, 0, 80, 20}, &dialog, 300));
        EXPECT_TRUE(edit.DestroyWindow());
        EXPECT_EQ(edit.GetSafeHwnd(), nullptr);
        EXPECT_EQ(edit.m_strDefault.GetLength(), 10);
    });
}
