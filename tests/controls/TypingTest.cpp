// What keys do in a masked edit, sent as messages and pressed as keys.
#include <string>

#include "controls/OrvoDateEdit.h"
#include "controls/OrvoDegreeEdit.h"
#include "controls/OrvoTimeEdit.h"
#include "controls/Typist.h"

namespace {

class Typing : public Typist {};
INSTANTIATE_TEST_SUITE_P(Both, Typing, testing::Values(Way::kMessages, Way::kKeys, Way::kInputMethod), NameOfWay);

}  // namespace

TEST_P(Typing, OverwritesAndGoesOnAndAround) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        const CString texts[] = {L"10:00", L"12:00", L"12:30", L"12:34"};
        const int places[] = {1, 3, 4, 0};
        edit.SetSel(0, 0);
        for (int count = 0; count < 4; ++count) {
            Type(edit, std::wstring(1, L"1234"[count]));
            EXPECT_EQ(TextOf(edit), texts[count]);
            EXPECT_EQ(SelectionOf(edit), (Selection{places[count], places[count] + 1}));
        }
        Type(edit, L"0");
        EXPECT_EQ(TextOf(edit), L"02:34");
    });
}

TEST_P(Typing, FillsDatesAndDegrees) {
    OrvoDateEdit date;
    RunWith(date, [&](EditDialog&) {
        Type(date, L"0622");
        EXPECT_EQ(TextOf(date), L"06月22日");
    });
    OrvoDegreeEdit degree(nullptr);
    RunWith(degree, [&](EditDialog&) {
        Type(degree, L"1162830");
        EXPECT_EQ(TextOf(degree), L"116度28分30秒");
        EXPECT_EQ(SelectionOf(degree), (Selection{0, 1}));
    });
}

TEST_P(Typing, StartsAtTheNearestPlace) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(2, 2);
        Type(edit, L"5");
        EXPECT_EQ(TextOf(edit), L"00:50");
        edit.SetSel(5, 5);
        Type(edit, L"1");
        EXPECT_EQ(TextOf(edit), L"10:50");
        edit.SetSel(0, -1);
        Type(edit, L"2");
        EXPECT_EQ(TextOf(edit), L"20:50") << "of a long selection one character is overwritten";
    });
}

TEST_P(Typing, MarksTheEditModifiedAndTellsTheDialog) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        Type(edit, L"0");
        EXPECT_TRUE(edit.GetModify()) << "also when the character is the same";
        Type(edit, L"7");
        ASSERT_GE(dialog.m_changes.GetSize(), 1);
        EXPECT_EQ(dialog.m_changes.GetAt(dialog.m_changes.GetSize() - 1), L"07:00");
    });
}

TEST_P(Typing, DropsWhatIsNotValid) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        edit.SetSel(3, 4);
        Type(edit, L"a:-+ _月é０");
        EXPECT_EQ(TextOf(edit), L"00:00");
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4}));
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST_P(Typing, AcceptsEveryPrintableCharacterWhenNoneIsNamed) {
    QcSunEdit edit;
    edit.SetGrammarString(L"_-__");
    edit.SetDefaultString(L"a-bc");
    RunWith(edit, [&](EditDialog&) {
        Type(edit, L"\U0001F600\U00020000");
        EXPECT_EQ(TextOf(edit), L"\U0001F600-\U00020000c") << "characters beyond the basic plane have one place, too";
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4}));
        Type(edit, L"\U000E0001 ");
        EXPECT_EQ(TextOf(edit), L"\U0001F600-\U00020000 ") << "an invisible one";
        Type(edit, L"月é ");
        EXPECT_EQ(TextOf(edit), L"月-é ");
        Type(edit, L"\x1\t\x7f\u200b\ufdd0");
        EXPECT_EQ(TextOf(edit), L"月-é ") << "controls, an invisible one and one that is no character";
        Type(edit, L"_");
        EXPECT_EQ(TextOf(edit), L"_-é ");
    });
}

TEST_P(Typing, AsksTheVirtualTestAndNotTheOneOfPlaces) {
    class OnlyOnes : public OrvoTimeEdit {
    public:
        using OrvoTimeEdit::IsValidChar;
        bool IsValidChar(wchar_t character) override { return character == L'1'; }
        bool IsValidChar(UINT) override {
            ++m_asked;
            return false;
        }
        int m_asked = 0;
    };
    OnlyOnes edit;
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        Type(edit, L"21");
        EXPECT_EQ(TextOf(edit), L"10:00");
        EXPECT_EQ(edit.m_asked, 0);
    });
}

