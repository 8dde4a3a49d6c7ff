// A change of the saved settings, beside other programs, damaged files and folders that cannot be written.
#include "facts/SettingsChange.h"

#include <filesystem>

#include "facts/FactsStage.h"
#include "facts/SettingsEdit.h"
#include "facts/SettingsForm.h"
#include "platform/base/Message.h"
#include "platform/host/CommandLine.h"
#include "support/Environment.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/Recorder.h"

namespace {

constexpr std::chrono::milliseconds kNoPatience(0);

class SettingsChanges : public FactsStage {
protected:
    SettingsChanges() {
        SetMessageSink(Recorder::Take, &m_reported);
        SetCommandLineSink(Recorder::Take, &m_printed);
        for (const wchar_t* name : {L"甲", L"乙\x202E"}) {
            OrvoStdSet standard;
            standard.m_strName = name;
            g_SunDataSet.NewStd(standard);
        }
        Write(g_SunDataSet);
        RememberSavedSettings();
    }
    ~SettingsChanges() override {
        SetMessageSink(nullptr, nullptr);
        SetCommandLineSink(nullptr, nullptr);
    }

    // As another program saves its settings.
    void Write(const OrvoDataSet& settings) const {
        QcDtDictionary dictionary(L"SETTINGS");
        ASSERT_TRUE(settings.SaveSunDataSetDict(&dictionary));
        ASSERT_TRUE(dictionary.SaveToXML(m_path));
    }
    OrvoDataSet Saved() const {
        QcDtDictionary dictionary;
        OrvoDataSet settings;
        EXPECT_TRUE(dictionary.ReadFromXML(m_path));
        EXPECT_TRUE(settings.LoadSunDataSetDict(&dictionary));
        return settings;
    }
    static std::vector<std::string> Taken(SettingsChange& change) {
        std::vector<std::string> texts;
        for (const CString& message : change.TakeMessages())
            texts.push_back(ToUtf8(message.View()));
        return texts;
    }
    bool IsThere(const char* name) const { return std::filesystem::exists(m_folder / name); }

