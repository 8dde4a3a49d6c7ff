// Rows of texts in columns that line up on a terminal.
#pragma once

#include <vector>

#include "platform/base/CString.h"

class Output;

class TextTable {
public:
    enum class Align { Left, Right };

    // One alignment for each column.
    explicit TextTable(std::vector<Align> columns) : m_columns(std::move(columns)) {}

    // As many cells as there are columns.
    void Add(std::vector<CString> cells) { m_rows.push_back(std::move(cells)); }
    // Each row on a line of its own, two blanks between the columns, `indent` blanks before them.
    void PrintTo(Output& output, int indent = 0) const;

    const std::vector<Align>& Columns() const { return m_columns; }
    const std::vector<std::vector<CString>>& Rows() const { return m_rows; }

private:
    std::vector<Align> m_columns;
    std::vector<std::vector<CString>> m_rows;
};

// A table under a line that says what it is; its first row are the headings of its columns.
struct TitledTable {
    CString title;
    TextTable table;
};
// An empty line, the title, and the table a little to the right.
void PrintTitled(const TitledTable& titled, Output& output);
