// The grid in which the places are edited: provinces with their cities.
#pragma once

#include "platform/base/Api.h"
#include "platform/window/QcUiGrid.h"

class QcDtDictionary;

// A row with rows under it is a province, any other a city. Columns: province, city, longitude, latitude, comment.
class ORVO_API OrvoZoneWDGrid : public QcUiGrid {
public:
    // Empty, and without columns: Setup has to follow.
    OrvoZoneWDGrid();
    ~OrvoZoneWDGrid() override;

    // Columns and options, in place of whatever rows there were. To be called before there is a window.
    void Setup();
    // Shows a tree of places: removes the rows and adds one for each item.
    void Fill(const QcDtDictionary& zones);
    // Adds the rows to a tree: provinces without a name are left out, with everything under them.
    void Write(QcDtDictionary& zones) const;

    void OnRightMenu(QcUiGridRow* row, POINT screen) override;
    QcUiGridCellCtrl* CreateCellCtrl(QcUiGridCell* cell) override;
    void OnAfterInsertRow(QcUiGridRow* row) override;

protected:
    afx_msg void OnInsertProvince();
    afx_msg void OnInsertRow();
    afx_msg void OnDeleteRow();

    DECLARE_MESSAGE_MAP()
};
