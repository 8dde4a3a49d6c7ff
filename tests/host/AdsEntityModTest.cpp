// Writing chains back: what changes, what keeps its bytes, where new groups go, and what is refused.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>

#include "platform/host/AdsEntity.h"
#include "support/DrawingForTests.h"
#include "support/OwnedChain.h"

namespace {

void SetText(resbuf* buffer, const wchar_t* text) {
    acutDelString(buffer->resval.rstring);
    acutNewString(text, buffer->resval.rstring);
}

resbuf* Append(resbuf* chain, int type) {
    while (chain->rbnext)
        chain = chain->rbnext;
    return chain->rbnext = acutNewRb(type);
}

// One entity with the handle A1, and Y with the handle A2 behind it.
class AdsEntityMod : public testing::Test {
protected:
    using Change = std::function<void(resbuf*)>;

    // Opens a drawing in which the entity's groups are these (with the first, "0", and the handle before them).
    void Open(const std::string& groups) {
        m_drawing.reset();  // the one before is the host's no more
        m_drawing = std::make_unique<DrawingForTests>(ChineseDrawing("0\nX\n5\nA1\n" + groups + "0\nY\n5\nA2\n"));
    }
    // Fetches the chain, lets the test change it, and writes it back.
    int Modify(const Change& change) {
        const OwnedChain chain = DataOf(m_drawing->Id(0xA1));
        change(chain.get());
        return acdbEntMod(chain.get());
    }
    std::string Text() const { return m_drawing->Text(0xA1); }
    // Insists that the drawing refuses the change and stays as it is.
    void ExpectRefused(const Change& change) {
        const std::string before = Text();
        EXPECT_EQ(Modify(change), RTREJ);
        EXPECT_EQ(Text(), before);
        EXPECT_FALSE(m_drawing->Database().IsModified());
    }

    std::unique_ptr<DrawingForTests> m_drawing;
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST_F(AdsEntityMod, ChangesNothingWithTheChainAsItCame) {
    Open(
        "8\n\xC7\xBD\n10\n 1.50\n20\n2.0e0\n30\n-0.0\n40\n1.50\n41\nabc\n70\n     7\n71\n65535\n290\n     1\n"
        "330\n00a2\n340\nDEAD\n310\n00fF7\n80\n what \n1\n\\U+0041\n160\n+5\n1040\n01.0\n");
    const std::string before = Text();
    EXPECT_EQ(Modify([](resbuf*) {}), RTNORM);
    EXPECT_EQ(Text(), before);
    EXPECT_FALSE(m_drawing->Database().IsModified());
}

TEST_F(AdsEntityMod, KeepsTheBytesOfEverythingButTheChange) {
    Open("40\n1.50\n41\n2.50\n1\n\\U+0041\n");
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 41)->resval.rreal = 0.1; }), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|40=1.50|41=0.1|1=\\U+0041|");
    EXPECT_TRUE(m_drawing->Database().IsModified());
}

TEST_F(AdsEntityMod, WritesNumbersInTheShortestFormThatReadsBack) {
    Open("40\n1\n41\n1\n42\n1\n43\n1\n44\n1\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  FindBuffer(chain, 40)->resval.rreal = 45;
                  FindBuffer(chain, 41)->resval.rreal = 1.0 / 3.0;
                  FindBuffer(chain, 42)->resval.rreal = -2.5;
                  FindBuffer(chain, 43)->resval.rreal = 1e300;
                  FindBuffer(chain, 44)->resval.rreal = 5e-324;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|40=45|41=0.3333333333333333|42=-2.5|43=1e+300|44=5e-324|");
}

TEST_F(AdsEntityMod, ChangesOneCoordinateAndKeepsTheBytesOfTheOthers) {
    Open("10\n1.0\n20\n2.0\n30\n3.0\n");
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 10)->resval.rpoint[1] = 9; }), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|10=1.0|20=9|30=3.0|");
}

