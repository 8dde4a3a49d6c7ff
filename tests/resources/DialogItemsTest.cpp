// What is in each of the module's dialogs: numbers, kinds, captions, and how items behave before anything is done.
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/ModuleDialogs.h"

namespace {

struct ExpectedItem {
    UINT id;
    const wchar_t* windowClass;
    const wchar_t* text;  // null: not asked
};

// Both variants of a dialog have the caption and all of these items, each once.
void ExpectItems(UINT chinese, const wchar_t* caption, const std::vector<ExpectedItem>& items) {
    for (const DialogPair& pair : kPairs) {
        if (pair.chinese != chinese)
            continue;
        for (const UINT id : {pair.chinese, pair.wide}) {
            const DialogTemplate dialog = DialogOf(id);
            EXPECT_EQ(dialog.caption, caption) << id;
            for (const ExpectedItem& expected : items) {
                const auto count = std::count_if(dialog.items.begin(), dialog.items.end(),
                                                 [&](const auto& item) { return item.id == expected.id; });
                EXPECT_EQ(count, 1) << id << ": " << expected.id;
                const DialogItemTemplate item = ItemOf(dialog, expected.id);
                EXPECT_EQ(item.windowClass, expected.windowClass) << id << ": " << expected.id;
                if (expected.text)
                    EXPECT_EQ(item.text, expected.text) << id << ": " << expected.id;
            }
        }
    }
}

bool HasText(const DialogTemplate& dialog, const wchar_t* text) {
    return std::any_of(dialog.items.begin(), dialog.items.end(),
                       [text](const DialogItemTemplate& item) { return item.id == IDC_STATIC && item.text == text; });
}

// The unnamed label or group that stands before an item in the order of the items.
CString TextBefore(const DialogTemplate& dialog, UINT id) {
    for (std::size_t index = 1; index < dialog.items.size(); ++index)
        if (dialog.items[index].id == id)
            return dialog.items[index - 1].text;
    return {};
}

UINT FirstStop(const DialogTemplate& dialog) {
    constexpr DWORD kReachable = WS_TABSTOP | WS_VISIBLE;
    for (const DialogItemTemplate& item : dialog.items)
        if ((item.style & (kReachable | WS_DISABLED)) == kReachable)
            return item.id;
    return 0;
}

}  // namespace

TEST(DialogItems, AreReadFromTheScript) {
    EXPECT_EQ(ModuleDialogs().Dialogs().size(), 2 * std::size(kPairs));
    for (const DialogPair& pair : kPairs) {
        EXPECT_NE(ModuleDialogs().FindDialog(pair.chinese), nullptr) << pair.chinese;
        EXPECT_NE(ModuleDialogs().FindDialog(pair.wide), nullptr) << pair.wide;
    }
}

TEST(DialogItems, AreThoseOfTheZoneEditor) {
    ExpectItems(
        2000, L"地理位置",
        {{1, L"BUTTON", L"确定"}, {2, L"BUTTON", L"取消"}, {2001, L"QcUiGrid", L""}, {2002, L"BUTTON", L"导入数据"}});
    EXPECT_EQ(ItemOf(DialogOf(2000), 2001).style, 0x56810000U);
    EXPECT_EQ(ItemOf(DialogOf(2001), 2001).style, 0x56810000U);
}

