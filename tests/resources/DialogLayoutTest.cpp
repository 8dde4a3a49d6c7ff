// Where the items of the module's dialogs stand: inside, apart from each other, in line, and with room for their texts
// in Chinese or, in the roomier variants, for English and for translations a third longer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/base/QcDtDictionary.h"
#include "resources/ModuleDialogs.h"
#include "support/Folders.h"

namespace {

constexpr int kMargin = 7;

struct Area {
    int left;
    int top;
    int right;
    int bottom;
};

Area AreaOf(const DialogItemTemplate& item) {
    return {item.x, item.y, item.x + item.cx, item.y + HeightOf(item)};
}

bool Overlap(const Area& one, const Area& other) {
    return one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom;
}

bool IsInside(const Area& inner, const Area& outer) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

bool IsSpin(const DialogItemTemplate& item) {
    return item.windowClass == L"msctls_updown32";
}

std::string Name(const DialogTemplate& dialog, const DialogItemTemplate& item) {
    return std::to_string(dialog.id) + ": " + std::to_string(item.id) + " " + ToUtf8(item.text.View());
}

// The width of a text in dialog units: a Latin character is four wide by their definition, a Chinese one, being as wide
// as the font is high, some nine.
int WidthOf(std::wstring_view text) {
    int width = 0;
    for (const wchar_t character : text)
        width += character < 0x2000 ? 4 : 9;
    return width;
}

// What an item needs besides its text: a button's edges, the box or circle before a caption, a group's corners.
int FrameOf(const DialogItemTemplate& item) {
    if (item.windowClass != L"BUTTON")
        return 0;
    const DWORD kind = item.style & BS_TYPEMASK;
    return kind == BS_AUTOCHECKBOX || kind == BS_AUTORADIOBUTTON ? 14 : kind == BS_GROUPBOX ? 16 : 12;
}

bool ShowsText(const DialogItemTemplate& item) {
    return item.windowClass == L"STATIC" || item.windowClass == L"BUTTON";
}

// Zero for items of any height.
int ExpectedHeight(const DialogItemTemplate& item) {
    if (IsButton(item, BS_PUSHBUTTON) || IsButton(item, BS_DEFPUSHBUTTON) || item.windowClass == L"EDIT" ||
        IsSpin(item) || item.windowClass == L"SysDateTimePick32")
        return 14;
    if (IsRadio(item) || IsButton(item, BS_AUTOCHECKBOX))
        return 10;
    return item.windowClass == L"STATIC" ? 8 : 0;
}

CString English(const QcDtDictionary& table, const CString& text) {
    for (int index = 0; index < table.GetCount(); ++index) {
        const QcDtDictItem* entry = table.GetItem(index);
        if (entry->GetName() == text)
            return entry->GetStringValue();
    }
    return {};
}

bool IsWide(const DialogTemplate& dialog) {
    return std::any_of(std::begin(kPairs), std::end(kPairs),
                       [&](const DialogPair& pair) { return pair.wide == dialog.id; });
}

}  // namespace

TEST(DialogLayout, HasTheSizesThatAreFixed) {
    for (const UINT id : {2000U, 2001U}) {
        EXPECT_EQ(DialogOf(id).cx, 344);
        EXPECT_EQ(DialogOf(id).cy, 224);
    }
    for (const UINT id : {2008U, 2014U}) {
        EXPECT_EQ(DialogOf(id).cx, 216);
        EXPECT_EQ(DialogOf(id).cy, 200);
    }
}

TEST(DialogLayout, UsesTheFontOfTheSystemsDialogs) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        EXPECT_EQ(dialog.pointSize, 9) << dialog.id;
        EXPECT_EQ(dialog.face, L"MS Shell Dlg") << dialog.id;
    }
}

TEST(DialogLayout, KeepsItemsInsideTheMargins) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& item : dialog.items) {
            const Area inside = {kMargin, kMargin, dialog.cx - kMargin, dialog.cy - kMargin};
            EXPECT_TRUE(IsInside(AreaOf(item), inside)) << Name(dialog, item);
            EXPECT_GT(item.cx, 0) << Name(dialog, item);
            EXPECT_GT(item.cy, 0) << Name(dialog, item);
        }
}

// A spin button stands within its edit, the item before it; nothing else stands on anything.
TEST(DialogLayout, KeepsItemsApart) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (std::size_t one = 0; one < dialog.items.size(); ++one)
            for (std::size_t other = one + 1; other < dialog.items.size(); ++other) {
                const DialogItemTemplate& first = dialog.items[one];
                const DialogItemTemplate& second = dialog.items[other];
                if (IsGroupBox(first) != IsGroupBox(second))
                    continue;
                if (IsSpin(second) && other == one + 1) {
                    EXPECT_TRUE(IsInside(AreaOf(second), AreaOf(first))) << Name(dialog, second);
                    EXPECT_EQ(AreaOf(second).right, AreaOf(first).right) << Name(dialog, second);
                    continue;
                }
                EXPECT_FALSE(Overlap(AreaOf(first), AreaOf(second)))
                    << Name(dialog, first) << " and " << Name(dialog, second);
            }
}

