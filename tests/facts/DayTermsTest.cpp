// One table of terms for everybody: the file's where it can be used, else the built-in one.
#include "facts/DayTerms.h"

#include <limits>

#include "facts/FactsStage.h"
#include "support/Folders.h"

namespace {

class TermsOfADay : public FactsStage {
protected:
    // The shipped term file with one text replaced wherever it stands.
    void ReadTermFile(std::string_view from, std::string_view to) const {
        std::string xml = FileBytes(SourceFolder() + "/data/SunTerm.xml");
        ASSERT_NE(xml.find(from), std::string::npos) << from;
        for (std::size_t at = xml.find(from); at != std::string::npos; at = xml.find(from, at + to.size()))
            xml.replace(at, from.size(), to);
        Read(g_dictSunSterm, xml);
    }
};

}  // namespace

TEST_F(TermsOfADay, AreTheBuiltInOnesWithoutAFile) {
    const DayTerms terms = TermsFor({2025, 12, 22});
    EXPECT_EQ(terms.day, (CalendarDay{2025, 12, 22}));
    EXPECT_FALSE(terms.isLeapYear);
    EXPECT_EQ(terms.term.index, 0);
    EXPECT_EQ(terms.term.name, L"冬至");
    EXPECT_TRUE(terms.isItsDay);
    EXPECT_EQ(terms.next, L"小寒");
    EXPECT_EQ(terms.daysToNext, 15);
    EXPECT_EQ(terms.declination, -23.45);
    EXPECT_EQ(terms.equationOfTime, 0.031389);
    EXPECT_TRUE(terms.IsReasonable());
}

TEST_F(TermsOfADay, AreTheFilesWhereItCanBeUsed) {
    ReadTermFile("dglat=\"-23.45\"", "dglat=\"-10\"");
    EXPECT_TRUE(HasUsableTermFile());
    EXPECT_EQ(TermsFor({2025, 12, 22}).declination, -10.0);
    EXPECT_EQ(TermsFor({2024, 12, 21}).declination, -10.0);
    EXPECT_EQ(TermsFor({2025, 12, 22}).table.front().declination, -10.0);
}

TEST_F(TermsOfADay, AreNotMixedOfTwoTables) {
    ReadTermFile("dglat=\"-23.45\"", "dglat=\"-10\"");
    ASSERT_TRUE(HasUsableTermFile());
    ReadTermFile("dglat=\"23.45\"", "dglat=\"93.45\"");  // one impossible number is enough
    EXPECT_FALSE(HasUsableTermFile());
    EXPECT_EQ(TermsFor({2025, 12, 22}).declination, -23.45);
    EXPECT_EQ(TermsFor({2025, 6, 22}).declination, 23.45);
}

TEST_F(TermsOfADay, AreAValueThatNothingChangesLater) {
    ReadTermFile("dglat=\"-23.45\"", "dglat=\"-10\"");
    const DayTerms terms = TermsFor({2025, 12, 22});
    g_dictSunSterm.ReadFromXML(nullptr);
    EXPECT_EQ(terms.declination, -10.0);
    EXPECT_EQ(terms.table.at(0).declination, -10.0);
    EXPECT_EQ(TermsFor({2025, 12, 22}).declination, -23.45);
}

TEST_F(TermsOfADay, HaveTheWholeYearsTable) {
    for (const auto& [year, greatCold] : {std::pair(2025, 20), std::pair(2024, 21)}) {
        const DayTerms terms = TermsFor({year, 7, 1});
        ASSERT_EQ(terms.table.size(), 24U);
        EXPECT_EQ(terms.isLeapYear, year == 2024);
        for (int i = 0; i < 24; ++i)
            EXPECT_EQ(terms.table[static_cast<std::size_t>(i)].index, i);
        EXPECT_EQ(terms.table[2].name, L"大寒");
        EXPECT_EQ(terms.table[2].day, (CalendarDay{year, 1, greatCold}));
        EXPECT_EQ(terms.table[2].equationOfTime, -0.179444);
        EXPECT_EQ(terms.table[2].declination, -20.283333);
        EXPECT_EQ(terms.table[0].day.month, 12);
    }
}

TEST_F(TermsOfADay, CountTheDaysToTheNextOneIntoTheNextYear) {
    EXPECT_EQ(TermsFor({2024, 12, 31}).daysToNext, 6) << "the end of a leap year";
    EXPECT_EQ(TermsFor({2025, 12, 31}).daysToNext, 6);  // 小寒 on January 6th
    EXPECT_EQ(TermsFor({2025, 12, 31}).term.name, L"冬至");
    EXPECT_EQ(TermsFor({2026, 1, 5}).daysToNext, 1);
    EXPECT_EQ(TermsFor({2026, 1, 6}).daysToNext, 14);  // 大寒 on the 20th
    EXPECT_EQ(TermsFor({2028, 1, 6}).daysToNext, 15);  // on the 21st of a leap year
    EXPECT_EQ(TermsFor({2025, 12, 21}).daysToNext, 1);
    EXPECT_EQ(TermsFor({2025, 12, 21}).term.name, L"大雪");
}

TEST_F(TermsOfADay, GoByTheNextYearsOwnTable) {
    // 小寒 a day later in leap years alone.
    std::string xml = FileBytes(SourceFolder() + "/data/SunTerm.xml");
    const std::size_t leap = xml.find("闰年节气");
    const std::size_t term = xml.find("name=\"小寒\"", leap);
    const std::size_t date = xml.find("date=\"1月6日\"", term);
    ASSERT_NE(date, std::string::npos);
    xml.replace(date, std::string("date=\"1月6日\"").size(), "date=\"1月9日\"");
    Read(g_dictSunSterm, xml);
    ASSERT_TRUE(HasUsableTermFile());
    EXPECT_EQ(TermsFor({2026, 12, 31}).daysToNext, 6);
    EXPECT_EQ(TermsFor({2027, 12, 31}).daysToNext, 9);
}

TEST_F(TermsOfADay, AreSomeOfTheTableForAbsurdDaysToo) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    for (const int year : {kLeast, -1, 0, 2025, kMost}) {
        for (const int month : {kLeast, 0, 1, 13, kMost}) {
            for (const int day : {kLeast, 0, 32, kMost}) {
                const DayTerms terms = TermsFor({year, month, day});
                EXPECT_EQ(terms.table.size(), 24U);
                EXPECT_EQ(terms.term.name, terms.table.at(static_cast<std::size_t>(terms.term.index)).name);
                EXPECT_GE(terms.daysToNext, 0);
            }
        }
    }
    EXPECT_EQ(TermsFor({kMost, 12, 31}).daysToNext, 6) << "into a leap year";
    EXPECT_EQ(TermsFor({kMost, 1, 6}).daysToNext, 14);
    EXPECT_EQ(TermsFor({2025, 1, kLeast}).daysToNext, kMost);
}
