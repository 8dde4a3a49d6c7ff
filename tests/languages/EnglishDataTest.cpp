// That the language of the interface never reaches the data: the same work under Chinese and under English leaves the
// same bytes.
#include <gtest/gtest.h>

#include <memory>

#include "OrvoDataBase.h"
#include "platform/base/Language.h"
#include "platform/base/QcDtDictionary.h"
#include "support/Environment.h"
#include "support/FileTree.h"
#include "support/Folders.h"

namespace {

// What a day's work does to the settings: defaults, a new standard, dates from text, a place, and everything stored.
void EditSettings(OrvoDataSet& settings) {
    OrvoStdSet standard;
    standard.m_date.SetDate(OrvoDate(2011, 6, 22).GetDateString());
    standard.m_dgStartTime = OrvoDegree(L"08:30", false);
    settings.NewStd(standard);
    standard.m_strName = L"第二个";
    standard.m_date.SetXmlDate(OrvoDate(2012, 1, 5).GetDateXmlString());
    settings.NewStd(standard);
    settings.m_date.SetXmlDate(L"2012-06-21");
    settings.m_listCity.Append(new OrvoCity(settings.CurCity()));
}

// Stores and reads back in a circle, so that a text which changed on the way out changes what comes in.
void SaveSettings(const FileTree& folder) {
    OrvoDataSet settings;
    EditSettings(settings);
    QcDtDictionary dict(L"SET");
    ASSERT_TRUE(settings.SaveSunDataSetDict(&dict));
    OrvoDataSet again;
    ASSERT_TRUE(again.LoadSunDataSetDict(&dict));
    again.m_dgEndTime = OrvoDegree(16, 10, 0);
    ASSERT_TRUE(again.SaveSunDataSetDict(&dict));
    ASSERT_TRUE(dict.SaveToXML(folder.File("SunSet.xml")));
}

void SaveTerms(const FileTree& folder) {
    OrvoDate date(2012, 6, 21);
    date.LoadTermData();
    date.GetTerm(3)->m_strDate = L"2月5日";
    QcDtDictionary dict(L"TERM");
    ASSERT_TRUE(date.SaveTermDatatoDict(&dict));
    OrvoDate again(2011, 6, 21);
    ASSERT_TRUE(again.LoadTermDataFromDict(&dict));
    again.GetTerm(4)->m_dgTime = 0.25;
    ASSERT_TRUE(again.SaveTermDatatoDict(&dict));
    ASSERT_TRUE(dict.SaveToXML(folder.File("SunTerm.xml")));
}

void SavePlaces(const FileTree& folder) {
    g_dictSunZone.RemoveAll();
    ASSERT_TRUE(OrvoZoneRecord().SaveToXml());
    OrvoZoneRecord record;
    record.m_strProvince = L"浙江";
    record.FormatLatitude(record.m_strCity);
    record.m_strCity = L"杭州";
    record.m_strLatitude = L"30.28";
    ASSERT_TRUE(record.SaveToXml());
    ASSERT_TRUE(record.ReadFromXml(OrvoZoneRecord().m_strProvince, OrvoZoneRecord().m_strCity));
    ASSERT_TRUE(g_dictSunZone.SaveToXML(folder.File("zone.xml")));
    g_dictSunZone.RemoveAll();
}

// What the sun does in the year, by tables whose dates are texts.
std::string SunOfAYear(int year) {
    std::string all;
    for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 28; day += 3) {
            OrvoDate date(year, month, day);
            bool isTermDay = false;
            const int term = date.GetSTermIndex(isTermDay);
            CString line;
            line.Format(L"%d %d %.9f %.9f\n", term, date.GetTermDayNum(term), date.GetDgTime(), date.GetDgLat());
            all += ToUtf8(line.View());
        }
    }
    return all;
}

struct Language {
    explicit Language(const wchar_t* name) {
        const EnvironmentVariable data("ORVO_SUPPORT_PATH", SourceFolder() + "/data");
        EXPECT_TRUE(language.SetLanguage(name));
        g_pTeskLangSwitch = &language;
    }
    ~Language() { g_pTeskLangSwitch = nullptr; }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

    TeskLanguageSwitch language;
};

}  // namespace

// Stands first: the module asks for its language dictionary until it has one, and then keeps it.
TEST(EnglishData, IsTheSameToTheByteAsUnderChinese) {
    FileTree chinese;
    std::string chineseSun;
    {
        const Language zh(L"zh");
        SaveSettings(chinese);
        SaveTerms(chinese);
        SavePlaces(chinese);
        chineseSun = SunOfAYear(2011) + SunOfAYear(2012);
    }
    FileTree english;
    // The switch must outlive the module's use of its dictionary, which lasts as long as the process.
    static const std::unique_ptr<Language> en = std::make_unique<Language>(L"en");
    ASSERT_EQ(TranslateText(L"\n加载选项配置文件失败！未找到配置文件zone.xml。"),
              L"\nCannot load the configuration: zone.xml was not found.")
        << "English is not in force, so the test would prove nothing";
    SaveSettings(english);
    SaveTerms(english);
    SavePlaces(english);
    EXPECT_EQ(SunOfAYear(2011) + SunOfAYear(2012), chineseSun);
    for (const char* file : {"SunSet.xml", "SunTerm.xml", "zone.xml"}) {
        EXPECT_FALSE(chinese.Read(file).empty());
        EXPECT_EQ(english.Read(file), chinese.Read(file)) << file;
    }
}
