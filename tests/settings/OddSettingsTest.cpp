// The dialogs with settings as a file may have them: no standards, no places, an index that none has, days and times
// that there are not. Each opens, and neither Cancel nor OK changes what nobody edited.
#include <set>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/FileTree.h"
#include "support/Folders.h"

namespace {

class OddSettings : public SettingsDialogs {
protected:
    static std::string SettingsFile(const std::string& settings, const std::string& standards) {
        return "<S xmlns:dt=\"urn:orvo:dictionary\"><CUR_SUNSETDATA>" + settings + "</CUR_SUNSETDATA>" + standards +
               "</S>";
    }
    static void Load(const std::string& file) {
        const FileTree folder;
        folder.Write("SunSet.xml", file);
        QcDtDictionary read;
        ASSERT_TRUE(read.ReadFromXML(folder.File("SunSet.xml")));
        g_SunDataSet = OrvoDataSet();
        ASSERT_TRUE(g_SunDataSet.LoadSunDataSetDict(&read));
    }
    static std::string Saved() {
        const FileTree folder;
        QcDtDictionary saved(L"S");
        EXPECT_TRUE(g_SunDataSet.SaveSunDataSetDict(&saved));
        EXPECT_TRUE(saved.SaveToXML(folder.File("SunSet.xml")));
        return folder.Read("SunSet.xml");
    }
    // Every dialog, twice: cancelled and left with OK. Gives what was told, once each.
    static std::set<std::string> RunAll(const std::function<void()>& check) {
        std::set<std::string> told;
        for (const int answer : {IDCANCEL, IDOK}) {
            const ModalDriver driver([&](const ModalWindow& window) {
                if (window.text.IsEmpty())
                    return answer;
                told.insert(ToUtf8(window.text.View()));
                return int{IDOK};
            });
            for (const bool glare : {false, true}) {
                OrvoDataPrecisSetDlg dialog(nullptr, glare);
                EXPECT_EQ(dialog.DoModal(), answer);
                check();
            }
            EXPECT_EQ(SunStdDlgDoModal(nullptr), answer);
            check();
        }
        return told;
    }
    static std::set<std::string> RunAllAndExpectNoChange() {
        const std::string before = Saved();
        return RunAll([&before] { EXPECT_EQ(Saved(), before); });
    }
};

const char* const kStandard =
    "<A type=\"SunStd\" date=\"2026-12-22\"><StartTime dt:kind=\"4\">9</StartTime><EndTime "
    "dt:kind=\"4\">15</EndTime></A>";

}  // namespace

TEST_F(OddSettings, WithTheShippedStandardsChangeByEditingAlone) {
    QcDtDictionary shipped;
    ASSERT_TRUE(shipped.ReadFromXML(FromUtf8(SourceFolder() + "/data/SunSet.xml")));
    ASSERT_TRUE(g_SunDataSet.LoadSunDataSetDict(&shipped));
    const int count = static_cast<int>(g_SunDataSet.m_listStd.GetLength());
    ASSERT_GT(count, 3);
    for (int index = 0; index < count; ++index) {
        g_SunDataSet.SetCurStdIndex(index);
        EXPECT_EQ(RunAllAndExpectNoChange(), std::set<std::string>{}) << index;
    }
}

TEST_F(OddSettings, WithAnIndexThatNoStandardHas) {
    for (const char* index : {"-1", "1", "2147483647", "-2147483648"}) {
        Load(SettingsFile(std::string("<CUR_STDINDEX dt:kind=\"3\">") + index + "</CUR_STDINDEX>", kStandard));
        EXPECT_EQ(std::to_string(g_SunDataSet.GetCurStdIndex()), index);
        EXPECT_EQ(RunAllAndExpectNoChange(), std::set<std::string>{});
    }
}

TEST_F(OddSettings, WithoutStandardsAndPlaces) {
    Load(SettingsFile("<CUR_STDINDEX dt:kind=\"3\">0</CUR_STDINDEX><ANALYSISED_CITY/>", ""));
    g_dictSunZone.RemoveAll();
    EXPECT_EQ(RunAllAndExpectNoChange(),
              (std::set<std::string>{"未能打开地区数据库Zone.xml!", "未能打开地区数据库Zone.dbf!"}));
}

