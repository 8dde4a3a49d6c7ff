// Loading and saving of the three configuration files: results, messages, and what a bad file leaves behind.
#include "frame/ConfigFiles.h"

#include <signal.h>
#include <sys/resource.h>

#include "frame/ConfigSandbox.h"
#include "platform/base/Message.h"
#include "support/FullDisk.h"
#include "support/Recorder.h"
#include "support/TableSwitch.h"

namespace {

const wchar_t* const kNoZone = L"\n加载选项配置文件失败！未找到配置文件zone.xml。";
const wchar_t* const kNoTerm = L"\n加载选项配置文件失败！未找到配置文件SunTerm.xml。";
const wchar_t* const kNoSet = L"\n加载选项配置文件失败！未找到配置文件SunSet.xml。";

const char* const kZoneFile =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ORVO_ZONEDATA><浙江 type=\"PROVINCE\"><杭州 type=\"CITY\" "
    "longitude=\"120.15\" latitude=\"30.28\"/></浙江></ORVO_ZONEDATA>\n";
const char* const kBroken = "<ORVO_ZONEDATA><浙江>";

using ConfigFiles = ConfigSandbox;

// A settings file as the module writes it, with a place and one standard of its own.
void WriteSettings(const CString& path) {
    OrvoDataSet settings;
    settings.m_strCurCity = L"上海";
    OrvoStdSet standard;
    standard.m_strName = L"mine";
    settings.NewStd(standard);
    QcDtDictionary dict(L"SETTINGS");
    ASSERT_TRUE(settings.SaveSunDataSetDict(&dict));
    ASSERT_TRUE(dict.SaveToXML(path));
}

}  // namespace

TEST_F(ConfigFiles, ReadTheZoneTree) {
    m_folder.Write("zone.xml", kZoneFile);
    EXPECT_TRUE(LoadSunData());
    EXPECT_EQ(g_dictSunZone.GetTag(), L"ORVO_ZONEDATA");
    OrvoZoneRecord record;
    EXPECT_TRUE(record.ReadFromXml(L"浙江", L"杭州"));
    EXPECT_EQ(record.GetTotalLat(), 30.28);
    EXPECT_TRUE(m_lines.empty());
    EXPECT_EQ(m_folder.Read("zone.xml"), kZoneFile);
}

TEST_F(ConfigFiles, ReportAMissingZoneFileOnceAndStillReadTheEmptyPath) {
    g_dictSunZone.FindOrAddDict(L"浙江");
    EXPECT_FALSE(LoadSunData());
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0], kNoZone);
    // The reading of the path that was not found went ahead and left an empty tree.
    EXPECT_EQ(g_dictSunZone.GetCount(), 0);
}

TEST_F(ConfigFiles, ReportMissingTermAndSettingsFilesAndReadNothing) {
    g_dictSunSterm.FindOrAddDict(L"常年节气");
    g_dictSunSet.FindOrAddDict(L"kept");
    g_SunDataSet.m_strCurCity = L"上海";
    EXPECT_FALSE(LoadSunSterm());
    EXPECT_FALSE(LoadSunSet());
    ASSERT_EQ(m_lines.size(), 2U);
    EXPECT_EQ(m_lines[0], kNoTerm);
    EXPECT_EQ(m_lines[1], kNoSet);
    EXPECT_EQ(g_dictSunSterm.GetCount(), 1);
    EXPECT_EQ(g_dictSunSet.GetCount(), 1);
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
}

TEST_F(ConfigFiles, AreNeverCreatedBySaving) {
    EXPECT_FALSE(SaveSunData());
    EXPECT_FALSE(SaveSunSterm());
    EXPECT_FALSE(SaveSunSet());
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(m_lines[0], kNoZone);
    EXPECT_EQ(m_lines[1], kNoTerm);
    EXPECT_EQ(m_lines[2], kNoSet);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
    EXPECT_EQ(g_dictSunSet.GetCount(), 0);
}

