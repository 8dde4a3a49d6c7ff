// Going back to the settings as they were.
#include "facts/SettingsSnapshot.h"

#include <functional>
#include <limits>

#include "facts/FactsStage.h"
#include "facts/Place.h"
#include "facts/Settings.h"
#include "facts/SettingsEdit.h"
#include "facts/SettingsForm.h"
#include "facts/StandardSearch.h"

namespace {

class Snapshot : public FactsStage {
protected:
    Snapshot() {
        for (const wchar_t* name : {L"甲", L"乙"}) {
            OrvoStdSet standard;
            standard.m_strName = name;
            standard.m_date = OrvoDate(2024, 12, 21);
            standard.m_dSpace = 2.5;
            OrvoStdSet& added = *m_settings.NewStd(standard);
            added.m_colors.GetAt(1)[0]->m_dValue = 1.0 / 3.0;
            added.m_colors.m_listType.Append(77);
        }
        m_settings.m_nCurStd = 1;
        SetPlace(m_settings, {L"丙省", L"丙城", 100.25, -20.5});
        m_settings.m_strComment = L"海边";
        m_settings.m_strLongitude = L"100.2500";
        SetOwnDay(m_settings, {2025, 3, 1});
        m_settings.m_listCity.Append(new OrvoCity(L"丙城"));
    }

    // All that a snapshot is to bring back.
    struct All {
        std::unique_ptr<QcDtDictionary> form;
        CString note;
        CString record;
        std::vector<Standard> standards;
    };
    All Everything() const {
        All all = {FormOf(m_settings), NoteOf(ReadSettings(m_settings)), {}, {}};
        all.record = m_settings.m_strProvince + L"|" + m_settings.m_strCity + L"|" + m_settings.m_strLongitude + L"|" +
                     m_settings.m_strLatitude + L"|" + m_settings.m_strComment;
        for (int i = 0; i < m_settings.m_listStd.GetLength(); ++i)
            if (const OrvoStdSet* standard = StandardAt(m_settings, i))
                all.standards.push_back(StandardOf(*standard));
        return all;
    }

    // Changes the settings, goes back, and compares.
    void ExpectBack(const std::function<void()>& change) {
        const All before = Everything();
        const SettingsSnapshot snapshot(m_settings);
        change();
        snapshot.Restore(m_settings);
        const All after = Everything();
        EXPECT_TRUE(IsSameItem(before.form.get(), after.form.get()));
        EXPECT_EQ(ToUtf8(after.note.View()), ToUtf8(before.note.View()));
        EXPECT_EQ(ToUtf8(after.record.View()), ToUtf8(before.record.View()));
        ASSERT_EQ(after.standards.size(), before.standards.size());
        for (std::size_t i = 0; i < after.standards.size(); ++i) {
            EXPECT_EQ(after.standards[i].name, before.standards[i].name);
            EXPECT_EQ(after.standards[i].typeColors, before.standards[i].typeColors);
            ASSERT_EQ(after.standards[i].timeColors.size(), before.standards[i].timeColors.size());
            for (std::size_t k = 0; k < after.standards[i].timeColors.size(); ++k)
                EXPECT_EQ(after.standards[i].timeColors[k].hours, before.standards[i].timeColors[k].hours);
        }
    }

    OrvoDataSet m_settings;
};

}  // namespace

TEST_F(Snapshot, BringsBackEverySingleValue) {
    ExpectBack([] {});
    ExpectBack([this] { SetPlace(m_settings, {L"丁省", L"丁城", 1.0, 2.0}); });
    ExpectBack([this] { SetPlace(m_settings, {L"别省", L"丙城", 1.0, 2.0}); });  // another place of the same name
    ExpectBack([this] { SetDay(m_settings, {2030, 1, 2}); });
    ExpectBack([this] { SetStart(m_settings, 1); });
    ExpectBack([this] { SetEnd(m_settings, 1); });
    ExpectBack([this] { SetStep(m_settings, 1); });
    ExpectBack([this] { m_settings.m_listCity.Append(new OrvoCity(L"丁城")); });
    ExpectBack([this] { UseStandard(m_settings, 0); });
}

TEST_F(Snapshot, BringsBackStandardsWithTheirColours) {
    ExpectBack([this] { m_settings.RemoveStd(0); });
    ExpectBack([this] { m_settings.m_listStd.Reset(); });
    ExpectBack([this] { m_settings.NewStd(OrvoStdSet()); });
    ExpectBack([this] { m_settings.GetStd(0).m_strName = L"丙"; });
    ExpectBack([this] { m_settings.GetStd(0).m_colors = OrvoColorTable(); });
    ExpectBack([this] { m_settings.GetStd(1).m_colors.m_listType.Append(5); });
    ExpectBack([this] { m_settings.GetStd(1).m_nMinValidAngle = 12; });
    ExpectBack([this] { m_settings = OrvoDataSet(); });
}

TEST_F(Snapshot, BringsBackWhatNoFileWouldKeep) {
    m_settings.m_dSpace = 4.5;
    ExpectBack([this] { SetStep(m_settings, 1); });
    m_settings.m_nSpace = 77;  // the copies do not agree
    m_settings.m_nStartHour = 3;
    m_settings.m_nEndMinute = 44;
    ExpectBack([this] { SetStart(m_settings, 1); });
    m_settings.m_dSpace = std::numeric_limits<double>::quiet_NaN();
    m_settings.m_dgStartTime = 1e300;
    ExpectBack([this] { SetStart(m_settings, 1); });
    SetOwnDay(m_settings, {-5, 77, 0});
    ExpectBack([this] { SetDay(m_settings, {2030, 1, 2}); });
    m_settings.GetStd(0).m_date = OrvoDate(-5, 77, 0);
    ExpectBack([this] { m_settings.RemoveStd(0); });
    m_settings.GetStd(0).m_strName = L"乙";  // two of one name
    ExpectBack([this] { m_settings.RemoveStd(0); });
    m_settings.m_nCurStd = 7;
    ExpectBack([this] { UseStandard(m_settings, 0); });
}

TEST_F(Snapshot, CanBeGoneBackToAgainAndLeavesTheTermsAlone) {
    m_settings.m_date.GetTerm(0)->m_dgLat = -10.0;
    const long rows = m_settings.m_date.m_listTerm.GetLength();
    const SettingsSnapshot snapshot(m_settings);
    for (int i = 0; i < 3; ++i) {
        m_settings.RemoveStd(0);
        SetDay(m_settings, {2030, 1, 2});
        snapshot.Restore(m_settings);
        EXPECT_EQ(m_settings.m_listStd.GetLength(), 2);
        EXPECT_EQ(ReadSettings(m_settings).ownDay, (CalendarDay{2025, 3, 1}));
        EXPECT_EQ(m_settings.m_date.GetTerm(0)->m_dgLat.getDegree(), -10.0);
        EXPECT_EQ(m_settings.m_date.m_listTerm.GetLength(), rows) << "none are piled up";
    }
}
