// The masked edit by itself: its fields, the ways of its caret, and texts that do not fit the template.
#include "controls/QcSunEdit.h"

#include <gtest/gtest.h>

#include <string>

#include "controls/EditDialog.h"

namespace {

// Typeable at 1, 2, 5.
constexpr const wchar_t* kGrammar = L"[__:-_]";

void Fill(QcSunEdit& edit) {
    edit.SetGrammarString(kGrammar);
    edit.SetDefaultString(L"[12:-3]");
}

}  // namespace

TEST(QcSunEdit, IsEmptyAtFirst) {
    const QcSunEdit edit;
    EXPECT_EQ(edit.m_strDefault, L"");
    EXPECT_EQ(edit.m_strGrammar, L"");
    EXPECT_EQ(edit.m_strValidChars, L"");
    EXPECT_FALSE(edit.m_bNoFault);
    EXPECT_EQ(edit.GetLength(), 0);
}

TEST(QcSunEdit, GivesItsFieldsBack) {
    QcSunEdit edit;
    edit.SetGrammarString(L"__度");
    edit.SetDefaultString(L"00度x");
    edit.SetValidChars(L"01");
    edit.SetNoFault(true);
    EXPECT_EQ(edit.GetGrammarString(), L"__度");
    EXPECT_EQ(edit.m_strGrammar, L"__度");
    EXPECT_EQ(edit.GetDefaultString(), L"00度x");
    EXPECT_EQ(edit.m_strDefault, L"00度x");
    EXPECT_EQ(edit.GetValidChars(), L"01");
    EXPECT_EQ(edit.m_strValidChars, L"01");
    EXPECT_TRUE(edit.IsNoFault());
    EXPECT_TRUE(edit.m_bNoFault);
    edit.SetNoFault(false);
    EXPECT_FALSE(edit.IsNoFault());
    EXPECT_EQ(edit.GetLength(), 3) << "the template's length, not the default's";
}

TEST(QcSunEdit, ShowsItsDefaultText) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"other");
        edit.SetModify(TRUE);
        edit.SetDefault();
        EXPECT_EQ(TextOf(edit), L"[12:-3]");
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 0}));
    });
}

TEST(QcSunEdit, IsActiveWhereTheSelectionStarts) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(2, 5);
        EXPECT_EQ(edit.GetActivePos(), 2);
        edit.SetSel(4, 4);
        EXPECT_EQ(edit.GetActivePos(), 4);
    });
}

// From each start: the places told by hand from the template.
TEST(QcSunEdit, MovesToTheNearestPlaceFromTheCaretOn) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        const int expected[] = {1, 1, 2, 5, 5, 5, 1, 1};
        for (int start = 0; start <= 7; ++start) {
            edit.SetSel(start, start);
            EXPECT_EQ(edit.MoveToValidPos(), expected[start]) << start;
            EXPECT_EQ(SelectionOf(edit), (Selection{expected[start], expected[start] + 1})) << start;
        }
        edit.SetSel(2, 7);
        EXPECT_EQ(edit.MoveToValidPos(), 2) << "the start of the selection counts";
        EXPECT_EQ(SelectionOf(edit), (Selection{2, 3}));
    });
}

TEST(QcSunEdit, MovesToTheNextPlaceAndAroundTheEnd) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        const int expected[] = {1, 2, 5, 5, 5, 1, 1, 1};
        for (int start = 0; start <= 7; ++start) {
            edit.SetSel(start, start);
            EXPECT_EQ(edit.MoveToNextPos(), expected[start]) << start;
            EXPECT_EQ(SelectionOf(edit), (Selection{expected[start], expected[start] + 1})) << start;
        }
    });
}

TEST(QcSunEdit, MovesToThePlaceBeforeAndAroundTheBeginning) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        const int expected[] = {5, 5, 1, 2, 2, 2, 5, 5};
        for (int start = 0; start <= 7; ++start) {
            edit.SetSel(start, start);
            EXPECT_EQ(edit.MoveToPrePos(), expected[start]) << start;
            EXPECT_EQ(SelectionOf(edit), (Selection{expected[start], expected[start] + 1})) << start;
        }
    });
}

