// Texts of drawings without their codes.
#include "analysis/PlainDrawingText.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Pair = std::pair<const wchar_t*, const wchar_t*>;

}  // namespace

TEST(PlainDrawingText, OfALineHasNoPercentCodes) {
    for (const auto& [written, plain] : {Pair{L"3-402-1", L"3-402-1"},
                                         {L"  3-402-1 \t", L"3-402-1"},
                                         {L"%%u3-402-1%%u", L"3-402-1"},
                                         {L"%%O%%K3%%k", L"3"},
                                         {L"%%c20 %%p5 45%%d", L"Ø20 ±5 45°"},
                                         {L"100%%%", L"100%"},
                                         {L"%%065%%066", L"AB"},
                                         {L"50%", L"50%"},
                                         {L"%%", L"%%"},
                                         {L"%%x", L"%%x"},
                                         {L"%%06", L"%%06"},
                                         {L"%%999", L"%%999"},
                                         {L"%%007a", L"a"},
                                         {L"A\\Pb {c}", L"A\\Pb {c}"},
                                         {L"   ", L""},
                                         {L"", L""}})
        EXPECT_EQ(PlainText(written), plain) << ToUtf8(written);
}

TEST(PlainDrawingText, OfSeveralLinesHasNoCodesAtAll) {
    for (const auto& [written, plain] : {Pair{L"3-402-1", L"3-402-1"},
                                         {L"3-402-1\\P1.5 x 1.2", L"3-402-1 1.5 x 1.2"},
                                         {L"{\\fArial|b0|i0|c134|p34;3-402-1}", L"3-402-1"},
                                         {L"\\A1;\\H2.5x;\\C7;\\c255;\\W0.8;\\Q15;\\T1.1;\\pi0,l2;3-1", L"3-1"},
                                         {L"\\Fgbenor,gbcbig;窗1", L"窗1"},
                                         {L"\\L3\\l-\\O4\\o-\\K1\\k", L"3-4-1"},
                                         {L"A\\~B\\NC", L"A B C"},
                                         {L"\\S1/2;", L"1/2"},
                                         {L"3 \\S1#2; \\S+1^-2;", L"3 1/2 +1/-2"},
                                         {L"\\{a\\}\\\\b", L"{a}\\b"},
                                         {L"{{\\C1;a}{b}}", L"ab"},
                                         {L"a^Ib^Jc^ d", L"a b c^d"},
                                         {L"%%c5%%d", L"Ø5°"},
                                         {L"\\P\\P3\\P", L"3"},
                                         {L"{\\fArial;}", L""},
                                         {L"a\\", L"a\\"},
                                         {L"a^", L"a^"},
                                         {L"\\H2.5", L"2.5"},
                                         {L"\\S1/2", L"1/2"},
                                         {L"\\S", L""},
                                         {L"\\z", L"z"}})
        EXPECT_EQ(PlainLongText(written), plain) << ToUtf8(written);
}
