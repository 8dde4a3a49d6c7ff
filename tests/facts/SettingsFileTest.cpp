// The settings in memory and the file that others write meanwhile.
#include "facts/SettingsFile.h"

#include <gtest/gtest.h>

#include "facts/SettingsForm.h"
#include "facts/ShippedSettings.h"
#include "settings/OrvoDataSet.h"
#include "support/FileTree.h"

namespace {

using State = SettingsFile::State;

class SettingsFiles : public testing::Test {
protected:
    SettingsFiles() {
        OrvoStdSet standard;
        standard.m_strName = L"甲";
        m_settings.NewStd(standard);
        Write(m_settings);
        m_file.Remember(m_settings, m_path);
    }

    void Write(const OrvoDataSet& settings) const {
        QcDtDictionary dictionary(L"SETTINGS");
        ASSERT_TRUE(settings.SaveSunDataSetDict(&dictionary));
        ASSERT_TRUE(dictionary.SaveToXML(m_path));
    }
    State TakeIn() { return m_file.TakeIn(m_settings, m_path, m_others); }
    std::size_t Conflicts() const { return m_others.ConflictsWith(m_settings).size(); }

    FileTree m_folder;
    CString m_path = m_folder.File("SunSet.xml");
    OrvoDataSet m_settings;
    SettingsFile m_file;
    OthersChanges m_others;
};

}  // namespace

TEST_F(SettingsFiles, TakeInWhatOthersWrote) {
    OrvoDataSet theirs(m_settings);
    theirs.m_dSpace = 4.0;
    theirs.m_strCurCity = L"上海";
    Write(theirs);
    m_settings.m_dgStartTime = 8.0;
    m_settings.m_strLongitude = L"116.4";
    EXPECT_EQ(TakeIn(), State::Sound);
    EXPECT_FALSE(m_others.IsEmpty());
    EXPECT_EQ(Conflicts(), 0U);
    EXPECT_EQ(m_settings.m_dSpace, 4.0);
    EXPECT_EQ(m_settings.m_nSpace, 4) << "the copy that texts show";
    EXPECT_EQ(m_settings.m_strCurCity, L"上海");
    EXPECT_NE(m_settings.m_strLongitude, L"116.4") << "that was the other place's";
    EXPECT_EQ(m_settings.m_dgStartTime.getDegree(), 8.0);
}

TEST_F(SettingsFiles, TakeInADayThatOthersGaveAStandard) {
    OrvoDataSet theirs(m_settings);
    theirs.GetStd(0).m_date.SetXmlDate(L"2025- 3- 1");
    Write(theirs);
    EXPECT_EQ(TakeIn(), State::Sound);
    EXPECT_EQ(m_settings.GetStd(0).m_date.GetDateXmlString(), L"2025- 3- 1");
}

TEST_F(SettingsFiles, LeaveTheSettingsAloneWhereNobodyWrote) {
    m_settings.m_dSpace = 4.5;
    m_settings.m_strLongitude = L"116.4";
    const OrvoStdSet* standard = &m_settings.GetStd(0);
    EXPECT_EQ(TakeIn(), State::Sound);
    EXPECT_TRUE(m_others.IsEmpty());
    EXPECT_EQ(m_settings.m_dSpace, 4.5);
    EXPECT_EQ(m_settings.m_strLongitude, L"116.4");
    EXPECT_EQ(&m_settings.GetStd(0), standard);
}

TEST_F(SettingsFiles, TakeNoValueForAnothersThatTheFileGivesBackOtherwise) {
    m_settings.m_dSpace = 4.5;  // which is read as whole minutes
    Write(m_settings);
    m_file.Remember(m_settings, m_path);
    EXPECT_EQ(TakeIn(), State::Sound);
    EXPECT_TRUE(m_others.IsEmpty());
    EXPECT_EQ(m_settings.m_dSpace, 4.5);
    OrvoDataSet theirs(m_settings);
    theirs.m_dSpace = 6.0;
    Write(theirs);
    EXPECT_EQ(TakeIn(), State::Sound);
    EXPECT_EQ(Conflicts(), 0U) << "only the others have changed it";
    EXPECT_EQ(m_settings.m_dSpace, 6.0);
}

