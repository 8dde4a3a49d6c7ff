// How a grid is set up, and what its menus ask for.
#pragma once

#include "platform/base/FrameworkTypes.h"

// ---- Options. ----
// A grid is read-only while any of three bits is set; they do the same, and are three so that one reason can end while
// another lasts: the program's wish, data that cannot be saved, and work in progress. The user then edits nothing,
// inserts and deletes nothing and gets no menu. The program's own calls work.
inline constexpr DWORD QCGRID_READONLY = 0x1;
inline constexpr DWORD QCGRID_READONLY_DATA = 0x2;
inline constexpr DWORD QCGRID_READONLY_BUSY = 0x8000;
inline constexpr DWORD QCGRID_READONLY_MASK = QCGRID_READONLY | QCGRID_READONLY_DATA | QCGRID_READONLY_BUSY;
inline constexpr DWORD QCGRID_RESIZE_COLUMNS = 0x4;  // columns are made wider by dragging the edges of their titles
inline constexpr DWORD QCGRID_MULTI_SELECT = 0x80;   // several rows are selected with Shift and Ctrl; else one
inline constexpr DWORD QCGRID_LINES = 0x800;         // lines between the cells
inline constexpr DWORD QCGRID_TREE = 0x4000;         // rows are indented, and opened and closed in column 0
// All rows look alike, and none is a current tree row. Rows under others stay where they are.
inline constexpr DWORD QCGRID_SINGLE_LEVEL = 0x10000;

// ---- Menu commands. ----
inline constexpr int QCGRID_CMD_INSERT_ROW = 1;      // QcUiGrid::OnMenuCommand says what each does
inline constexpr int QCGRID_CMD_DELETE_ROWS = 2;     // the selected ones
inline constexpr int QCGRID_CMD_INSERT_PARENT = 13;  // with one row under it