TEST_F(AdsEntityMod, ChangesTheOneOfEqualCodesThatTheChainChanges) {
    Open("10\n1\n20\n2\n42\n0.0\n10\n1\n20\n2\n42\n0.0\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  FindBuffer(chain, 10, 1)->resval.rpoint[0] = 7;
                  FindBuffer(chain, 42, 1)->resval.rreal = 1;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|10=1|20=2|42=0.0|10=7|20=2|42=1|");
}

TEST_F(AdsEntityMod, WritesWholeNumbersOfEveryWidth) {
    Open("70\n1\n90\n1\n160\n1\n290\n0\n1071\n1\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  FindBuffer(chain, 70)->resval.rint = -32768;
                  FindBuffer(chain, 90)->resval.rlong = 2147483647;
                  FindBuffer(chain, 160)->resval.mnInt64 = std::numeric_limits<std::int64_t>::min();
                  FindBuffer(chain, 290)->resval.rint = 1;
                  FindBuffer(chain, 1071)->resval.rlong = -1;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|70=-32768|90=2147483647|160=-9223372036854775808|290=1|1071=-1|");
}

TEST_F(AdsEntityMod, EncodesTexts) {
    Open("1\nold\n2\nold\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  SetText(FindBuffer(chain, 1), L"窗");
                  SetText(FindBuffer(chain, 2), L"\x20AC 𠮷");  // the code page of the drawing has neither
              }),
              RTNORM);
    const OwnedChain again = DataOf(m_drawing->Id(0xA1));
    EXPECT_STREQ(FindBuffer(again.get(), 1)->resval.rstring, L"窗");
    EXPECT_STREQ(FindBuffer(again.get(), 2)->resval.rstring, L"\x20AC 𠮷");
    EXPECT_EQ(m_drawing->Groups(0xA1)[2].value, "\xB4\xB0");
}

TEST_F(AdsEntityMod, WritesBytesAsHexadecimalDigits) {
    Open("310\n00fF\n");
    EXPECT_EQ(Modify([](resbuf* chain) { std::memcpy(FindBuffer(chain, 310)->resval.rbinary.buf, "\x1A\xB0", 2); }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|310=1AB0|");
}

TEST_F(AdsEntityMod, WritesNamesAsHandles) {
    Open("330\n0\n340\nA2\n350\nA2\n");
    const std::uint64_t other = m_drawing->Id(0xA2).asOldId();
    EXPECT_EQ(Modify([other](resbuf* chain) {
                  FindBuffer(chain, 330)->resval.rlname[0] = other;
                  FindBuffer(chain, 340)->resval.rlname[0] = 0;
                  FindBuffer(chain, 350)->resval.rlname[0] = 0;
                  FindBuffer(chain, 350)->resval.rlname[1] = 0xBEEF;  // a handle of nothing in the drawing
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|330=A2|340=0|350=BEEF|");
}

TEST_F(AdsEntityMod, KeepsTheSecondWordOfNamesWhileTheDrawingIsOpen) {
    Open("330\n00A2\n330\nA2\n330\nA2\n");
    const auto second = [this](int n) {
        const OwnedChain chain = DataOf(m_drawing->Id(0xA1));
        return FindBuffer(chain.get(), 330, n)->resval.rlname[1];
    };
    EXPECT_EQ(Modify([](resbuf* chain) {
                  FindBuffer(chain, 330, 0)->resval.rlname[1] = 71;
                  FindBuffer(chain, 330, 2)->resval.rlname[1] = 73;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|330=00A2|330=A2|330=A2|");
    EXPECT_EQ(second(0), 71U);
    EXPECT_EQ(second(1), 0U);
    EXPECT_EQ(second(2), 73U);
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 330, 2)->resval.rlname[1] = 0; }), RTNORM);
    EXPECT_EQ(second(0), 71U);
    EXPECT_EQ(second(2), 0U);
}

TEST_F(AdsEntityMod, ForgetsTheSecondWordWithTheFirst) {
    Open("330\nA2\n");
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 330)->resval.rlname[1] = 71; }), RTNORM);
    std::vector<DxfGroup> groups = m_drawing->Groups(0xA1);
    groups[2].value = "A1";
    ASSERT_TRUE(m_drawing->Database().SetGroups(m_drawing->Id(0xA1), groups));
    const OwnedChain chain = DataOf(m_drawing->Id(0xA1));
    EXPECT_EQ(FindBuffer(chain.get(), 330)->resval.rlname[0], m_drawing->Id(0xA1).asOldId());
    EXPECT_EQ(FindBuffer(chain.get(), 330)->resval.rlname[1], 0U);
}

