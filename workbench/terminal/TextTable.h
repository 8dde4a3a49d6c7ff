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

private:
    std::vector<Align> m_columns;
    std::vector<std::vector<CString>> m_rows;
};