TEST_F(ConfigFiles, SaveTheZoneTreeOverTheFileThatIsFound) {
    m_folder.Write("zone.xml", kZoneFile);
    ASSERT_TRUE(LoadSunData());
    OrvoZoneRecord record;
    record.m_strProvince = L"江苏";
    record.m_strCity = L"南京";
    ASSERT_TRUE(record.SaveToXml());
    EXPECT_EQ(m_folder.Read("zone.xml"), kZoneFile);
    EXPECT_TRUE(SaveSunData());
    EXPECT_EQ(m_folder.Read("zone.xml.bak"), kZoneFile);
    g_dictSunZone.RemoveAll();
    ASSERT_TRUE(LoadSunData());
    EXPECT_TRUE(OrvoZoneRecord().ReadFromXml(L"江苏", L"南京"));
    EXPECT_TRUE(OrvoZoneRecord().ReadFromXml(L"浙江", L"杭州"));
}

TEST_F(ConfigFiles, NameTheRootOfAZoneTreeThatHasNone) {
    m_folder.Write("zone.xml", kBroken);
    EXPECT_FALSE(LoadSunData());
    EXPECT_EQ(g_dictSunZone.GetTag(), L"");
    EXPECT_TRUE(SaveSunData());
    EXPECT_NE(m_folder.Read("zone.xml").find("<ORVO_ZONEDATA"), std::string::npos);
    // A root that has a name keeps it.
    g_dictSunZone.SetTag(L"MINE");
    EXPECT_TRUE(SaveSunData());
    EXPECT_NE(m_folder.Read("zone.xml").find("<MINE"), std::string::npos);
}

TEST_F(ConfigFiles, ReadAndWriteTheTerms) {
    OrvoDate date(2010, 1, 1);
    date.LoadTermData();
    QcDtDictionary dict(L"TERMS");
    ASSERT_TRUE(date.SaveTermDatatoDict(&dict));
    ASSERT_TRUE(dict.SaveToXML(m_folder.File("SunTerm.xml")));
    EXPECT_TRUE(LoadSunSterm());
    OrvoDate loaded(2010, 1, 1);
    EXPECT_TRUE(loaded.LoadTermDataFromDict(&g_dictSunSterm));
    EXPECT_EQ(loaded.m_listTerm.GetLength(), 24);

    g_dictSunSterm.FindDict(L"常年节气")->GetItem(0)->SetAttributeValue(L"date", L"12月23日");
    EXPECT_TRUE(SaveSunSterm());
    g_dictSunSterm.RemoveAll();
    EXPECT_TRUE(LoadSunSterm());
    EXPECT_EQ(g_dictSunSterm.FindDict(L"常年节气")->GetItem(0)->GetAttributeValue(L"date"), L"12月23日");
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(ConfigFiles, FillTheCurrentSettings) {
    WriteSettings(m_folder.File("SunSet.xml"));
    EXPECT_TRUE(LoadSunSet());
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
    ASSERT_EQ(g_SunDataSet.m_listStd.GetLength(), 1);
    EXPECT_EQ(g_SunDataSet.CurStd().m_strName, L"mine");
}

TEST_F(ConfigFiles, CountAGoodFileWithoutSettingsAsRead) {
    m_folder.Write("SunSet.xml", "<x><y/></x>");
    EXPECT_TRUE(LoadSunSet());
    EXPECT_EQ(g_dictSunSet.GetCount(), 1);
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"北京");
}

TEST_F(ConfigFiles, StoreTheCurrentSettingsBeforeWriting) {
    WriteSettings(m_folder.File("SunSet.xml"));
    ASSERT_TRUE(LoadSunSet());
    g_SunDataSet.m_strCurCity = L"广州";
    EXPECT_TRUE(SaveSunSet());
    QcDtDictionary saved;
    ASSERT_TRUE(saved.ReadFromXML(m_folder.File("SunSet.xml")));
    EXPECT_EQ(saved.FindDict(L"CUR_SUNSETDATA")->FindItem(L"CUR_CITY")->GetStringValue(), L"广州");
    EXPECT_EQ(g_dictSunSet.FindDict(L"CUR_SUNSETDATA")->FindItem(L"CUR_CITY")->GetStringValue(), L"广州");
}