TEST_F(AdsEntityMod, AppendsWhatTheEntityLacks) {
    Open("8\n0\n");
    const std::uint64_t other = m_drawing->Id(0xA2).asOldId();
    EXPECT_EQ(Modify([other](resbuf* chain) {
                  Append(chain, 62)->resval.rint = 5;
                  resbuf* point = Append(chain, 10);
                  point->resval.rpoint[0] = 1;
                  point->resval.rpoint[2] = 3.5;
                  SetText(Append(chain, 1), L"窗");
                  resbuf* name = Append(chain, 330);
                  name->resval.rlname[0] = other;
                  name->resval.rlname[1] = 9;
                  Append(chain, 62)->resval.rint = 6;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|8=0|62=5|10=1|20=0|30=3.5|1=\xB4\xB0|330=A2|62=6|");
    const OwnedChain again = DataOf(m_drawing->Id(0xA1));
    EXPECT_EQ(FindBuffer(again.get(), 330)->resval.rlname[1], 9U);
}

TEST_F(AdsEntityMod, AppendsPointsThatComeBackWhole) {
    Open("38\n1.0\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  for (int code = 10; code <= 18; ++code) {
                      resbuf* point = Append(chain, code);
                      point->resval.rpoint[0] = code;
                      point->resval.rpoint[1] = 2;
                      point->resval.rpoint[2] = 3;
                  }
                  Append(chain, 38)->resval.rreal = 4;  // a second elevation, not the z of the point in front of it
              }),
              RTNORM);
    const OwnedChain again = DataOf(m_drawing->Id(0xA1));
    for (int code = 10; code <= 18; ++code) {
        const double* point = FindBuffer(again.get(), code)->resval.rpoint;
        EXPECT_EQ(point[0], code);
        EXPECT_EQ(point[1], 2) << code;
        EXPECT_EQ(point[2], 3) << code;
    }
    EXPECT_EQ(FindBuffer(again.get(), 38, 0)->resval.rreal, 1);
    EXPECT_EQ(FindBuffer(again.get(), 38, 1)->resval.rreal, 4);
}

TEST_F(AdsEntityMod, RefusesANumberThatWouldBecomeACoordinate) {
    Open("18\n1\n28\n2\n");
    ExpectRefused([](resbuf* chain) { Append(chain, 38)->resval.rreal = 5; });
    EXPECT_EQ(Modify([](resbuf* chain) {
                  Append(chain, 62)->resval.rint = 1;
                  Append(chain, 38)->resval.rreal = 5;
              }),
              RTNORM)
        << "behind something else it is the elevation";
    EXPECT_EQ(Text(), "0=X|5=A1|18=1|28=2|62=1|38=5|");
    Open("10\n1\n");
    ExpectRefused([](resbuf* chain) { Append(chain, 20)->resval.rreal = 5; });
    Open("1010\n1\n1020\n2\n");
    ExpectRefused([](resbuf* chain) { Append(chain, 1030)->resval.rreal = 5; });
}