TEST_P(Typing, DoesNotLookAtRangesEvenWithoutFaults) {
    OrvoTimeEdit edit;
    edit.SetNoFault(true);
    RunWith(edit, [&](EditDialog&) {
        Type(edit, L"9999");
        EXPECT_EQ(TextOf(edit), L"99:99");
    });
}

TEST_P(Typing, OfBackspaceRestoresTheDefaultAndStepsBack) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"12:34");
        edit.SetSel(4, 5);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"12:30");
        EXPECT_EQ(SelectionOf(edit), (Selection{3, 4}));
        EXPECT_TRUE(edit.GetModify());
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"12:00");
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 2}));
        Backspace(edit);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"00:00");
        EXPECT_EQ(SelectionOf(edit), (Selection{4, 5})) << "around the beginning";
    });
}

TEST_P(Typing, OfBackspaceRestoresAWholeSelection) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.m_strDefault = L"56.78";
        edit.SetWindowText(L"12:34");
        edit.SetSel(1, 4);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"16.74") << "fixed characters too";
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 1}));
    });
}

TEST_P(Typing, OfBackspaceLeavesBlanksWhereAllIsValid) {
    QcSunEdit edit;
    edit.SetGrammarString(L"__:__");
    edit.SetDefaultString(L"ab:cd");
    RunWith(edit, [&](EditDialog&) {
        edit.SetSel(1, 4);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"a   d");
        EXPECT_EQ(SelectionOf(edit), (Selection{0, 1}));
    });
}

TEST_P(Typing, OfBackspaceWithNothingSelectedOnlySteps) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.SetWindowText(L"12:34");
        edit.SetSel(2, 2);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"12:34");
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 2}));
        EXPECT_TRUE(edit.GetModify());
    });
}

TEST_P(Typing, OfBackspaceCopesWithAShortDefault) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog&) {
        edit.m_strDefault = L"7";
        edit.SetWindowText(L"12:34");
        edit.SetSel(0, -1);
        Backspace(edit);
        EXPECT_EQ(TextOf(edit), L"7 :  ");
    });
}

TEST_P(Typing, OfArrowsMovesAndNeverMarks) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        edit.SetSel(0, 1);
        for (const int place : {1, 3, 4, 0, 1}) {
            Right(edit);
            EXPECT_EQ(SelectionOf(edit), (Selection{place, place + 1}));
        }
        for (const int place : {0, 4, 3, 1, 0}) {
            Left(edit);
            EXPECT_EQ(SelectionOf(edit), (Selection{place, place + 1}));
        }
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST_P(Typing, OfAnyOtherKeyDoesNothing) {
    OrvoTimeEdit edit;
    RunWith(edit, [&](EditDialog& dialog) {
        edit.SetWindowText(L"12:34");
        dialog.m_changes.RemoveAll();
        edit.SetSel(3, 4);
        const std::pair<UINT, Qt::Key> keys[] = {
            {VK_DELETE, Qt::Key_Delete}, {VK_HOME, Qt::Key_Home},     {VK_END, Qt::Key_End},
            {VK_UP, Qt::Key_Up},         {VK_DOWN, Qt::Key_Down},     {VK_PRIOR, Qt::Key_PageUp},
            {VK_NEXT, Qt::Key_PageDown}, {VK_INSERT, Qt::Key_Insert}, {VK_F1 + 7, Qt::Key_F8}};
        for (const auto& [virtualKey, key] : keys) {
            Press(edit, virtualKey, key);
            EXPECT_EQ(TextOf(edit), L"12:34") << virtualKey;
            EXPECT_EQ(SelectionOf(edit), (Selection{3, 4})) << virtualKey;
        }
        EXPECT_FALSE(edit.GetModify());
        EXPECT_EQ(dialog.m_changes.GetSize(), 0);
    });
}

TEST_P(Typing, NeverHangsWithoutAPlaceToType) {
    QcSunEdit edit;
    edit.SetDefaultString(L"fixed");
    for (const wchar_t* grammar : {L"", L"fixed"}) {
        edit.SetGrammarString(grammar);
        RunWith(edit, [&](EditDialog&) {
            edit.SetSel(2, 3);
            Right(edit);
            Left(edit);
            EXPECT_EQ(SelectionOf(edit), (Selection{2, 3}));
            Backspace(edit);
            EXPECT_EQ(TextOf(edit), L"fi ed");
            EXPECT_EQ(SelectionOf(edit), (Selection{2, 2}));
        });
    }
}
