// HTML 5 by hand: a dozen elements, whose texts all pass through Markup.
#include "workbench/report/HtmlPage.h"

#include "platform/base/Language.h"
#include "workbench/Texts.h"
#include "workbench/report/Joined.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PageStyle.h"
#include "workbench/report/ReportFolder.h"
#include "workbench/report/Sha256.h"

namespace {

using Align = TextTable::Align;

std::string LanguageTag() {
    if (g_strCurLanguage == L"Chs")
        return "zh-CN";
    return g_strCurLanguage == L"Enu" ? "en" : Markup(g_strCurLanguage);
}

// Whatever a text should manage to say, the page asks for nothing and runs no other script.
std::string Policy() {
    return Joined({"default-src 'none'; style-src 'unsafe-inline'; script-src 'sha256-", Sha256Base64(PageScript()),
                   "'; base-uri 'none'; form-action 'none'"});
}

// A tag with its class, if it has one.
std::string Opened(std::string_view tag, std::string_view kind) {
    return kind.empty() ? Joined({"<", tag, ">"}) : Joined({"<", tag, " class=\"", kind, "\">"});
}

std::string Cell(std::string_view tag, std::string_view name, const CString& text, Align align) {
    return Joined({Opened(tag, align == Align::Right ? "r" : ""), Markup(text), "</", name, ">"});
}

}  // namespace

HtmlPage::HtmlPage(const CString& title)
    : m_head(Joined({"<!DOCTYPE html>\n<html lang=\"", LanguageTag(), "\">\n<head>\n<meta charset=\"utf-8\">\n",
                     kReportMark, "\n<meta http-equiv=\"Content-Security-Policy\" content=\"", Policy(),
                     "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
                     Markup(title), "</title>\n<style>", PageStyle(), "</style>\n</head>\n<body data-find=\"",
                     Markup(Say(L"查找：")), "\">\n<main>\n"})) {}

void HtmlPage::Tagged(std::string_view tag, const CString& text, std::string_view kind) {
    m_body += Joined({Opened(tag, kind), Markup(text), "</", tag, ">\n"});
}

// The tag of a table, with the heading as its name.
std::string HtmlPage::Named(std::string_view tag) const {
    return Joined({"<", tag, " aria-label=\"", Markup(m_heading), "\">\n"});
}

void HtmlPage::Title(const CString& text) {
    m_heading = text;
    Tagged("h1", text);
}

void HtmlPage::Section(const CString& text, bool isOnNewSheet) {
    m_heading = text;
    Tagged("h2", text, isOnNewSheet ? "sheet" : "");
}

void HtmlPage::Part(const CString& text) {
    m_heading = text;
    Tagged("h3", text);
}

void HtmlPage::Paragraph(const CString& text, std::string_view kind) {
    Tagged("p", text, kind);
}

void HtmlPage::List(const std::vector<CString>& items) {
    if (items.empty())
        return;
    m_body += "<ul>\n";
    for (const CString& item : items)
        Tagged("li", item);
    m_body += "</ul>\n";
}

void HtmlPage::Facts(const TextTable& table) {
    m_body += Named("table class=\"facts\"") + "<tbody>\n";
    for (const std::vector<CString>& row : table.Rows())
        m_body += Joined({"<tr>", Cell("th scope=\"row\"", "th", row[0], Align::Left),
                          Cell("td", "td", row[1], Align::Left), "</tr>\n"});
    m_body += "</tbody>\n</table>\n";
}

void HtmlPage::Table(const TextTable& table, const CString& marked) {
    const auto& columns = table.Columns();
    const auto& rows = table.Rows();
    m_body += "<div class=\"wide\">" + Named("table class=\"sort\"");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        m_body += i == 0 ? "<thead>\n<tr>" : "<tr>";
        for (std::size_t j = 0; j < columns.size(); ++j) {
            const bool isMarked = i > 0 && !marked.IsEmpty() && rows[i][j] == marked;
            m_body += isMarked ? Joined({"<td class=\"no\">", Markup(marked), "</td>"})
                      : i == 0 ? Cell("th scope=\"col\"", "th", rows[i][j], columns[j])
                               : Cell("td", "td", rows[i][j], columns[j]);
        }
        m_body += i == 0 ? "</tr>\n</thead>\n<tbody>\n" : "</tr>\n";
    }
    m_body += "</tbody>\n</table></div>\n";
}

std::string HtmlPage::Whole() const {
    return Joined({m_head, m_body, "</main>\n<script>", PageScript(), "</script>\n</body>\n</html>\n"});
}