TEST_F(AdsEntityMod, AppendsBeforeExtendedDataAndThatAtTheEnd) {
    Open("8\n0\n1001\nACAD\n1070\n1\n");
    EXPECT_EQ(Modify([](resbuf* chain) {
                  Append(chain, 1040)->resval.rreal = 2;
                  Append(chain, 62)->resval.rint = 5;
              }),
              RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|8=0|62=5|1001=ACAD|1070=1|1040=2|");
}

TEST_F(AdsEntityMod, AppendsBeforeAnEmbeddedObject) {
    Open("8\n0\n101\nEmbedded Object\n70\n1\n1001\nACAD\n");
    EXPECT_EQ(Modify([](resbuf* chain) { Append(chain, 62)->resval.rint = 5; }), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|8=0|62=5|101=Embedded Object|70=1|1001=ACAD|");
}

TEST_F(AdsEntityMod, RemovesAndMovesNothing) {
    Open("8\n0\n62\n1\n40\n1.0\n");
    resbuf* chain = acutNewRb(-1);
    chain->resval.rlname[0] = m_drawing->Id(0xA1).asOldId();
    Append(chain, 40)->resval.rreal = 3;
    Append(chain, 62)->resval.rint = 2;
    EXPECT_EQ(acdbEntMod(chain), RTNORM);
    acutRelRb(chain);
    EXPECT_EQ(Text(), "0=X|5=A1|8=0|62=2|40=3|");
}

TEST_F(AdsEntityMod, FindsTheNameAnywhereInTheChain) {
    Open("62\n1\n");
    resbuf* chain = acutNewRb(62);
    chain->resval.rint = 2;
    Append(chain, -1)->resval.rlname[0] = m_drawing->Id(0xA1).asOldId();
    EXPECT_EQ(acdbEntMod(chain), RTNORM);
    acutRelRb(chain);
    EXPECT_EQ(Text(), "0=X|5=A1|62=2|");
}

TEST_F(AdsEntityMod, FailsWithoutAnEntity) {
    Open("62\n1\n");
    EXPECT_EQ(acdbEntMod(nullptr), RTERROR);
    EXPECT_EQ(Modify([](resbuf* chain) { chain->restype = -2; }), RTERROR);
    EXPECT_EQ(Modify([](resbuf* chain) { chain->resval.rlname[0] = 0; }), RTERROR);
    EXPECT_EQ(Modify([](resbuf* chain) { chain->resval.rlname[0] += 1000000; }), RTERROR);
    EXPECT_EQ(Modify([](resbuf*) { acdbSetCurDwg(nullptr); }), RTERROR);
}

TEST_F(AdsEntityMod, RefusesWhatALineCannotHold) {
    Open("1\nold\n");
    for (const wchar_t* text : {L"two\nlines", L"two\rlines", L"\n", L"end\r\n"})
        ExpectRefused([text](resbuf* chain) { SetText(FindBuffer(chain, 1), text); });
    ExpectRefused([](resbuf* chain) { SetText(Append(chain, 2), L"two\nlines"); });
}

TEST_F(AdsEntityMod, RefusesNumbersThatAreNotFinite) {
    Open("40\n1.5\n10\n1\n20\n2\n30\n3\n");
    for (const double value : {kInfinity, -kInfinity, kNaN}) {
        ExpectRefused([value](resbuf* chain) { FindBuffer(chain, 40)->resval.rreal = value; });
        ExpectRefused([value](resbuf* chain) { FindBuffer(chain, 10)->resval.rpoint[2] = value; });
        ExpectRefused([value](resbuf* chain) { Append(chain, 41)->resval.rreal = value; });
        ExpectRefused([value](resbuf* chain) { Append(chain, 11)->resval.rpoint[1] = value; });
    }
}

TEST_F(AdsEntityMod, RefusesCoordinatesThatThePointDoesNotHave) {
    Open("10\n1\n20\n2\n11\n3\n");
    ExpectRefused([](resbuf* chain) { FindBuffer(chain, 10)->resval.rpoint[2] = 1; });
    ExpectRefused([](resbuf* chain) { FindBuffer(chain, 11)->resval.rpoint[1] = 1; });
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 10)->resval.rpoint[1] = 5; }), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|10=1|20=5|11=3|");
}

