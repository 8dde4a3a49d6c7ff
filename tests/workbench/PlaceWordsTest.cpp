// Places, and the note of the settings, in words of the window's language.
#include "workbench/view/PlaceWords.h"

#include <gtest/gtest.h>

#include <QAction>

#include "workbench/WindowStage.h"

namespace {

Place At(const wchar_t* province, const wchar_t* city) {
    Place place;
    place.province = province;
    place.city = city;
    return place;
}

std::string Words(const wchar_t* province, const wchar_t* city) {
    return ToUtf8(PlaceInWords(At(province, city)).View());
}

class InLanguage {
public:
    explicit InLanguage(const wchar_t* language) : m_before(g_strCurLanguage) { g_strCurLanguage = language; }
    ~InLanguage() { g_strCurLanguage = m_before; }

private:
    CString m_before;
};

class SettingsNoteInWindow : public WindowStage {
protected:
    void SpeakEnglish() const {
        for (QAction* action : m_window->findChildren<QAction*>())
            if (action->text() == "&English")
                return action->trigger();
        ADD_FAILURE() << "no entry for English";
    }
};

}  // namespace

TEST(PlaceWords, NameATownOfItsOwnProvinceOnce) {
    const InLanguage chinese(L"Chs");
    EXPECT_EQ(Words(L"北京", L"北京"), "北京");
    EXPECT_EQ(Words(L"江苏", L"苏州"), "江苏/苏州");
    EXPECT_EQ(Words(L"", L"120.62E,31.3N"), "120.62E,31.3N");
}

TEST(PlaceWords, TellHowANameIsReadWhereNobodyReadsChinese) {
    const InLanguage english(L"Enu");
    EXPECT_EQ(Words(L"北京", L"北京"), "北京 (Beijing)");
    EXPECT_EQ(Words(L"江苏", L"苏州"), "江苏/苏州 (Jiangsu/Suzhou)");
    EXPECT_EQ(Words(L"山西", L"吕梁"), "山西/吕梁 (Shanxi/Lüliang)");
    EXPECT_EQ(Words(L"", L"120.62E,31.3N"), "120.62E,31.3N");
    EXPECT_EQ(Words(L"Wales", L"Cardiff"), "Wales/Cardiff");
    EXPECT_EQ(Words(L"Wales", L"北京"), "Wales/北京 (Beijing)");
    EXPECT_EQ(Words(L"", L""), "");
    EXPECT_EQ(ToUtf8(NameInWords(L"通州").View()), "通州 (Tongzhou)");
}

TEST_F(SettingsNoteInWindow, IsTheModulesInChinese) {
    Type("set --standard 国标大寒日 --date 2026-1-20");
    EXPECT_EQ(Note(), ToUtf8(g_SunDataSet.GetNoteString().View()));
    EXPECT_NE(Note().find("2026年 1月20日(大寒)"), std::string::npos) << Note();
}

TEST_F(SettingsNoteInWindow, HasDayTermAndPlaceInEnglish) {
    Type("set --standard 国标大寒日 --date 2026-1-20 --place 通州");
    SpeakEnglish();
    EXPECT_NE(Note().find("place: 通州 (Tongzhou); time: 2026-01-20 (Greater Cold) "), std::string::npos) << Note();
    EXPECT_NE(Note().find("Standard: 国标大寒日; "), std::string::npos) << "a name, as it was given: " << Note();
    EXPECT_EQ(Note().find("月"), std::string::npos) << Note();
    Type("set --date 2026-1-21");
    EXPECT_NE(Note().find("time: 2026-01-21 0"), std::string::npos) << Note();
}
