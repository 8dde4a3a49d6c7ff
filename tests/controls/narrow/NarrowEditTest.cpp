// Characters that come in two halves, typed into a masked edit: every one has one place, as where wchar_t is wider.
#include <gtest/gtest.h>

#include "controls/QcSunEdit.h"
#include "platform/base/TextNumber.h"

// No number is read in these tests.
int _wtoi(const wchar_t*) {
    return 0;
}

namespace {

static_assert(sizeof(wchar_t) == 2, "this program is for the narrow kind");

class Edit : public QcSunEdit {
public:
    Edit(const CString& grammar, const CString& text) {
        SetGrammarString(grammar);
        SetDefaultString(text);
        SetDefault();
    }
    // Unit by unit, as a keyboard does it.
    void Type(const CString& text) {
        for (int index = 0; index < text.GetLength(); ++index)
            OnChar(text.GetAt(index), 1, 0);
    }
    void Press(UINT key) { OnKeyDown(key, 1, 0); }
    CString Text() const {
        CString text;
        GetWindowText(text);
        return text;
    }
    CString Selected() const {
        int start = 0;
        int end = 0;
        GetSel(start, end);
        return Text().Mid(start, end - start);
    }
};

TEST(NarrowEdit, OverwritesOnePlaceWithAPair) {
    Edit edit(L"_-__", L"a-bc");
    edit.Type(L"\U0001F600");
    EXPECT_EQ(edit.Text(), CString(L"\U0001F600-bc"));
    EXPECT_EQ(edit.Selected(), CString(L"b"));
    EXPECT_EQ(edit.GetActivePos(), 3);
    EXPECT_TRUE(edit.GetModify());
    edit.Type(L"x\U00020000");
    EXPECT_EQ(edit.Text(), CString(L"\U0001F600-x\U00020000"));
    EXPECT_EQ(edit.Selected(), CString(L"\U0001F600")) << "around the end";
    edit.Type(L"\u6708");
    EXPECT_EQ(edit.Text(), CString(L"\u6708-x\U00020000"));
    EXPECT_EQ(edit.Selected(), CString(L"x"));
}

TEST(NarrowEdit, WaitsForTheOtherHalf) {
    Edit edit(L"__", L"ab");
    edit.Type(L"\xD83D");
    EXPECT_EQ(edit.Text(), CString(L"ab"));
    EXPECT_FALSE(edit.GetModify());
    edit.Press(0xE7);  // the key of which a character comes unit by unit
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"\U0001F600b"));
}

TEST(NarrowEdit, DropsHalvesThatStandAlone) {
    Edit edit(L"___", L"abc");
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"abc"));
    EXPECT_FALSE(edit.GetModify());
    edit.Type(L"\xD83D");
    edit.Type(L"x");
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"xbc"));
    edit.Type(L"\xD83D");
    edit.Type(L"\x01");
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"xbc"));
    edit.Type(L"\xD83D");
    edit.Type(L"\xD83D");
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"x\U0001F600c"));
    edit.Type(L"\xDE00");
    EXPECT_EQ(edit.Text(), CString(L"x\U0001F600c")) << "a half counts once";
}

TEST(NarrowEdit, TakesPrintablePairsOnly) {
    Edit edit(L"_", L"a");
    edit.Type(L"\U000E0001\U0001FFFE\U0010FFFE\U000E0FFF");
    EXPECT_EQ(edit.Text(), CString(L"a")) << "a format character, and what stands for no character";
    for (const wchar_t* const character : {L"\U00010000", L"\U0001F600", L"\U00020000", L"\U000F0000", L"\U0010FFFD"}) {
        edit.Type(character);
        EXPECT_EQ(edit.Text(), CString(character));
    }
}

TEST(NarrowEdit, LooksForPairsAmongTheValidCharacters) {
    Edit edit(L"__", L"ab");
    edit.SetValidChars(L"1\U0001F600\U00020001");
    edit.Type(L"\U0001F601\U00020000");
    edit.Type(L"\U0001F401");  // the first half of the one with the second half of the other
    EXPECT_EQ(edit.Text(), CString(L"ab"));
    edit.Type(L"\U0001F600\u0031");
    EXPECT_EQ(edit.Text(), CString(L"\U0001F600\u0031"));
}

TEST(NarrowEdit, AsksTheVirtualTestAboutHalves) {
    class OnlyPlain : public Edit {
    public:
        using Edit::Edit;
        bool IsValidChar(wchar_t character) override { return character < 0xD800; }
    };
    OnlyPlain edit(L"__", L"ab");
    edit.Type(L"\U0001F600y");
    EXPECT_EQ(edit.Text(), CString(L"yb"));
}

TEST(NarrowEdit, StepsOverPairsAsOverCharacters) {
    Edit edit(L"__-_", L"\U0001F600b-\U0001F601");
    EXPECT_EQ(edit.MoveToValidPos(), 0);
    EXPECT_EQ(edit.Selected(), CString(L"\U0001F600"));
    edit.Press(VK_RIGHT);
    EXPECT_EQ(edit.Selected(), CString(L"b"));
    edit.Press(VK_RIGHT);
    EXPECT_EQ(edit.Selected(), CString(L"\U0001F601"));
    edit.Press(VK_RIGHT);
    EXPECT_EQ(edit.Selected(), CString(L"\U0001F600"));
    edit.Press(VK_LEFT);
    EXPECT_EQ(edit.Selected(), CString(L"\U0001F601"));
    edit.Press(VK_LEFT);
    EXPECT_EQ(edit.Selected(), CString(L"b"));
}

TEST(NarrowEdit, FindsPlacesBehindPairsOfTheTemplate) {
    Edit edit(L"\U0001F600_\U0001F600_", L"\U0001F600a\U0001F600b");
    edit.Type(L"1");
    EXPECT_EQ(edit.Selected(), CString(L"b"));
    edit.Type(L"2");
    EXPECT_EQ(edit.Text(), CString(L"\U0001F600\u0031\U0001F600\u0032"));
    EXPECT_EQ(edit.Selected(), CString(L"1"));
}

TEST(NarrowEdit, RestoresOneCharacterForOne) {
    Edit open(L"__", L"ab");
    open.Type(L"\U0001F600\U0001F601");
    open.Press(VK_BACK);
    EXPECT_EQ(open.Text(), CString(L" \U0001F601"));
    EXPECT_EQ(open.Selected(), CString(L"\U0001F601"));

    Edit listed(L"__-\U0001F602", L"\U0001F600b");
    listed.SetValidChars(L"12");
    listed.SetWindowText(L"12-\U0001F603");
    listed.SetSel(0, 5);
    listed.Press(VK_BACK);
    EXPECT_EQ(listed.Text(), CString(L"\U0001F600b-\U0001F602")) << "from the default text, then from the template";
}

}  // namespace