TEST_F(OddSettings, WithADayThatThereIsNot) {
    for (const char* day : {"2026-02-30", "2026-13-01", "0-0-0", "", "x", "2026", "1-2-3-4", "99999-1-1",
                            "2147483648-2147483648-2147483648", "二〇二六-1-1"}) {
        const std::string date = day;
        Load(SettingsFile("<CUR_DATA>" + date + "</CUR_DATA>", "<A type=\"SunStd\" date=\"" + date + "\"/>"));
        EXPECT_EQ(RunAllAndExpectNoChange(), std::set<std::string>{}) << day;
    }
}

TEST_F(OddSettings, WithASpanThatEndsBeforeItBegins) {
    Load(SettingsFile("<CUR_STARTTIME dt:kind=\"4\">15</CUR_STARTTIME><CUR_ENDTIME dt:kind=\"4\">9</CUR_ENDTIME>",
                      "<A type=\"SunStd\" date=\"2026-12-22\"><StartTime dt:kind=\"4\">15.5</StartTime>"
                      "<EndTime dt:kind=\"4\">9.25</EndTime></A>"));
    EXPECT_EQ(RunAllAndExpectNoChange(), std::set<std::string>{});
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(EditText(window, 2042), "15:30");
        EXPECT_EQ(EditText(window, 2043), "09:15");
        return int{IDOK};
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
}

// Numbers that are none are read as the dictionary reads them; whatever that gives, the dialogs can be left, and mended
// by typing.
TEST_F(OddSettings, WithNumbersThatAreNone) {
    for (const char* number : {"nan", "inf", "-inf", "1e999", "", "x"}) {
        std::string items;
        for (const char* key : {"MaxWidth", "MinWidth", "Space", "StartTime", "EndTime"})
            items += std::string("<") + key + " dt:kind=\"4\">" + number + "</" + key + ">";
        Load(SettingsFile(
            std::string("<CUR_SPACE dt:kind=\"4\">") + number + "</CUR_SPACE>",
            "<A type=\"SunStd\" date=\"2026-12-22\"><LimitWidth dt:kind=\"1\">1</LimitWidth>" + items + "</A>"));
        const ModalDriver driver([](const ModalWindow& window) {
            if (!window.text.IsEmpty())
                return int{IDOK};
            for (const int id : {2036, 2037, 2044})
                Type(window, id, "60");
            TypeTime(window, 2042, "1000");
            TypeTime(window, 2043, "1100");
            return int{IDOK};
        });
        EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK) << number;
        EXPECT_EQ(g_SunDataSet.GetStd(0).m_dSpace, 60.0);
        EXPECT_EQ(g_SunDataSet.GetStd(0).m_dgEndTime.getDegree(), 11.0);
    }
}

TEST_F(OddSettings, WithPlacesOfEveryName) {
    const std::string longName(10000, 'c');
    Load(SettingsFile("<CUR_CITY>" + longName + "</CUR_CITY><ANALYSISED_CITY>" + longName +
                          "--&lt;&amp;%s%n-\n-😀-地区数据库...</ANALYSISED_CITY>",
                      kStandard));
    const auto told = RunAllAndExpectNoChange();
    EXPECT_EQ(told, (std::set<std::string>{"请在地区数据库中建立" + longName + "的位置数据",
                                           "请在地区数据库中建立 " + longName + " 的位置数据"}));
}

// The terms come from a file of their own, or else are built in.
TEST_F(OddSettings, WithoutTheFileOfTheTerms) {
    g_dictSunSterm.RemoveAll();
    Load(SettingsFile("<CUR_SPACE dt:kind=\"4\">5</CUR_SPACE>", kStandard));
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(Item<QComboBox>(window, 2039)->count(), 24);
        Choose(window, 2039, 12);
        EXPECT_EQ(Item<QDateEdit>(window, 2038)->date(), QDate(2026, 6, 22));
        return int{IDCANCEL};
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDCANCEL);
}