TEST(DialogItems, AreThoseOfTheSettings) {
    const std::vector<ExpectedItem> items = {{1, L"BUTTON", L"确定"},      {2, L"BUTTON", L"取消"},
                                             {2003, L"COMBOBOX", nullptr}, {2004, L"COMBOBOX", nullptr},
                                             {2005, L"COMBOBOX", nullptr}, {2006, L"EDIT", nullptr},
                                             {2007, L"EDIT", nullptr},     {2008, L"EDIT", nullptr},
                                             {2009, L"EDIT", nullptr},     {2010, L"BUTTON", L"标注当前设置＜"}};
    ExpectItems(2004, L"日照设置", items);
    ExpectItems(2005, L"分析设置", items);
    for (const UINT id : {2004U, 2015U, 2005U, 2016U}) {
        const DialogTemplate dialog = DialogOf(id);
        EXPECT_EQ(TextBefore(dialog, 2003), L"绘图单位：") << id;
        EXPECT_EQ(TextBefore(dialog, 2004), L"当前标准:") << id;
        EXPECT_EQ(TextBefore(dialog, 2005), L"地点:") << id;
        EXPECT_EQ(TextBefore(dialog, 2006), L"距离精度:") << id;
        EXPECT_EQ(TextBefore(dialog, 2007), L"分弧精度:") << id;
        EXPECT_EQ(TextBefore(dialog, 2008), L"角度精度:") << id;
        EXPECT_EQ(TextBefore(dialog, 2009), L"窗偏墙外:") << id;
        const bool isGlare = id == 2005 || id == 2016;
        EXPECT_EQ(HasText(dialog, L"日照分析标准"), !isGlare) << id;
        EXPECT_EQ(HasText(dialog, L"幕墙光污染分析标准"), isGlare) << id;
    }
}

TEST(DialogItems, AreThoseOfThePlace) {
    ExpectItems(2008, L"地区",
                {{1, L"BUTTON", L"确定"},
                 {2, L"BUTTON", L"取消"},
                 {2011, L"EDIT", nullptr},
                 {2012, L"EDIT", nullptr},
                 {2013, L"EDIT", nullptr},
                 {2014, L"EDIT", nullptr},
                 {2015, L"STATIC", L"地区:"},
                 {2016, L"STATIC", L"经度:"},
                 {2017, L"STATIC", L"说明:"},
                 {2018, L"STATIC", L"纬度:"},
                 {2019, L"STATIC", L"省份"},
                 {2020, L"STATIC", L"地区和城市"},
                 {2021, L"BUTTON", L"编辑数据文件"},
                 {2022, L"LISTBOX", nullptr},
                 {2025, L"LISTBOX", nullptr}});
    for (const UINT id : {2008U, 2014U}) {
        const DialogTemplate dialog = DialogOf(id);
        EXPECT_TRUE(HasText(dialog, L"当前地区")) << id;
        EXPECT_TRUE(HasText(dialog, L"地区选择")) << id;
        EXPECT_EQ(TextBefore(dialog, 2011), L"地区:") << id;
        EXPECT_EQ(TextBefore(dialog, 2012), L"经度:") << id;
        EXPECT_EQ(TextBefore(dialog, 2013), L"说明:") << id;
        EXPECT_EQ(TextBefore(dialog, 2014), L"纬度:") << id;
        EXPECT_EQ(TextBefore(dialog, 2022), L"省份") << id;
        EXPECT_EQ(TextBefore(dialog, 2025), L"地区和城市") << id;
    }
}

TEST(DialogItems, AreThoseOfTheName) {
    ExpectItems(2009, L"标准名称", {{1, L"BUTTON", L"确定"}, {2, L"BUTTON", L"取消"}, {2026, L"EDIT", nullptr}});
}

