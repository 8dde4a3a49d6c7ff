// Finds the widths of a table's columns and prints its lines.
#include "workbench/terminal/TextTable.h"

#include <algorithm>

#include "platform/host/Output.h"
#include "workbench/terminal/TextWidth.h"

void TextTable::PrintTo(Output& output, int indent) const {
    std::vector<int> widths(m_columns.size(), 0);
    for (const std::vector<CString>& row : m_rows)
        for (std::size_t i = 0; i < widths.size() && i < row.size(); ++i)
            widths[i] = std::max(widths[i], DisplayWidth(row[i]));
    for (const std::vector<CString>& row : m_rows) {
        CString line(L' ', std::max(indent, 0));
        for (std::size_t i = 0; i < widths.size() && i < row.size(); ++i) {
            const bool isLast = i + 1 == widths.size();
            if (isLast && row[i].IsEmpty())
                continue;  // no blanks at the end of a line
            if (i > 0)
                line += L"  ";
            if (m_columns[i] == Align::Right)
                line += PadLeft(row[i], widths[i]);
            else
                line += isLast ? row[i] : PadRight(row[i], widths[i]);
        }
        output.Line(line);
    }
}

void PrintTitled(const TitledTable& titled, Output& output) {
    output.Line(L"");
    output.Line(titled.title);
    titled.table.PrintTo(output, 2);
}