TEST_F(AdsEntityMod, RefusesSwitchesThatAreNone) {
    Open("290\n1\n");
    ExpectRefused([](resbuf* chain) { FindBuffer(chain, 290)->resval.rint = 2; });
    ExpectRefused([](resbuf* chain) { FindBuffer(chain, 290)->resval.rint = -1; });
    ExpectRefused([](resbuf* chain) { Append(chain, 299)->resval.rint = 2; });
}

TEST_F(AdsEntityMod, RefusesNamesOfNothing) {
    Open("330\nA2\n");
    ExpectRefused([](resbuf* chain) { FindBuffer(chain, 330)->resval.rlname[0] += 1000000; });
    ExpectRefused([](resbuf* chain) { Append(chain, 340)->resval.rlname[0] = 1; });
}

TEST_F(AdsEntityMod, RefusesTextsThatAreNoHandles) {
    Open("320\nA2\n1005\nA2\n");
    for (const wchar_t* text : {L"", L"G", L"0x1", L" A", L"12345678901234567"}) {
        ExpectRefused([text](resbuf* chain) { SetText(FindBuffer(chain, 320), text); });
        ExpectRefused([text](resbuf* chain) { SetText(FindBuffer(chain, 1005), text); });
    }
    EXPECT_EQ(Modify([](resbuf* chain) { SetText(FindBuffer(chain, 320), L"fFFFFFFFFFFFFFFF"); }), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|320=fFFFFFFFFFFFFFFF|1005=A2|");
}

TEST_F(AdsEntityMod, RefusesAnotherTypeOrHandle) {
    Open("8\n0\n");
    ExpectRefused([](resbuf* chain) { SetText(FindBuffer(chain, 0), L"CIRCLE"); });
    ExpectRefused([](resbuf* chain) { SetText(FindBuffer(chain, 5), L"A3"); });
    ExpectRefused([](resbuf* chain) { SetText(Append(chain, 0), L"CIRCLE"); });
    const std::uint64_t other = m_drawing->Id(0xA2).asOldId();
    ExpectRefused([other](resbuf* chain) { chain->resval.rlname[0] = other; });
    EXPECT_EQ(m_drawing->Text(0xA2), "0=Y|5=A2|");
}

TEST_F(AdsEntityMod, RefusesCodesThatNoFileHolds) {
    Open("8\n0\n");
    ExpectRefused([](resbuf* chain) { Append(chain, -2)->resval.rlname[0] = 1; });
    ExpectRefused([](resbuf* chain) { Append(chain, -3); });
    ExpectRefused([](resbuf* chain) { Append(chain, -1); });
    ExpectRefused([](resbuf* chain) { Append(chain, 1072); });
    ExpectRefused([](resbuf* chain) { SetText(Append(chain, 999), L"comment"); });
}

TEST_F(AdsEntityMod, RefusesTheWholeChainForOneBadValue) {
    Open("62\n1\n40\n1.5\n");
    ExpectRefused([](resbuf* chain) {
        FindBuffer(chain, 62)->resval.rint = 2;
        FindBuffer(chain, 40)->resval.rreal = kNaN;
    });
}

TEST_F(AdsEntityMod, LeavesTheRestOfTheFileAlone) {
    Open("40\n1.50\n62\n  1\n");
    const std::string before = ChineseDrawing("0\nX\n5\nA1\n40\n1.50\n62\n  1\n0\nY\n5\nA2\n");
    EXPECT_EQ(Modify([](resbuf* chain) { FindBuffer(chain, 62)->resval.rint = 3; }), RTNORM);
    std::string expected = before;
    expected.replace(expected.find("62\n  1\n"), 7, "62\n3\n");
    EXPECT_EQ(m_drawing->Saved(), expected);
}