TEST_F(SettingsFiles, TellTheConflictOfAChangeThatCameAfterTheTakingIn) {
    OrvoDataSet theirs(m_settings);
    theirs.m_dSpace = 4.0;
    theirs.m_strCurCity = L"上海";
    Write(theirs);
    TakeIn();
    m_settings.m_dSpace = 6.0;
    EXPECT_EQ(Conflicts(), 1U);
    m_settings.m_dSpace = 4.0;
    EXPECT_EQ(Conflicts(), 0U);
}

TEST_F(SettingsFiles, KnowWhatTheyTookInThoughNothingWasSaved) {
    OrvoDataSet theirs(m_settings);
    theirs.m_dSpace = 4.0;
    Write(theirs);
    TakeIn();
    theirs.m_dSpace = 5.0;
    Write(theirs);
    TakeIn();
    EXPECT_EQ(m_settings.m_dSpace, 5.0) << "the 4 was never this one's own";
    EXPECT_EQ(Conflicts(), 0U);
}

TEST_F(SettingsFiles, KnowWhatWasSaved) {
    m_settings.m_dSpace = 4.0;
    Write(m_settings);
    m_file.Remember(m_settings, m_path);
    OrvoDataSet theirs(m_settings);
    theirs.m_dSpace = 5.0;
    Write(theirs);
    TakeIn();
    EXPECT_EQ(m_settings.m_dSpace, 5.0);
    EXPECT_EQ(Conflicts(), 0U);
}

TEST_F(SettingsFiles, StayAsTheyAreWhereTheFileIsDamagedOrAnother) {
    m_settings.m_dSpace = 4.0;
    m_folder.Write("SunSet.xml", "<broken");
    EXPECT_EQ(TakeIn(), State::Damaged);
    EXPECT_FALSE(m_file.IsSound());
    EXPECT_EQ(m_settings.m_dSpace, 4.0);
    EXPECT_EQ(m_settings.m_listStd.GetLength(), 1);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "SunSet.xml.refused-1")) << "the save sees to that";
    m_folder.Write("SunSet.xml", "<other/>");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(TakeIn(), State::Damaged);
        EXPECT_EQ(m_folder.Read("SunSet.xml.refused-1"), "<other/>");
        EXPECT_FALSE(std::filesystem::exists(m_folder / "SunSet.xml.refused-2"));
    }
    OrvoDataSet others(m_settings);
    others.m_strCurCity = L"上海";
    QcDtDictionary dictionary(L"SETTINGS");
    ASSERT_TRUE(others.SaveSunDataSetDict(&dictionary));
    ASSERT_TRUE(dictionary.SaveToXML(m_folder.File("elsewhere.xml")));
    EXPECT_EQ(m_file.TakeIn(m_settings, m_folder.File("elsewhere.xml"), m_others), State::Sound);
    EXPECT_EQ(m_settings.m_strCurCity, L"北京") << "a file that this program never read";
    EXPECT_EQ(SettingsFile().TakeIn(m_settings, m_path, m_others), State::Sound);
    EXPECT_EQ(m_settings.m_dSpace, 4.0);
}

TEST_F(SettingsFiles, GiveAStandardItsShippedValuesBack) {
    OrvoDataSet shipped;
    OrvoStdSet original;
    original.m_strName = L"甲";
    original.m_colors.m_listType.Append(77);
    original.m_dSpace = 3.0;
    shipped.NewStd(original)->m_colors = original.m_colors;
    original.m_strName = L"乙";
    shipped.NewStd(original);
    EXPECT_EQ(ChangesFromShipped(m_settings.GetStd(0), &shipped)->size(), 2U);
    EXPECT_EQ(ResetStandard(m_settings, shipped.GetStd(0)), 0);
    EXPECT_TRUE(ChangesFromShipped(m_settings.GetStd(0), &shipped)->empty());
    EXPECT_EQ(ResetStandard(m_settings, shipped.GetStd(1)), 1) << "it was not there";
    EXPECT_EQ(m_settings.m_listStd.GetLength(), 2);
    EXPECT_TRUE(ChangesFromShipped(m_settings.GetStd(1), &shipped)->empty());
    original.m_strName = L"丙";
    EXPECT_FALSE(ChangesFromShipped(original, &shipped).has_value());
    EXPECT_FALSE(ChangesFromShipped(m_settings.GetStd(0), nullptr).has_value());
}