    EnvironmentVariable m_support{"ORVO_SUPPORT_PATH", m_folder.Path().string()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", (m_folder / "config").string()};
    Recorder m_reported;
    Recorder m_printed;
    CString m_path = m_folder.File("SunSet.xml");
    std::string m_shown = (m_folder / "SunSet.xml").string();  // the same, as messages show it
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(SettingsChanges, AreSavedWithoutAWord) {
    {
        SettingsChange change;
        EXPECT_TRUE(change.Begin());
        EXPECT_EQ(change.Path(), m_path);
        EXPECT_TRUE(IsThere("SunSet.xml.lock"));
        SetOwnStep(g_SunDataSet, 7);
        EXPECT_TRUE(change.Save());
        EXPECT_EQ(Taken(change), Texts());
        EXPECT_EQ(Saved().m_dSpace, 7.0);
        FileLock other;
        EXPECT_EQ(other.Take(m_path, kNoPatience), FileLock::Taken::Busy) << "until the change is over";
    }
    EXPECT_FALSE(IsThere("SunSet.xml.lock"));
    EXPECT_EQ(m_reported.All(), "");
    EXPECT_EQ(m_printed.All(), "");
}

TEST_F(SettingsChanges, TakeInWhatAnotherProgramChanged) {
    OrvoDataSet theirs(g_SunDataSet);
    theirs.m_strCurCity = L"上海";
    theirs.GetStd(1).m_nMinValidTime = 5;
    Write(theirs);
    SetOwnEnd(g_SunDataSet, 16 * 60);  // not saved yet
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
    EXPECT_EQ(g_SunDataSet.GetStd(1).m_nMinValidTime, 5);
    EXPECT_EQ(g_SunDataSet.m_dgEndTime.getDegree(), 16.0);
    SetOwnStep(g_SunDataSet, 7);
    ASSERT_TRUE(change.Save());
    EXPECT_EQ(Taken(change), Texts());
    EXPECT_EQ(Saved().m_strCurCity, L"上海");
    EXPECT_EQ(Saved().GetStd(1).m_nMinValidTime, 5);
    EXPECT_EQ(Saved().m_dgEndTime.getDegree(), 16.0);
    EXPECT_EQ(Saved().m_dSpace, 7.0);
}

TEST_F(SettingsChanges, TellWhatBothHaveChanged) {
    OrvoDataSet theirs(g_SunDataSet);
    SetStep(theirs, 4);
    theirs.GetStd(1).m_nMinValidTime = 5;
    theirs.m_strCurCity = L"上海";
    Write(theirs);
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    EXPECT_EQ(Taken(change), Texts()) << "nothing was changed here";
    SetStep(g_SunDataSet, 7);
    g_SunDataSet.GetStd(1).m_nMinValidTime = 6;
    ASSERT_TRUE(change.Save());
    EXPECT_EQ(Taken(change), (Texts{"另一个程序也改动了：计算精度、标准“甲”的计算精度、"
                                    "标准“乙\uFFFD”的有效时间段下限。以这里后保存的为准。"}));
    EXPECT_EQ(Taken(change), Texts()) << "it is told once";
    EXPECT_EQ(Saved().m_dSpace, 7.0);
    EXPECT_EQ(Saved().GetStd(0).m_dSpace, 7.0);
    EXPECT_EQ(Saved().GetStd(1).m_nMinValidTime, 6);
    EXPECT_EQ(Saved().m_strCurCity, L"上海");
}

TEST_F(SettingsChanges, TellThatAStandardWasDeletedElsewhere) {
    OrvoDataSet theirs(g_SunDataSet);
    theirs.RemoveStd(1);
    Write(theirs);
    g_SunDataSet.GetStd(1).m_nMinValidTime = 6;
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    ASSERT_TRUE(change.Save());
    EXPECT_EQ(Taken(change), (Texts{"另一个程序也改动了：标准“乙\uFFFD”。以这里后保存的为准。"}));
    EXPECT_EQ(Saved().m_listStd.GetLength(), 2);
}

TEST_F(SettingsChanges, KnowWhatTheySaved) {
    for (const int step : {7, 8}) {
        SettingsChange change;
        ASSERT_TRUE(change.Begin());
        SetOwnStep(g_SunDataSet, step);
        ASSERT_TRUE(change.Save());
        EXPECT_EQ(Taken(change), Texts());
    }
    OrvoDataSet theirs(g_SunDataSet);
    SetOwnStep(theirs, 9);
    Write(theirs);
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    EXPECT_EQ(g_SunDataSet.m_dSpace, 9.0) << "the 8 is saved, and no change of this program's any more";
    EXPECT_EQ(g_SunDataSet.m_nSpace, 9);
}

TEST_F(SettingsChanges, ReplaceAFileThatWasDamagedMeanwhile) {
    m_folder.Write("SunSet.xml", "<SETTINGS><broken");
    SetOwnStep(g_SunDataSet, 7);
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    const Texts told = Taken(change);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with(m_shown + " 在此期间损坏（第 1 行")) << told[0];
    EXPECT_NE(told[0].find("refused-1"), std::string::npos);
    EXPECT_EQ(g_SunDataSet.m_dSpace, 7.0);
    EXPECT_EQ(g_SunDataSet.m_listStd.GetLength(), 2);
    ASSERT_TRUE(change.Save());
    EXPECT_EQ(Taken(change), Texts());
    EXPECT_EQ(Saved().m_dSpace, 7.0);
    EXPECT_EQ(m_folder.Read("SunSet.xml.refused-1"), "<SETTINGS><broken");
}

TEST_F(SettingsChanges, TellADamagedFileOnce) {
    m_folder.Write("SunSet.xml", "<html><body/></html>");
    {
        SettingsChange change;
        ASSERT_TRUE(change.Begin());
        const Texts told = Taken(change);
        ASSERT_EQ(told.size(), 1U);
        EXPECT_TRUE(told[0].starts_with(m_shown + " 在此期间损坏（其中没有当前设置）；")) << told[0];
    }
    {
        SettingsChange change;
        ASSERT_TRUE(change.Begin());
        EXPECT_EQ(Taken(change), Texts());
    }
    EXPECT_EQ(m_folder.Read("SunSet.xml.refused-1"), "<html><body/></html>");
    {
        SettingsChange change;
        ASSERT_TRUE(change.Begin());
        ASSERT_TRUE(change.Save());
    }
    m_folder.Write("SunSet.xml", "<html/>");
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    EXPECT_EQ(Taken(change).size(), 1U) << "it was sound in between";
}

TEST_F(SettingsChanges, CannotBeSavedWithoutAFile) {
    std::filesystem::remove(m_folder / "SunSet.xml");
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    EXPECT_EQ(change.Path(), L"");
    SetOwnStep(g_SunDataSet, 7);
    EXPECT_FALSE(change.Save());
    EXPECT_EQ(Taken(change), (Texts{"设置没有保存：找不到 SunSet.xml。原来的设置不变。"}));
    EXPECT_FALSE(IsThere("SunSet.xml"));
    EXPECT_NE(m_printed.All().find("SunSet.xml"), std::string::npos);
}

TEST_F(SettingsChanges, DoNotBeginWhileAnotherHoldsTheLock) {
    FileLock other;
    ASSERT_EQ(other.Take(m_path, kNoPatience), FileLock::Taken::Yes);
    OrvoDataSet theirs(g_SunDataSet);
    theirs.m_strCurCity = L"上海";
    Write(theirs);
    SettingsChange change;
    EXPECT_FALSE(change.Begin());
    EXPECT_EQ(Taken(change), (Texts{"设置没有改动：另一个程序正锁着 " + m_shown + "。请稍后再试。"}));
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"北京") << "nothing is taken in";
    other.Release();
    EXPECT_TRUE(change.Begin());
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
}

TEST_F(SettingsChanges, SayThatAFolderCannotBeWritten) {
    using std::filesystem::perms;
    const OrdinaryUser user(m_folder.Path());
    std::filesystem::permissions(m_folder.Path(), perms::owner_read | perms::owner_exec);
    const std::string before = m_folder.Read("SunSet.xml");
    SettingsChange change;
    EXPECT_TRUE(change.Begin()) << "without a lock, which cannot be made there";
    SetOwnStep(g_SunDataSet, 7);
    EXPECT_FALSE(change.Save());
    EXPECT_EQ(Taken(change), (Texts{"设置没有保存，原来的设置不变。"}));
    ASSERT_EQ(m_reported.texts.size(), 1U) << "the cause";
    EXPECT_NE(m_reported.texts[0].find(m_shown), std::string::npos) << m_reported.texts[0];
    EXPECT_EQ(m_folder.Read("SunSet.xml"), before);
    std::filesystem::permissions(m_folder.Path(), perms::owner_all);
    EXPECT_TRUE(change.Begin());
    EXPECT_EQ(g_SunDataSet.m_dSpace, 7.0) << "still not saved, and not undone";
    EXPECT_TRUE(change.Save());
    EXPECT_EQ(Saved().m_dSpace, 7.0);
    EXPECT_EQ(Taken(change), Texts());
}

TEST_F(SettingsChanges, TellNoConflictOfWhatWasNotSaved) {
    OrvoDataSet theirs(g_SunDataSet);
    SetOwnStep(theirs, 4);
    Write(theirs);
    SettingsChange change;
    ASSERT_TRUE(change.Begin());
    SetOwnStep(g_SunDataSet, 7);
    {
        const FullDisk disk;
        EXPECT_FALSE(change.Save());
    }
    EXPECT_EQ(Taken(change), (Texts{"设置没有保存，原来的设置不变。"}));
    EXPECT_EQ(Saved().m_dSpace, 4.0);
    EXPECT_TRUE(change.Save());
    EXPECT_EQ(Taken(change), (Texts{"另一个程序也改动了：计算精度。以这里后保存的为准。"}));
}

TEST_F(SettingsChanges, AreTakenInAtTheEndToo) {
    OrvoDataSet theirs(g_SunDataSet);
    SetOwnStep(theirs, 4);
    theirs.m_strCurCity = L"上海";
    Write(theirs);
    SetOwnStep(g_SunDataSet, 7);
    const std::vector<CString> told = TakeInAtTheEnd();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0], L"另一个程序也改动了：计算精度。以这里后保存的为准。");
    EXPECT_EQ(g_SunDataSet.m_strCurCity, L"上海");
    EXPECT_EQ(g_SunDataSet.m_dSpace, 7.0);
    EXPECT_TRUE(TakeInAtTheEnd().empty()) << "the file has not changed since";
    m_folder.Write("SunSet.xml", "<broken");
    EXPECT_EQ(TakeInAtTheEnd().size(), 1U);
    std::filesystem::remove(m_folder / "SunSet.xml");
    EXPECT_TRUE(TakeInAtTheEnd().empty());
}
