// The zone editor on its stage: its grid, seen from both sides.
#pragma once

#include "zone/ZoneStage.h"

// What a test sees while the editor is open.
struct OpenEditor {
    const ModalWindow& window;
    OrvoZoneWDGrid& grid;
    QTreeView& tree;

    QcUiGridTreeRow& Row(int index) const { return *grid.GetRow(index); }
    std::string Cell(int row, int column) const { return ToUtf8(grid.GetRow(row)->GetItemText(column).View()); }
    void SetCell(int row, int column, const wchar_t* text) const { grid.GetRow(row)->SetItemText(column, text); }
    // The five texts of a row, with bars between them.
    std::string Line(int row) const {
        std::string line;
        for (int column = 0; column < 5; ++column)
            line += (column > 0 ? "|" : "") + Cell(row, column);
        return line;
    }
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (int row = 0; row < grid.GetRowCount(); ++row)
            lines.push_back(Line(row));
        return lines;
    }
    void Ok() const { Press(window, IDOK); }
};

class EditorStage : public ZoneStage {
protected:
    // Opens the editor for `body`; gives the dialog's result.
    static INT_PTR Edit(const std::function<void(const OpenEditor&)>& body) {
        return Run(
            [] {
                const QcUtPushResource scope(GetModuleResourceHandle());
                OrvoZoneDbSetDlg dialog;
                return dialog.DoModal();
            },
            [&body](const ModalWindow& window) { In(window, body); });
    }

    // The editor with two provinces: rows 0 甲, 1 A, 2 B, 3 乙, 4 C.
    void EditTwo(const std::function<void(const OpenEditor&)>& body) {
        Load(kTwoProvinces);
        bool ran = false;
        Edit([&](const OpenEditor& editor) {
            ran = true;
            ASSERT_EQ(editor.grid.GetRowCount(), 5);
            body(editor);
        });
        EXPECT_TRUE(ran);
    }

    static void In(const ModalWindow& window, const std::function<void(const OpenEditor&)>& body) {
        auto* tree = ControlOf<QTreeView>(window, 2001);
        ASSERT_NE(tree, nullptr);
        auto* grid = dynamic_cast<OrvoZoneWDGrid*>(
            CWnd::FromHandlePermanent(reinterpret_cast<HWND>(static_cast<QWidget*>(tree))));
        ASSERT_NE(grid, nullptr);
        body({window, *grid, *tree});
    }

    // A file beside zone.xml to import from, and the press on the button. Gives what the boxes said.
    std::vector<std::string> Import(const OpenEditor& editor, const std::string& document) const {
        m_folder.Write("import.xml", document);
        return ImportFile(editor, m_folder.File("import.xml"));
    }
    static std::vector<std::string> ImportFile(const OpenEditor& editor, const wchar_t* path) {
        CFileDialog::SetNextFileForTest(path);
        const Answers answers;
        Press(editor.window, 2002);
        return answers.texts;
    }
};