TEST(QcSunEdit, MovesWithoutMarkingItselfModified) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog& dialog) {
        edit.MoveToValidPos();
        edit.MoveToNextPos();
        edit.MoveToPrePos();
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST(QcSunEdit, LeavesTheSelectionAloneWhenNothingCanBeTyped) {
    for (const wchar_t* grammar : {L"", L"12:45"}) {
        QcSunEdit edit;
        edit.SetGrammarString(grammar);
        edit.SetDefaultString(L"12:45");
        RunWith(edit, [&](EditDialog&) {
            edit.SetSel(1, 3);
            EXPECT_EQ(edit.MoveToValidPos(), 1);
            EXPECT_EQ(edit.MoveToNextPos(), 1);
            EXPECT_EQ(edit.MoveToPrePos(), 1);
            EXPECT_EQ(SelectionOf(edit), (Selection{1, 3}));
        });
    }
}

TEST(QcSunEdit, ReplacesTheSelectionByOneCharacter) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(1, 3);
        edit.replaceChar(L'月');
        EXPECT_EQ(TextOf(edit), L"[月:-3]");
        EXPECT_EQ(SelectionOf(edit), (Selection{2, 2}));
        EXPECT_TRUE(edit.GetModify());
    });
}

TEST(QcSunEdit, NeverReplacesByTheZeroCharacter) {
    QcSunEdit edit;
    Fill(edit);
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(1, 3);
        edit.replaceChar(L'\0');
        EXPECT_EQ(TextOf(edit), L"[12:-3]");
    });
}

TEST(QcSunEdit, AcceptsItsValidCharactersAlone) {
    QcSunEdit edit;
    edit.SetValidChars(L"07月 ");
    for (const wchar_t character : std::wstring(L"07月 "))
        EXPECT_TRUE(edit.IsValidChar(character));
    for (const wchar_t character : std::wstring(L"1a日\t\b"))
        EXPECT_FALSE(edit.IsValidChar(character));
    EXPECT_FALSE(edit.IsValidChar(L'\0')) << "the end of the text is none of its characters";
}

TEST(QcSunEdit, KeepsToTheTextWhenItIsShorterThanTheTemplate) {
    QcSunEdit edit;
    edit.SetGrammarString(L"__:__");
    edit.SetDefaultString(L"");
    RunWith(edit, [&](EditDialog&) {
        EXPECT_EQ(edit.MoveToValidPos(), 0);
        EXPECT_EQ(edit.MoveToNextPos(), 1);
        EXPECT_EQ(edit.MoveToPrePos(), 4);
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 0}));
        for (int count = 0; count < 8; ++count)
            edit.SendMessage(WM_CHAR, L'7', 1);
        EXPECT_EQ(TextOf(edit), L"77777");
        for (int count = 0; count < 8; ++count)
            edit.SendMessage(WM_KEYDOWN, VK_BACK, 1);
        EXPECT_EQ(TextOf(edit).GetLength(), 5);
    });
}

TEST(QcSunEdit, BearsTextsOfAnyLengthAndContent) {
    QcSunEdit edit;
    edit.SetGrammarString(L"__:__");
    edit.SetDefaultString(L"00:00");
    edit.SetValidChars(L"0123456789");
    RunWith(edit, [&](EditDialog&) {
        const std::wstring emoji = L"😀é月";
        for (const std::wstring& text : {std::wstring(10000, L'x'), emoji, std::wstring()}) {
            edit.SetWindowText(text.c_str());
            edit.SetSel(0, -1);
            EXPECT_EQ(edit.GetActivePos(), 0);
            const int length = TextOf(edit).GetLength();
            ASSERT_EQ(length, static_cast<int>(text.size()));
            edit.SetSel(length, length);
            EXPECT_EQ(edit.MoveToValidPos(), length == 3 ? 3 : 0);
            edit.SetSel(length, length);
            edit.MoveToPrePos();
            edit.SetSel(length, length);
            edit.SendMessage(WM_CHAR, L'5', 1);
            edit.SetSel(0, -1);
            edit.SendMessage(WM_KEYDOWN, VK_BACK, 1);
            EXPECT_EQ(TextOf(edit).GetAt(0), L'0');
            EXPECT_EQ(TextOf(edit).GetLength(), length == 10000 ? length : length + 1);
        }
    });
}

TEST(QcSunEdit, DoesNothingHarmfulWithoutAWindow) {
    QcSunEdit edit;
    Fill(edit);
    edit.SetDefault();
    edit.replaceChar(L'1');
    EXPECT_EQ(edit.GetActivePos(), 0);
    EXPECT_EQ(edit.MoveToValidPos(), 1);
    EXPECT_EQ(edit.MoveToNextPos(), 1);
    EXPECT_EQ(edit.MoveToPrePos(), 5);
}
