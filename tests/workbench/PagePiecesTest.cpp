// The head of a page: of which file a report says that it is.
#include "workbench/commands/PagePieces.h"

#include <gtest/gtest.h>

#include "support/FileTree.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/DayReport.h"
#include "workbench/report/HtmlPage.h"
#include "workbench/report/Sha256.h"
#include "workbench/terminal/TextTable.h"

namespace {

std::string HeadOf(const DayReport& report) {
    HtmlPage page(L"T");
    TextTable asked({TextTable::Align::Left, TextTable::Align::Left});
    asked.Add({L"图形", L"site.dxf"});
    AddPageHead(page, L"T", PageRequest(), report, asked);
    return page.Whole();
}

bool Has(const std::string& page, const char* text) {
    return page.find(text) != std::string::npos;
}

// Of the three letters abc, as the standard of the digest has it.
const char* const kDigest = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

}  // namespace

TEST(PageHead, HasTheFingerprintOnlyOfAFileThatStayedTheSame) {
    FileTree tree;
    tree.Write("site.dxf", "abc");
    DayReport report;
    report.drawing = tree.File("site.dxf");
    report.fingerprint = Sha256OfFile(report.drawing);
    EXPECT_TRUE(Has(HeadOf(report), kDigest));
    tree.Write("site.dxf", "abcd");
    EXPECT_FALSE(Has(HeadOf(report), kDigest)) << "what was analysed is not there any more";
    EXPECT_TRUE(Has(HeadOf(report), "在分析的时候改变了"));
    std::filesystem::remove(tree / "site.dxf");
    EXPECT_TRUE(Has(HeadOf(report), "在分析的时候改变了"));
}

TEST(PageHead, SaysWhereThereIsNoFingerprint) {
    FileTree tree;
    DayReport report;
    report.drawing = tree.File("");
    EXPECT_TRUE(Has(HeadOf(report), "没有（不是普通文件"));
}