TEST_F(ConfigFiles, LeaveNothingOfABrokenFileAndSayNothing) {
    for (const char* name : {"zone.xml", "SunTerm.xml", "SunSet.xml"})
        m_folder.Write(name, kBroken);
    g_dictSunZone.FindOrAddDict(L"old");
    g_dictSunSterm.FindOrAddDict(L"old");
    g_dictSunSet.FindOrAddDict(L"old");
    g_SunDataSet.m_strCurCity = L"上海";
    EXPECT_FALSE(LoadSunData());
    EXPECT_FALSE(LoadSunSterm());
    EXPECT_FALSE(LoadSunSet());
    EXPECT_EQ(g_dictSunZone.GetCount(), 0);
    EXPECT_EQ(g_dictSunSterm.GetCount(), 0);
    EXPECT_EQ(g_dictSunSet.GetCount(), 0);
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
    EXPECT_TRUE(m_lines.empty());
    for (const char* name : {"zone.xml", "SunTerm.xml", "SunSet.xml"})
        EXPECT_EQ(m_folder.Read(name), kBroken);
}

TEST_F(ConfigFiles, KeepABrokenSettingsFileBesideTheGoodOneThatReplacesIt) {
    m_folder.Write("SunSet.xml", kBroken);
    EXPECT_FALSE(LoadSunSet());
    EXPECT_TRUE(SaveSunSet());
    EXPECT_EQ(m_folder.Read("SunSet.xml.refused-1"), kBroken);
    EXPECT_TRUE(LoadSunSet());
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"北京");
}

TEST_F(ConfigFiles, LeaveItToThePlatformToSayWhyAFileCannotBeWritten) {
    Recorder messages;
    SetMessageSink(&Recorder::Take, &messages);
    for (const char* name : {"zone.xml", "SunTerm.xml", "SunSet.xml"})
        m_folder.Write(name, "<r><old/></r>");
    bool isZoneSaved = true;
    bool isTermSaved = true;
    bool isSetSaved = true;
    g_SunDataSet.m_strCurCity = L"广州";
    {
        const FullDisk full;
        isZoneSaved = SaveSunData();
        isTermSaved = SaveSunSterm();
        isSetSaved = SaveSunSet();
    }
    SetMessageSink(nullptr, nullptr);
    EXPECT_FALSE(isZoneSaved);
    EXPECT_FALSE(isTermSaved);
    EXPECT_FALSE(isSetSaved);
    EXPECT_TRUE(m_lines.empty());
    ASSERT_EQ(messages.texts.size(), 3U) << "each once";
    std::size_t index = 0;
    for (const char* name : {"zone.xml", "SunTerm.xml", "SunSet.xml"}) {
        EXPECT_EQ(messages.texts[index++],
                  "文件“" + (m_folder / name).string() + "”没有保存：磁盘空间不足，请清理磁盘再保存。");
        EXPECT_EQ(m_folder.Read(name), "<r><old/></r>");
    }
    // The dictionary took the settings all the same.
    EXPECT_EQ(g_dictSunSet.FindDict(L"CUR_SUNSETDATA")->FindItem(L"CUR_CITY")->GetStringValue(), L"广州");
}

TEST_F(ConfigFiles, TranslateTheirMessagesAndPrintThemAsTheyAre) {
    const TableSwitch language{{kNoZone, L"100%% no zone"}, {kNoTerm, L"%% no term"}, {kNoSet, L"%s%% no set"}};
    LoadSunData();
    SaveSunData();
    LoadSunSterm();
    SaveSunSterm();
    LoadSunSet();
    SaveSunSet();
    ASSERT_EQ(m_lines.size(), 6U);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_EQ(m_lines[i], L"100%% no zone");
        EXPECT_EQ(m_lines[i + 2], L"%% no term");
        EXPECT_EQ(m_lines[i + 4], L"%s%% no set");
    }
}
