// The text class: searching, cutting, comparing, splitting and UTF-8.
#include "platform/base/CString.h"

#include <gtest/gtest.h>

TEST(CString, IsEmptyByDefaultAndFromNull) {
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_TRUE(CString(nullptr).IsEmpty());
    EXPECT_TRUE(CString(nullptr, 3).IsEmpty());
    EXPECT_STREQ(CString(), L"");
}

TEST(CString, TakesALeadingPartOfAText) {
    EXPECT_EQ(CString(L"abcdef", 3), L"abc");
    EXPECT_EQ(CString(L"abc", -1), L"");
    EXPECT_EQ(CString(L'x', 3), L"xxx");
}

TEST(CString, AssignsAPartOfItself) {
    CString text(L"0123456789");
    text = text.GetString() + 5;
    EXPECT_EQ(text, L"56789");
    text += text.GetString() + 3;
    EXPECT_EQ(text, L"5678989");
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, ClampsIndexesThatAreOutOfRange) {
    const CString text(L"abc");
    EXPECT_EQ(text.GetAt(-1), L'\0');
    EXPECT_EQ(text.GetAt(3), L'\0');
    EXPECT_EQ(text.GetAt(2), L'c');
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Left(9), L"abc");
    EXPECT_EQ(text.Right(2), L"bc");
    EXPECT_EQ(text.Right(9), L"abc");
    EXPECT_EQ(text.Right(-9), L"");
    EXPECT_EQ(text.Mid(-5), L"abc");
    EXPECT_EQ(text.Mid(1), L"bc");
    EXPECT_EQ(text.Mid(3), L"");
    EXPECT_EQ(text.Mid(99, 1), L"");
    EXPECT_EQ(text.Mid(1, 1), L"b");
    EXPECT_EQ(text.Mid(1, -1), L"");
}

TEST(CString, SetsACharacterOnlyWithinTheText) {
    CString text(L"abc");
    text.SetAt(1, L'X');
    text.SetAt(3, L'Y');
    text.SetAt(-1, L'Z');
    EXPECT_EQ(text, L"aXc");
}

TEST(CString, FindsFromAStartOn) {
    const CString text(L"a-b-c");
    EXPECT_EQ(text.Find(L'-'), 1);
    EXPECT_EQ(text.Find(L'-', 2), 3);
    EXPECT_EQ(text.Find(L'-', 4), -1);
    EXPECT_EQ(text.Find(L"b-"), 2);
    EXPECT_EQ(text.Find(L"bb"), -1);
    EXPECT_EQ(text.Find(L""), 0);
    EXPECT_EQ(text.ReverseFind(L'-'), 3);
    EXPECT_EQ(text.ReverseFind(L'z'), -1);
}

TEST(CString, DeletesAndInserts) {
    CString text(L"2010-12");
    EXPECT_EQ(text.Delete(4), 6);
    EXPECT_EQ(text.Insert(4, L"年"), 7);
    EXPECT_EQ(text, L"2010年12");
    EXPECT_EQ(text.Insert(99, L"月"), 8);
    EXPECT_EQ(text.Insert(0, text), 16);
    EXPECT_EQ(text, L"2010年12月2010年12月");
    EXPECT_EQ(text.Delete(8, 99), 8);
}

TEST(CString, ReplacesEveryOccurrenceOnce) {
    CString text(L"aaa");
    EXPECT_EQ(text.Replace(L"a", L"aa"), 3);
    EXPECT_EQ(text, L"aaaaaa");
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Replace(L"aa", nullptr), 3);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, FoldsOnlyAsciiLetters) {
    CString text(L"aZ09é中");
    EXPECT_EQ(text.MakeUpper(), L"AZ09é中");
    EXPECT_EQ(text.MakeLower(), L"az09é中");
    EXPECT_EQ(CString(L"SunStd").CompareNoCase(L"SUNSTD"), 0);
    EXPECT_NE(CString(L"é").CompareNoCase(L"É"), 0);
    EXPECT_LT(CString(L"a").CompareNoCase(L"B"), 0);
}

TEST(CString, ComparesOrdinally) {
    EXPECT_GT(CString(L"a").Compare(L"B"), 0);
    EXPECT_LT(CString(L"").Compare(L"a"), 0);
    EXPECT_EQ(CString(L"").Compare(nullptr), 0);
    EXPECT_TRUE(CString(L"a") < CString(L"b"));
    EXPECT_TRUE(CString(L"b") > CString(L"a"));
    EXPECT_TRUE(L"a" == CString(L"a"));
    EXPECT_TRUE(L"a" != CString(L"b"));
    EXPECT_TRUE(CString(L"a") != L"b");
}

