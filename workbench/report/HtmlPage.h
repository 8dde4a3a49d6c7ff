// A page that stands alone: what is added to it stands in it in that order.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/TextTable.h"

class HtmlPage {
public:
    // In the interface's language.
    explicit HtmlPage(const CString& title);

    // The page's one title; a section with a line above it, on a sheet of its own when printed if asked for; a part of
    // a section.
    void Title(const CString& text);
    void Section(const CString& text, bool isOnNewSheet = false);
    void Part(const CString& text);

    void Paragraph(const CString& text, std::string_view kind = {});  // a class of PageStyle
    void List(const std::vector<CString>& items);
    // Tables are named after the heading before them, for who hears the page. A table of two columns: what, and its
    // value.
    void Facts(const TextTable& table);
    // A table whose first row are headings, to be sorted by them. Cells of the other rows with exactly the text
    // `marked` catch the eye.
    void Table(const TextTable& table, const CString& marked = {});
    // Markup as it is.
    void Add(std::string_view markup) { m_body += markup; }

    std::string Whole() const;

private:
    void Tagged(std::string_view tag, const CString& text, std::string_view kind = {});

    std::string Named(std::string_view tag) const;

    CString m_heading;
    std::string m_head;
    std::string m_body;
};
