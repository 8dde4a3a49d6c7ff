// Pages: their elements, and that no text becomes one.
#include "workbench/report/HtmlPage.h"

#include <gtest/gtest.h>

#include "support/FileTree.h"
#include "workbench/report/PageStyle.h"
#include "workbench/report/ReportFolder.h"
#include "workbench/report/Sha256.h"

namespace {

using Align = TextTable::Align;

bool Has(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
}

}  // namespace

TEST(HtmlPage, HoldsWhatIsAddedInThatOrder) {
    HtmlPage page(L"Head");
    page.Title(L"T");
    page.Section(L"S");
    page.Section(L"N", true);
    page.Part(L"P");
    page.Paragraph(L"text", "lead");
    page.List({L"one", L"two"});
    page.List({});
    page.Add("<hr>\n");
    EXPECT_TRUE(Has(page.Whole(),
                    "<h1>T</h1>\n<h2>S</h2>\n<h2 class=\"sheet\">N</h2>\n<h3>P</h3>\n<p class=\"lead\">text</p>\n"
                    "<ul>\n<li>one</li>\n<li>two</li>\n</ul>\n<hr>\n</main>\n<script>"))
        << page.Whole();
    EXPECT_EQ(page.Whole().rfind("<!DOCTYPE html>\n<html lang=\"zh-CN\">\n", 0), 0U);
    EXPECT_TRUE(Has(page.Whole(), "<title>Head</title>"));
}

TEST(HtmlPage, ShowsTablesWithTheirHeadings) {
    TextTable table({Align::Left, Align::Right});
    table.Add({L"name", L"hours"});
    table.Add({L"a", L"1:00"});
    HtmlPage page(L"");
    page.Section(L"A \"B\"");
    page.Table(table);
    page.Part(L"C");
    page.Facts(table);
    EXPECT_TRUE(Has(page.Whole(),
                    "<table class=\"sort\" aria-label=\"A &quot;B&quot;\">\n<thead>\n<tr><th "
                    "scope=\"col\">name</th><th scope=\"col\" "
                    "class=\"r\">hours</th></tr>\n</thead>\n<tbody>\n<tr><td>a</td><td "
                    "class=\"r\">1:00</td></tr>\n</tbody>\n</table>"))
        << page.Whole();
    EXPECT_TRUE(Has(page.Whole(),
                    "<table class=\"facts\" aria-label=\"C\">\n<tbody>\n<tr><th "
                    "scope=\"row\">name</th><td>hours</td></tr>\n<tr><th "
                    "scope=\"row\">a</th><td>1:00</td></tr>\n</tbody>\n</table>"))
        << page.Whole();
}

TEST(HtmlPage, MarksCellsThatSayWhatIsToBeSeen) {
    TextTable table({Align::Left});
    table.Add({L"fail"});
    table.Add({L"fail"});
    table.Add({L"fails"});
    HtmlPage page(L"");
    page.Table(table, L"fail");
    EXPECT_TRUE(Has(page.Whole(),
                    "<th scope=\"col\">fail</th></tr>\n</thead>\n<tbody>\n<tr><td class=\"no\">fail</td></tr>\n"
                    "<tr><td>fails</td></tr>"))
        << page.Whole();
}

TEST(HtmlPage, TakesTextsForTexts) {
    const CString evil = L"</title><script>alert(1)</script>&\"'";
    TextTable table({Align::Left, Align::Left});
    table.Add({evil, evil});
    table.Add({evil, evil});
    HtmlPage page(evil);
    page.Title(evil);
    page.Section(evil);
    page.Part(evil);
    page.Paragraph(evil);
    page.List({evil});
    page.Table(table);
    page.Facts(table);
    EXPECT_FALSE(Has(page.Whole(), "alert(1)</script>"));
    EXPECT_FALSE(Has(page.Whole(), "<script>alert"));
    EXPECT_TRUE(Has(page.Whole(), "<h1>&lt;/title&gt;&lt;script&gt;alert(1)&lt;/script&gt;&amp;")) << page.Whole();
}

// The page asks for nothing, and runs no script but its own.
TEST(HtmlPage, HasAPolicyThatNamesItsOwnScript) {
    const std::string whole = HtmlPage(L"").Whole();
    EXPECT_TRUE(Has(whole, "content=\"default-src 'none'; style-src 'unsafe-inline'; script-src 'sha256-" +
                               Sha256Base64(PageScript()) + "'; base-uri 'none'; form-action 'none'\""))
        << whole;
    EXPECT_TRUE(Has(whole, "<script>" + std::string(PageScript()) + "</script>"));
    EXPECT_FALSE(Has(whole, "http://") || Has(whole, "https://") || Has(whole, "url(") || Has(whole, "@import"));
}

TEST(HtmlPage, IsKnownForAReport) {
    const FileTree tree;
    ASSERT_TRUE(SaveReport(tree.File("r"), HtmlPage(CString(L'x', 500)).Whole()).IsEmpty());
    EXPECT_TRUE(SaveReport(tree.File("r"), HtmlPage(L"other").Whole()).IsEmpty());
    EXPECT_EQ(tree.Read("r/index.html"), HtmlPage(L"other").Whole());
}

// The digest of "abc" is an example of the digest's own standard.
TEST(Sha256, IsTheStandards) {
    const FileTree tree;
    tree.Write("abc", "abc");
    const std::optional<CString> digest = Sha256OfFile(tree.File("abc"));
    ASSERT_TRUE(digest);
    EXPECT_EQ(ToUtf8(digest->View()), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256Base64("abc"), "ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0=");
    EXPECT_FALSE(Sha256OfFile(tree.File("missing")));
    EXPECT_FALSE(Sha256OfFile(FromUtf8(tree.Path().string())));
    EXPECT_FALSE(Sha256OfFile(L"/dev/null"));
}