TEST(DialogItems, AreThoseOfTheStandards) {
    ExpectItems(2010, L"日照分析标准",
                {{1, L"BUTTON", L"确定"},
                 {2, L"BUTTON", L"取消"},
                 {2004, L"COMBOBOX", nullptr},
                 {2028, L"BUTTON", L"新建"},
                 {2029, L"BUTTON", L"改名"},
                 {2030, L"BUTTON", L"删除"},
                 {2031, L"BUTTON", L"总有效日照分析(累计)"},
                 {2032, L"BUTTON", L"最长有效连照分析(连续)"},
                 {2033, L"BUTTON", L"满窗日照分析"},
                 {2034, L"BUTTON", L"窗台中点分析"},
                 {2035, L"BUTTON", L"限定宽度"},
                 {2036, L"EDIT", nullptr},
                 {2037, L"EDIT", nullptr},
                 {2038, L"SysDateTimePick32", nullptr},
                 {2039, L"COMBOBOX", nullptr},
                 {2040, L"BUTTON", L"真太阳时"},
                 {2041, L"BUTTON", L"北京时间"},
                 {2042, L"EDIT", nullptr},
                 {2043, L"EDIT", nullptr},
                 {2044, L"EDIT", nullptr},
                 {2045, L"msctls_updown32", nullptr},
                 {2050, L"BUTTON", L"累计超过"},
                 {2051, L"EDIT", nullptr},
                 {2052, L"EDIT", nullptr},
                 {2053, L"BUTTON", L"累计最长两个时间段"},
                 {2054, L"COMBOBOX", nullptr},
                 {2055, L"EDIT", nullptr},
                 {2056, L"EDIT", nullptr},
                 {2057, L"BUTTON", L"累计所有时间段"},
                 {2059, L"BUTTON", L"累计最长三个时间段"}});
    for (const UINT id : {2010U, 2017U}) {
        const DialogTemplate dialog = DialogOf(id);
        EXPECT_EQ(TextBefore(dialog, 2004), L"当前标准:") << id;
        EXPECT_EQ(TextBefore(dialog, 2036), L"最大宽度(mm):") << id;
        EXPECT_EQ(TextBefore(dialog, 2037), L"最小宽度(mm):") << id;
        EXPECT_EQ(TextBefore(dialog, 2039), L"节气:") << id;
        EXPECT_EQ(TextBefore(dialog, 2042), L"开始:") << id;
        EXPECT_EQ(TextBefore(dialog, 2043), L"结束:") << id;
        EXPECT_EQ(TextBefore(dialog, 2044), L"计算精度:") << id;
        EXPECT_TRUE(HasText(dialog, L"分钟")) << id;
        for (const UINT check : {2035U, 2050U})
            EXPECT_TRUE(IsButton(ItemOf(dialog, check), BS_AUTOCHECKBOX)) << check;
        for (const UINT radio : {2031U, 2032U, 2033U, 2034U, 2040U, 2041U, 2057U, 2053U, 2059U})
            EXPECT_TRUE(IsRadio(ItemOf(dialog, radio))) << radio;
    }
}

// The exchange of a radio group counts its buttons from the first to the next item that begins a group.
TEST(DialogItems, HaveTheirRadioButtonsInGroups) {
    const std::vector<std::vector<UINT>> groups = {{2031, 2032}, {2033, 2034}, {2040, 2041}, {2057, 2053, 2059}};
    for (const UINT id : {2010U, 2017U}) {
        const DialogTemplate dialog = DialogOf(id);
        for (const std::vector<UINT>& group : groups) {
            auto item = std::find_if(dialog.items.begin(), dialog.items.end(),
                                     [&](const auto& candidate) { return candidate.id == group[0]; });
            ASSERT_NE(item, dialog.items.end());
            EXPECT_EQ(item->style & (WS_GROUP | WS_TABSTOP), WS_GROUP | WS_TABSTOP) << group[0];
            std::vector<UINT> found = {item->id};
            for (++item; item != dialog.items.end() && !(item->style & WS_GROUP); ++item) {
                found.push_back(item->id);
                EXPECT_FALSE(item->style & WS_TABSTOP) << item->id << ": the arrows lead there";
            }
            EXPECT_EQ(found, group);
            EXPECT_NE(item, dialog.items.end());
        }
    }
}

TEST(DialogItems, AreShownAndEnabledButForTheUnitAndTheAnnotation) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        const bool isSettings = HasText(dialog, L"绘图单位：");
        for (const DialogItemTemplate& item : dialog.items) {
            const bool isAnnotation = isSettings && item.id == 2010;
            const bool isUnit = isSettings && item.id == 2003;
            EXPECT_EQ((item.style & WS_VISIBLE) != 0, !isAnnotation) << dialog.id << ": " << item.id;
            EXPECT_EQ((item.style & WS_DISABLED) != 0, isAnnotation || isUnit) << dialog.id << ": " << item.id;
        }
    }
}

TEST(DialogItems, CanBeReadOnlyInTheDialogOfThePlace) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        const bool isPlace = dialog.id == 2008 || dialog.id == 2014;
        for (const DialogItemTemplate& item : dialog.items) {
            if (item.windowClass != L"EDIT")
                continue;
            EXPECT_EQ((item.style & ES_READONLY) != 0, isPlace) << dialog.id << ": " << item.id;
            EXPECT_EQ((item.style & WS_TABSTOP) != 0, !isPlace) << dialog.id << ": " << item.id;
            EXPECT_TRUE(item.style & ES_AUTOHSCROLL) << "a long text can be typed";
        }
    }
}

