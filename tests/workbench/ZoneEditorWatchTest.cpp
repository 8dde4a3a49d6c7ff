// What the host says after the editor of the places has saved positions that it cannot read back.
#include <QPushButton>

#include "frame/ConfigDictionaries.h"
#include "frame/ConfigFiles.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"
#include "platform/window/QcUiGrid.h"
#include "resources/Resource.h"
#include "workbench/WindowStage.h"

namespace {

class ZoneEditorOfTheHost : public WindowStage {
protected:
    struct Place {
        const char* name;
        const char* longitude;
        const char* latitude;
    };
    static std::string Province(const char* name, const std::vector<Place>& places) {
        std::string text = std::string("<") + name + " type=\"PROVINCE\">";
        for (const Place& place : places)
            text += std::string("<") + place.name + " type=\"CITY\" longitude=\"" + place.longitude + "\" latitude=\"" +
                    place.latitude + "\"/>";
        return text + "</" + name + ">";
    }
    static std::string Zones(const std::string& provinces) {
        return "<ORVO_ZONEDATA>" + provinces + "</ORVO_ZONEDATA>";
    }

    // Makes these the places that there are.
    void Load(const std::string& provinces) {
        m_folder.Write("zone.xml", Zones(provinces));
        ASSERT_TRUE(LoadSunData());
    }
    // Runs the editor and ends it; gives what the log says from then on.
    std::string Edit(int command) const {
        const std::size_t before = Log().size();
        const ModalDriver driver([command](const ModalWindow&) { return command; });
        Type("QcCityData");
        EXPECT_EQ(driver.GetCount(), 1);
        const std::string said = Log().substr(before);
        return said.substr(said.find_first_not_of('\n'));
    }
    static double Saved(const wchar_t* province, const wchar_t* city, const wchar_t* attribute) {
        const auto* items = dynamic_cast<const QcDtDictionary*>(g_dictSunZone.FindItem(province));
        const QcDtDictItem* item = items != nullptr ? items->FindItem(city) : nullptr;
        EXPECT_NE(item, nullptr);
        return item != nullptr ? _wtof(item->GetAttributeValue(attribute)) : 0.0;
    }
};

bool Holds(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST_F(ZoneEditorOfTheHost, NamesThePlacesThatLoseTheirMinutes) {
    Load(Province("北京市", {{"北京", "116.4", "39.9"}}) +
         Province("南方", {{"悉尼", "151.2", "-33.8688"}, {"利马", "-77.5", "-12.5"}, {"平原", "-70", "-33"}}));
    const std::string said = Edit(IDOK);
    EXPECT_TRUE(Holds(said, "：南方/悉尼 -033度52分08秒、南方/利马 -077度30分00秒 -012度30分00秒\n")) << said;
    EXPECT_TRUE(Holds(said, "没有分和秒")) << said;
    EXPECT_TRUE(Holds(said, (m_folder / "zone.xml").c_str())) << said;
    for (const char* other : {"北京", "平原", "负号"})
        EXPECT_FALSE(Holds(said, other)) << said;
    EXPECT_EQ(Saved(L"南方", L"悉尼", L"latitude"), -33.0) << "what is said is true";
    EXPECT_EQ(Saved(L"南方", L"利马", L"longitude"), -77.0);
    EXPECT_EQ(Saved(L"南方", L"平原", L"latitude"), -33.0);
    EXPECT_FALSE(Holds(Edit(IDOK), "悉尼")) << "there is nothing left to lose";
}

TEST_F(ZoneEditorOfTheHost, NamesThePlacesThatLoseTheirSign) {
    Load(Province("英格兰", {{"伦敦", "-0.1275", "51.5"}}) + Province("加蓬", {{"恩琼莱", "10.75", "-0.5"}}));
    const std::string said = Edit(IDOK);
    EXPECT_TRUE(Holds(said, "：英格兰/伦敦 -000度07分39秒、加蓬/恩琼莱 -000度30分00秒\n")) << said;
    EXPECT_TRUE(Holds(said, "负号")) << said;
    EXPECT_FALSE(Holds(said, "没有分和秒")) << said;
    EXPECT_EQ(Saved(L"英格兰", L"伦敦", L"longitude"), 0.1275);
    EXPECT_EQ(Saved(L"加蓬", L"恩琼莱", L"latitude"), 0.5);
    EXPECT_FALSE(Holds(Edit(IDOK), "伦敦"));
}

TEST_F(ZoneEditorOfTheHost, SaysNothingWhenNothingIsLostOrSaved) {
    Load(Province("南方", {{"悉尼", "151.2", "-33.8688"}, {"伦敦", "-0.1275", "51.5"}}));
    EXPECT_EQ(Edit(IDCANCEL), "orvo> QcCityData");
    EXPECT_EQ(Saved(L"南方", L"悉尼", L"latitude"), -33.8688);
    Load(Province("北京市", {{"北京", "116.4", "39.9"}, {"赤道", "6.7", "0.5"}}));
    EXPECT_EQ(Edit(IDOK), "orvo> QcCityData");
}

TEST_F(ZoneEditorOfTheHost, FindsThemAmongOddRows) {
    // A city of its own, two of one name, a province in a province, one that is not saved.
    Load("<孤城 type=\"CITY\" longitude=\"-1.5\" latitude=\"1\"/>" +
         Province("甲", {{"同名", "1", "2"}, {"同名", "3", "-4.5"}}) + "<乙 type=\"PROVINCE\">" +
         Province("丙", {{"里城", "-5.5", "6"}}) + "</乙>");
    const ModalDriver driver([](const ModalWindow& window) {
        auto* tree = static_cast<QWidget*>(window.widget)->findChild<QWidget*>(QString("IDC_%1").arg(IDC_ZONE_GRID));
        auto* grid = dynamic_cast<QcUiGrid*>(CWnd::FromHandlePermanent(reinterpret_cast<HWND>(tree)));
        if (grid == nullptr) {
            ADD_FAILURE() << "no grid";
            return int{IDCANCEL};
        }
        QcUiGridTreeRow* nameless = grid->AppendRow()->AppendChild();
        nameless->SetItemText(1, L"没有");
        nameless->SetItemText(2, L"-007度30分00秒");
        QcUiGridTreeRow* last = grid->AppendRow()->AppendChild();
        last->GetParent()->SetItemText(0, L"丁");
        last->SetItemText(1, L"末城");
        last->SetItemText(2, L"-008度30分00秒");
        return int{IDOK};
    });
    Type("QcCityData");
    EXPECT_TRUE(
        Holds(Log(), "：孤城 -001度30分00秒、甲/同名 -004度30分00秒、丙/里城 -005度30分00秒、丁/末城 -008度30分00秒\n"))
        << Log();
    EXPECT_FALSE(Holds(Log(), "没有 ")) << Log();
}

TEST_F(ZoneEditorOfTheHost, NamesImportedPlacesToo) {
    Load(Province("北京市", {{"北京", "116.4", "39.9"}}));
    const auto path = m_folder.Write("more.xml", Zones(Province("英格兰", {{"伦敦", "-0.1275", "51.5"}})));
    CFileDialog::SetNextFileForTest(FromUtf8(path.string()));
    const ModalDriver driver([](const ModalWindow& window) {
        auto* import =
            static_cast<QWidget*>(window.widget)->findChild<QPushButton*>(QString("IDC_%1").arg(IDC_IMPORT_ZONES));
        if (import != nullptr)
            import->click();
        return int{IDOK};
    });
    Type("QcCityData");
    EXPECT_EQ(driver.GetCount(), 2) << "the editor, and that the import was made";
    EXPECT_TRUE(Holds(Log(), "英格兰/伦敦 -000度07分39秒")) << Log();
}

TEST_F(ZoneEditorOfTheHost, NamesTwentyOfMany) {
    std::vector<std::string> names;
    for (int i = 0; i < 25; ++i)
        names.push_back("P" + std::to_string(100 + i));
    std::vector<Place> list;
    for (const std::string& name : names)
        list.push_back({name.c_str(), "10", "-20.5"});
    Load(Province("南", list));
    const std::string said = Edit(IDOK);
    EXPECT_TRUE(Holds(said, "南/P119 -020度30分00秒 等 25 处")) << said;
    EXPECT_FALSE(Holds(said, "P120")) << said;
}

TEST_F(ZoneEditorOfTheHost, SpeaksEnglish) {
    ASSERT_TRUE(Language().SetLanguage(L"en"));
    Load(Province("南方", {{"悉尼", "151.2", "-33.8688"}, {"伦敦", "-0.1275", "51.5"}}));
    const std::string said = Edit(IDOK);
    EXPECT_TRUE(Holds(said, "only the whole degrees are read back: 南方/悉尼 -033度52分08秒\n")) << said;
    EXPECT_TRUE(Holds(said, "without the minus sign, which puts them on the other side: 南方/伦敦 -000度07分39秒\n"))
        << said;
    EXPECT_TRUE(Holds(said, "as decimal degrees, such as -33.8688")) << said;
}