TEST(CString, IsComparedAsATextWithinPairsToo) {
    // Made in either order, so that no order of addresses fits both.
    const CString texts[] = {L"b", L"a", L"b"};
    for (int i = 0; i < 2; ++i) {
        const CString& left = texts[i];
        const CString& right = texts[i + 1];
        const bool isLess = left.View() < right.View();
        EXPECT_EQ(std::pair(left, 1) < std::pair(right, 1), isLess);
        EXPECT_EQ(left <= right, isLess);
        EXPECT_EQ(left >= right, !isLess);
    }
    EXPECT_TRUE(std::pair(texts[0], 1) < std::pair(texts[2], 2));
    EXPECT_TRUE(texts[0] <= texts[2] && texts[0] >= texts[2]);
}

TEST(CString, TrimsAllKindsOfWhiteSpace) {
    CString text(L" \t\r\n\u3000 a b \u00A0");
    EXPECT_EQ(text.Trim(), L"a b");
    CString blank(L"  ");
    EXPECT_TRUE(blank.Trim().IsEmpty());
}

TEST(CString, JoinsTextsAndCharacters) {
    EXPECT_EQ(CString(L"a") + L"b" + CString(L"c") + L'd', L"abcd");
    EXPECT_EQ(L"x" + CString(L"y"), L"xy");
    EXPECT_EQ(L'x' + CString(L"y"), L"xy");
    CString text(L"a");
    text += L'b';
    text += text;
    EXPECT_EQ(text, L"abab");
}

TEST(CutStrToArr, KeepsEmptyPiecesBetweenSeparators) {
    CStringArray pieces;
    CutStrToArr(L"a--b-", L"-", pieces);
    ASSERT_EQ(pieces.GetSize(), 4);
    EXPECT_EQ(pieces.GetAt(0), L"a");
    EXPECT_EQ(pieces.GetAt(1), L"");
    EXPECT_EQ(pieces.GetAt(2), L"b");
    EXPECT_EQ(pieces.GetAt(3), L"");
    EXPECT_EQ(pieces.GetAt(4), L"");
    EXPECT_EQ(pieces.GetAt(-1), L"");
}

TEST(CutStrToArr, GivesNoPieceForAnEmptyTextAndDropsWhatWasThere) {
    CStringArray pieces;
    pieces.Add(L"old");
    CutStrToArr(L"", L"-", pieces);
    EXPECT_EQ(pieces.GetSize(), 0);
    pieces.Add(L"old");
    CutStrToArr(nullptr, L"-", pieces);
    EXPECT_EQ(pieces.GetSize(), 0);
}

TEST(CutStrToArr, GivesTheWholeTextWithoutASeparator) {
    CStringArray pieces;
    CutStrToArr(L"a-b", L"", pieces);
    ASSERT_EQ(pieces.GetSize(), 1);
    EXPECT_EQ(pieces.GetAt(0), L"a-b");
    CutStrToArr(L"a<>b<>c", L"<>", pieces);
    EXPECT_EQ(pieces.GetSize(), 3);
    // The text may be one of the pieces that are dropped.
    CutStrToArr(pieces.GetAt(1), L"<>", pieces);
    ASSERT_EQ(pieces.GetSize(), 1);
    EXPECT_EQ(pieces.GetAt(0), L"b");
}

TEST(Utf8, TurnsEveryLengthOfCharacterAndBack) {
    const CString wide(L"aé中\U0001F31E");
    const std::string bytes = "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x8C\x9E";
    EXPECT_EQ(ToUtf8(wide.View()), bytes);
    EXPECT_EQ(FromUtf8(bytes), wide);
}

TEST(Utf8, ReadsAPairOfSurrogatesAsOneCharacter) {
    const wchar_t pair[] = {static_cast<wchar_t>(0xD83C), static_cast<wchar_t>(0xDF1E)};
    EXPECT_EQ(ToUtf8(std::wstring_view(pair, 2)), "\xF0\x9F\x8C\x9E");
    EXPECT_EQ(ToUtf8(std::wstring_view(pair, 1)), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(std::wstring_view(pair + 1, 1)), "\xEF\xBF\xBD");
}

TEST(Utf8, ReplacesBytesThatAreNoCharacters) {
    EXPECT_EQ(FromUtf8("a\xFF"
                       "b"),
              L"a\uFFFDb");
    EXPECT_EQ(FromUtf8("\xC0\x80"), L"\uFFFD\uFFFD");            // an overlong zero
    EXPECT_EQ(FromUtf8("\xE4\xB8"), L"\uFFFD\uFFFD");            // cut short
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");  // a surrogate
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80").GetLength(), 4);      // beyond the last character
}