TEST(DialogItems, ListInTheOrderInWhichTheyAreFilled) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& item : dialog.items) {
            if (item.windowClass == L"COMBOBOX") {
                // The current place is shown also where it is none of the entries.
                const bool showsAnyText = item.id == 2005;
                EXPECT_EQ(item.style & CBS_DROPDOWNLIST, showsAnyText ? CBS_DROPDOWN : CBS_DROPDOWNLIST) << item.id;
                EXPECT_EQ(item.style & CBS_SORT, 0U) << item.id;
                EXPECT_TRUE(item.style & WS_VSCROLL) << item.id;
                EXPECT_GE(item.cy, 50) << item.id << ": room for the list";
            } else if (item.windowClass == L"LISTBOX") {
                EXPECT_EQ(item.style & (LBS_NOTIFY | LBS_SORT), LBS_NOTIFY) << item.id;
                EXPECT_TRUE(item.style & WS_VSCROLL) << item.id;
            } else {
                continue;
            }
            EXPECT_TRUE(item.style & WS_TABSTOP) << item.id;
        }
}

TEST(DialogItems, HaveTheSpinButtonBehindItsEdit) {
    for (const UINT id : {2010U, 2017U}) {
        const DialogTemplate dialog = DialogOf(id);
        const auto edit = std::find_if(dialog.items.begin(), dialog.items.end(),
                                       [](const DialogItemTemplate& item) { return item.id == 2044; });
        ASSERT_NE(edit, dialog.items.end());
        const DialogItemTemplate& spin = *(edit + 1);
        EXPECT_EQ(spin.id, 2045U);
        EXPECT_EQ(spin.style, WS_CHILD | WS_VISIBLE | 0x36U) << "sets its buddy's number, right, takes the arrows";
    }
}

TEST(DialogItems, AnswerEnterWithOkAndEscapeWithCancel) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        for (const DialogItemTemplate& item : dialog.items)
            EXPECT_EQ(IsButton(item, BS_DEFPUSHBUTTON), item.id == 1) << dialog.id << ": " << item.id;
        EXPECT_TRUE(IsButton(ItemOf(dialog, 1), BS_DEFPUSHBUTTON)) << dialog.id;
        EXPECT_TRUE(IsButton(ItemOf(dialog, 2), BS_PUSHBUTTON)) << dialog.id;
    }
}

TEST(DialogItems, BeginWithTheFieldThatIsUsedFirst) {
    constexpr UINT first[] = {2001, 2004, 2004, 2022, 2026, 2004};
    static_assert(std::size(first) == std::size(kPairs));
    for (std::size_t index = 0; index < std::size(kPairs); ++index) {
        EXPECT_EQ(FirstStop(DialogOf(kPairs[index].chinese)), first[index]);
        EXPECT_EQ(FirstStop(DialogOf(kPairs[index].wide)), first[index]);
    }
}

TEST(DialogItems, AreTheSameInBothVariantsButForTheirPlaces) {
    for (const DialogPair& pair : kPairs) {
        const DialogTemplate chinese = DialogOf(pair.chinese);
        const DialogTemplate wide = DialogOf(pair.wide);
        EXPECT_EQ(chinese.style, wide.style);
        ASSERT_EQ(chinese.items.size(), wide.items.size()) << pair.chinese;
        for (std::size_t index = 0; index < chinese.items.size(); ++index) {
            EXPECT_EQ(chinese.items[index].id, wide.items[index].id);
            EXPECT_EQ(chinese.items[index].windowClass, wide.items[index].windowClass) << wide.items[index].id;
            EXPECT_EQ(chinese.items[index].text, wide.items[index].text) << wide.items[index].id;
            EXPECT_EQ(chinese.items[index].style, wide.items[index].style) << wide.items[index].id;
        }
    }
}

TEST(DialogItems, HaveCaptionsWithoutMnemonics) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& item : dialog.items)
            EXPECT_EQ(item.text.Find(L'&'), -1) << ToUtf8(item.text.View());
}
