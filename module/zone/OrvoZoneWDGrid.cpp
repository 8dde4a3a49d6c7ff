// What the user does in the grid of places. How rows and places become each other is in ZoneRows.cpp.
#include "zone/OrvoZoneWDGrid.h"

#include "controls/OrvoDegreeEdit.h"
#include "frame/Resources.h"
#include "platform/window/CMenu.h"
#include "zone/ZoneRows.h"

namespace {

constexpr int kHeaderRows = 1;
constexpr int kColumnWidth = 100;
constexpr DWORD kOptions = QCGRID_RESIZE_COLUMNS | QCGRID_MULTI_SELECT | QCGRID_LINES | QCGRID_TREE;

// The grid's own commands.
constexpr UINT kInsertProvince = 101;
constexpr UINT kInsertRow = 102;
constexpr UINT kDeleteRow = 103;

void PutPlaceholders(QcUiGridRow& row) {
    row.SetItemText(ZoneRows::kLongitude, ZoneRows::Placeholder());
    row.SetItemText(ZoneRows::kLatitude, ZoneRows::Placeholder());
}

}  // namespace

BEGIN_MESSAGE_MAP(OrvoZoneWDGrid, QcUiGrid)
    ON_COMMAND(kInsertProvince, &OrvoZoneWDGrid::OnInsertProvince)
    ON_COMMAND(kInsertRow, &OrvoZoneWDGrid::OnInsertRow)
    ON_COMMAND(kDeleteRow, &OrvoZoneWDGrid::OnDeleteRow)
END_MESSAGE_MAP()

OrvoZoneWDGrid::OrvoZoneWDGrid() : QcUiGrid(kHeaderRows, kColumnWidth) {}

OrvoZoneWDGrid::~OrvoZoneWDGrid() = default;

void OrvoZoneWDGrid::Setup() {
    Reset();
    AppendColumn(TranslateText(L"省份"), 80);
    AppendColumn(TranslateText(L"城市"), 80);
    AppendColumn(TranslateText(L"经度"), 80);
    AppendColumn(TranslateText(L"纬度"), 80);
    AppendColumn(TranslateText(L"附注"), 200);
    SetOption(kOptions);
}

void OrvoZoneWDGrid::Fill(const QcDtDictionary& zones) {
    if (GetSafeHwnd() != nullptr)
        Reset();
    else
        Setup();  // resetting takes the columns, too, as long as there is no window
    ZoneRows::Fill(*this, zones);
}

void OrvoZoneWDGrid::Write(QcDtDictionary& zones) const {
    ZoneRows::Write(*this, zones);
}

QcUiGridCellCtrl* OrvoZoneWDGrid::CreateCellCtrl(QcUiGridCell* cell) {
    const int column = cell->GetColumn();
    const bool position = column == ZoneRows::kLongitude || column == ZoneRows::kLatitude;
    if (!position || cell->GetRow()->GetTreeRow()->IsParentRow())
        return QcUiGrid::CreateCellCtrl(cell);
    if (cell->GetText().IsEmpty())
        cell->SetText(ZoneRows::Placeholder());
    return new OrvoDegreeEdit(cell);
}

void OrvoZoneWDGrid::OnRightMenu(QcUiGridRow* row, POINT screen) {
    if (IsReadOnly() || row == nullptr)
        return;
    CMenu menu;
    menu.CreatePopupMenu();
    if (GetSelRowCount() > 1 && IsRowSelected(row)) {
        menu.AppendMenu(MF_STRING, QCGRID_CMD_DELETE_ROWS, TranslateText(L"删除(Del)"));
    } else {
        ClearSelection();
        SelectRow(row);
        if (row->GetTreeRow()->IsParentRow())
            menu.AppendMenu(MF_STRING, QCGRID_CMD_INSERT_PARENT, TranslateText(L"插入省份"));
        else
            menu.AppendMenu(MF_STRING, QCGRID_CMD_INSERT_ROW, TranslateText(L"插入城市(Ins)"));
        menu.AppendMenu(MF_STRING, QCGRID_CMD_DELETE_ROWS, TranslateText(L"删除行(Del)"));
    }
    const int command = menu.TrackPopupMenu(TPM_RETURNCMD, screen.x, screen.y, this);
    if (command == static_cast<int>(kInsertProvince))
        OnInsertProvince();
    else if (command != 0)
        OnMenuCommand(command);
}

// A new province comes with a city, or it would be none.
void OrvoZoneWDGrid::OnInsertProvince() {
    if (QcUiGridTreeRow* current = GetCurTreeRow()) {
        PutPlaceholders(*current->AppendChild()->AppendChild());
        Redraw();
    } else if ((GetOption() & QCGRID_SINGLE_LEVEL) == 0) {
        AppendRow();
    }
}

void OrvoZoneWDGrid::OnInsertRow() {
    if (QcUiGridTreeRow* current = GetCurTreeRow())
        current->AppendChild();
    else if ((GetOption() & QCGRID_SINGLE_LEVEL) == 0)
        AppendRow();
}

// A province whose last city goes gets an empty one, or it would be none any more.
void OrvoZoneWDGrid::OnDeleteRow() {
    QcUiGridTreeRow* current = GetCurRow();
    QcUiGridTreeRow* province = current ? current->GetParent() : nullptr;
    DeleteRow(current);
    if (province != nullptr && !province->IsParentRow())
        OnAfterInsertRow(province->AppendChild());
}

void OrvoZoneWDGrid::OnAfterInsertRow(QcUiGridRow* row) {
    if (!row->GetTreeRow()->IsChildRow())
        return;
    PutPlaceholders(*row);
    Redraw();
}