TEST(DialogLayout, HasItemsInAGroupOrOutsideOfIt) {
    constexpr int kCaption = 11;
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& group : dialog.items) {
            if (!IsGroupBox(group))
                continue;
            const Area box = AreaOf(group);
            const Area inside = {box.left + kMargin, box.top + kCaption, box.right - kMargin, box.bottom - 5};
            int count = 0;
            for (const DialogItemTemplate& item : dialog.items) {
                if (IsGroupBox(item) || !Overlap(AreaOf(item), box))
                    continue;
                EXPECT_TRUE(IsInside(AreaOf(item), inside)) << Name(dialog, item);
                ++count;
            }
            EXPECT_GT(count, 1) << Name(dialog, group) << " groups nothing";
        }
}

TEST(DialogLayout, HasFieldsAndButtonsOfOneHeight) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& item : dialog.items) {
            const int height = ExpectedHeight(item);
            EXPECT_TRUE(height == 0 || item.cy == height) << Name(dialog, item);
        }
}

// A label beside a field is on the line of its text: half the difference of their heights below its top.
TEST(DialogLayout, HasLabelsInLineWithTheirFields) {
    constexpr int kBeside = 6;
    int count = 0;
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& label : dialog.items)
            for (const DialogItemTemplate& field : dialog.items) {
                const Area area = AreaOf(field);
                const bool isLabel = label.windowClass == L"STATIC" || IsButton(label, BS_AUTOCHECKBOX);
                const bool isBeside = (area.left >= label.x + label.cx && area.left <= label.x + label.cx + kBeside) ||
                                      (area.right <= label.x && area.right >= label.x - kBeside);
                if (!isLabel || HeightOf(field) != 14 || !isBeside || std::abs(field.y - label.y) > 14)
                    continue;
                EXPECT_EQ(label.y - field.y, (14 - label.cy) / 2) << Name(dialog, label);
                ++count;
            }
    EXPECT_GT(count, 60);
}

TEST(DialogLayout, HasOkAndCancelInTheLowerRightCorner) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        const Area ok = AreaOf(ItemOf(dialog, 1));
        const Area cancel = AreaOf(ItemOf(dialog, 2));
        EXPECT_EQ(cancel.right, dialog.cx - kMargin) << dialog.id;
        EXPECT_EQ(cancel.bottom, dialog.cy - kMargin) << dialog.id;
        EXPECT_EQ(ok.top, cancel.top) << dialog.id;
        EXPECT_EQ(cancel.left - ok.right, 4) << dialog.id;
    }
}

TEST(DialogLayout, HasRoomForTheChineseTexts) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs())
        for (const DialogItemTemplate& item : dialog.items)
            EXPECT_TRUE(!ShowsText(item) || WidthOf(item.text.View()) + FrameOf(item) <= item.cx) << Name(dialog, item);
}

TEST(DialogLayout, HasRoomForEnglishAndAThirdMoreInTheRoomyVariants) {
    QcDtDictionary languages;
    ASSERT_TRUE(languages.ReadFromXML(FromUtf8(SourceFolder() + "/data/languages/en.xml")));
    const QcDtDictionary* table = languages.FindDict(L"ORVODATABASE");
    ASSERT_NE(table, nullptr);
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        if (!IsWide(dialog))
            continue;
        for (const DialogItemTemplate& item : dialog.items) {
            if (!ShowsText(item) || item.text.IsEmpty())
                continue;
            const CString english = English(*table, item.text);
            EXPECT_FALSE(english.IsEmpty()) << Name(dialog, item);
            const int longer = static_cast<int>(std::ceil(WidthOf(english.View()) * 1.35));
            EXPECT_LE(longer + FrameOf(item), item.cx) << Name(dialog, item) << " " << ToUtf8(english.View());
        }
    }
}

// The keyboard visits one group after the other.
TEST(DialogLayout, HasGroupsBeforeWhatTheyHold) {
    for (const DialogTemplate& dialog : ModuleDialogs().Dialogs()) {
        const DialogItemTemplate* group = nullptr;
        for (const DialogItemTemplate& item : dialog.items) {
            if (IsGroupBox(item)) {
                group = &item;
                continue;
            }
            for (const DialogItemTemplate& box : dialog.items)
                EXPECT_TRUE(!IsGroupBox(box) || !IsInside(AreaOf(item), AreaOf(box)) || group == &box)
                    << Name(dialog, item) << " is visited with another group";
        }
    }
}
