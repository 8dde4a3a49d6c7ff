// The data of an entity as a chain: order, points, names, texts, and values that are none.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "platform/host/AdsEntity.h"
#include "support/DrawingForTests.h"
#include "support/OwnedChain.h"

namespace {

OwnedChain DataOf(const DrawingForTests& drawing, std::uint64_t handle) {
    return DataOf(drawing.Id(handle));
}

std::vector<int> TypesOf(const OwnedChain& chain) {
    std::vector<int> types;
    for (const resbuf* buffer = chain.get(); buffer; buffer = buffer->rbnext)
        types.push_back(buffer->restype);
    return types;
}

// The n-th buffer of a type; a test that has none ends here.
const resbuf& Buffer(const OwnedChain& chain, int type, int n = 0) {
    static const resbuf none{};
    if (const resbuf* buffer = FindBuffer(chain.get(), type, n))
        return *buffer;
    ADD_FAILURE() << "no buffer of type " << type;
    return none;
}

void ExpectPoint(const resbuf& buffer, double x, double y, double z) {
    EXPECT_EQ(buffer.resval.rpoint[0], x);
    EXPECT_EQ(buffer.resval.rpoint[1], y);
    EXPECT_EQ(buffer.resval.rpoint[2], z);
}

}  // namespace

TEST(AdsEntityRead, BeginsWithTheNameAndKeepsTheOrderOfGroups) {
    const DrawingForTests drawing(
        ChineseDrawing("0\nLINE\n5\nA1\n8\n0\n62\n3\n10\n1\n20\n2\n30\n3\n11\n4\n21\n5\n31\n6\n62\n4\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_EQ(TypesOf(chain), (std::vector<int>{-1, 0, 5, 8, 62, 10, 11, 62}));
    EXPECT_EQ(chain->resval.rlname[0], drawing.Id(0xA1).asOldId());
    EXPECT_EQ(chain->resval.rlname[1], 0U);
    EXPECT_STREQ(Buffer(chain, 0).resval.rstring, L"LINE");
    EXPECT_STREQ(Buffer(chain, 5).resval.rstring, L"A1");
    EXPECT_EQ(Buffer(chain, 62, 0).resval.rint, 3);
    EXPECT_EQ(Buffer(chain, 62, 1).resval.rint, 4);
    ExpectPoint(Buffer(chain, 10), 1, 2, 3);
    ExpectPoint(Buffer(chain, 11), 4, 5, 6);
}

TEST(AdsEntityRead, JoinsOnlyCoordinatesThatFollowEachOther) {
    const DrawingForTests drawing(
        ChineseDrawing("0\nX\n5\nA1\n10\n1\n20\n2\n10\n3\n20\n4\n30\n5\n10\n6\n40\n7\n20\n8\n10\n9\n30\n11\n10\n12\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_EQ(TypesOf(chain), (std::vector<int>{-1, 0, 5, 10, 10, 10, 40, 20, 10, 30, 10}));
    ExpectPoint(Buffer(chain, 10, 0), 1, 2, 0);
    ExpectPoint(Buffer(chain, 10, 1), 3, 4, 5);
    ExpectPoint(Buffer(chain, 10, 2), 6, 0, 0);
    EXPECT_EQ(Buffer(chain, 20).resval.rreal, 8);
    ExpectPoint(Buffer(chain, 10, 3), 9, 0, 0);
    EXPECT_EQ(Buffer(chain, 30).resval.rreal, 11);
    ExpectPoint(Buffer(chain, 10, 4), 12, 0, 0);
}

TEST(AdsEntityRead, JoinsPointsOfEveryRange) {
    for (const int code : {10, 11, 12, 13, 14, 15, 16, 17, 18, 110, 111, 112, 210, 1010, 1011, 1012, 1013}) {
        const std::string x = std::to_string(code) + "\n1\n";
        const std::string y = std::to_string(code + 10) + "\n2\n";
        const std::string z = std::to_string(code + 20) + "\n3\n";
        const DrawingForTests drawing(ChineseDrawing("0\nX\n5\nA1\n" + x + y + z));
        const OwnedChain chain = DataOf(drawing, 0xA1);
        EXPECT_EQ(TypesOf(chain), (std::vector<int>{-1, 0, 5, code}));
        ExpectPoint(Buffer(chain, code), 1, 2, 3);
    }
}

TEST(AdsEntityRead, TakesElevationAndThicknessForNumbersOfTheirOwn) {
    const DrawingForTests drawing(
        ChineseDrawing("0\nX\n5\nA1\n38\n7\n18\n1\n28\n2\n38\n3\n38\n8\n39\n4\n18\n5\n38\n9\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_EQ(TypesOf(chain), (std::vector<int>{-1, 0, 5, 38, 18, 38, 39, 18, 38}));
    EXPECT_EQ(Buffer(chain, 38, 0).resval.rreal, 7);
    ExpectPoint(Buffer(chain, 18, 0), 1, 2, 3);
    EXPECT_EQ(Buffer(chain, 38, 1).resval.rreal, 8);
    EXPECT_EQ(Buffer(chain, 39).resval.rreal, 4);
    ExpectPoint(Buffer(chain, 18, 1), 5, 0, 0);
    EXPECT_EQ(Buffer(chain, 38, 2).resval.rreal, 9) << "behind an x without a y";
}

TEST(AdsEntityRead, DecodesTextsByTheCodePage) {
    const DrawingForTests drawing(ChineseDrawing("0\nTEXT\n5\nA1\n8\n\xC7\xBD\n1\n\xB4\xB0 \\U+00E9\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_STREQ(Buffer(chain, 8).resval.rstring, L"墙");
    EXPECT_STREQ(Buffer(chain, 1).resval.rstring, L"窗 é");
}

TEST(AdsEntityRead, ReadsNumbersOfEveryWidth) {
    const DrawingForTests drawing(ChineseDrawing(
        "0\nX\n5\nA1\n40\n 1.50\n50\n45.0\n70\n    -7\n90\n-100000\n160\n-9000000000\n290\n     1\n1071\n+5\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_EQ(Buffer(chain, 40).resval.rreal, 1.5);
    EXPECT_EQ(Buffer(chain, 50).resval.rreal, 45);
    EXPECT_EQ(Buffer(chain, 70).resval.rint, -7);
    EXPECT_EQ(Buffer(chain, 90).resval.rlong, -100000);
    EXPECT_EQ(Buffer(chain, 160).resval.mnInt64, -9000000000);
    EXPECT_EQ(Buffer(chain, 290).resval.rint, 1);
    EXPECT_EQ(Buffer(chain, 1071).resval.rlong, 5);
}

TEST(AdsEntityRead, ReadsWhatIsNoNumberAs0AndTheLowBitsOfWideOnes) {
    const DrawingForTests drawing(
        ChineseDrawing("0\nX\n5\nA1\n40\nabc\n41\n\n70\nx\n71\n65535\n90\n4294967295\n"
                       "91\n99999999999999999999\n92\n-99999999999999999999\n93\n\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_EQ(Buffer(chain, 40).resval.rreal, 0);
    EXPECT_EQ(Buffer(chain, 41).resval.rreal, 0);
    EXPECT_EQ(Buffer(chain, 70).resval.rint, 0);
    EXPECT_EQ(Buffer(chain, 71).resval.rint, -1);
    EXPECT_EQ(Buffer(chain, 90).resval.rlong, -1);
    EXPECT_EQ(Buffer(chain, 91).resval.rlong, -1);  // the largest number of 64 bits
    EXPECT_EQ(Buffer(chain, 92).resval.rlong, 0);   // the smallest
    EXPECT_EQ(Buffer(chain, 93).resval.rlong, 0);
}

TEST(AdsEntityRead, ReadsBytesAsFarAsTheyAreSound) {
    const DrawingForTests drawing(ChineseDrawing("0\nX\n5\nA1\n310\n00fF7\n1004\nZZ\n311\n\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    ASSERT_EQ(Buffer(chain, 310).resval.rbinary.clen, 2);
    EXPECT_EQ(std::memcmp(Buffer(chain, 310).resval.rbinary.buf, "\x00\xFF", 2), 0);
    EXPECT_EQ(Buffer(chain, 1004).resval.rbinary.clen, 0);
    EXPECT_EQ(Buffer(chain, 311).resval.rbinary.clen, 0);
}

TEST(AdsEntityRead, GivesOtherObjectsByName) {
    const DrawingForTests drawing(
        ChineseDrawing("0\nX\n5\nA1\n330\nA2\n340\n00a2\n350\nDEAD\n360\n0\n390\nA2\n480\nA2\n320\nA2\n"
                       "0\nY\n5\nA2\n"));
    const std::uint64_t other = drawing.Id(0xA2).asOldId();
    const OwnedChain chain = DataOf(drawing, 0xA1);
    for (const int code : {330, 340, 390, 480}) {
        EXPECT_EQ(Buffer(chain, code).resval.rlname[0], other) << code;
        EXPECT_EQ(Buffer(chain, code).resval.rlname[1], 0U) << code;
    }
    EXPECT_EQ(Buffer(chain, 350).resval.rlname[0], 0U);
    EXPECT_EQ(Buffer(chain, 350).resval.rlname[1], 0xDEADU);
    EXPECT_EQ(Buffer(chain, 360).resval.rlname[0], 0U);
    EXPECT_EQ(Buffer(chain, 360).resval.rlname[1], 0U);
    EXPECT_STREQ(Buffer(chain, 320).resval.rstring, L"A2");
}

TEST(AdsEntityRead, GivesUnknownCodesAsTheTextsTheyAre) {
    const DrawingForTests drawing(ChineseDrawing("0\nX\n5\nA1\n80\nwhat\n101\nEmbedded Object\n"));
    const OwnedChain chain = DataOf(drawing, 0xA1);
    EXPECT_STREQ(Buffer(chain, 80).resval.rstring, L"what");
    EXPECT_STREQ(Buffer(chain, 101).resval.rstring, L"Embedded Object");
}

TEST(AdsEntityRead, ReadsTableRecordsToo) {
    const DrawingForTests drawing(ChineseDrawing(""));
    const OwnedChain chain = DataOf(drawing, 0x11);
    EXPECT_EQ(TypesOf(chain), (std::vector<int>{-1, 0, 5, 2, 70, 62, 6}));
    EXPECT_STREQ(Buffer(chain, 2).resval.rstring, L"墙");
}

TEST(AdsEntityRead, GivesNothingForUnknownNames) {
    const DrawingForTests drawing(ChineseDrawing("0\nX\n5\nA1\n"));
    const ads_name name = {drawing.Id(0xA1).asOldId() + 1000000, 0};
    EXPECT_EQ(acdbEntGet(name), nullptr);
    EXPECT_EQ(acdbEntGet(nullptr), nullptr);
    EXPECT_EQ(QcAdsEnt().GetDXFData(), nullptr);
    EXPECT_EQ(QcAdsEnt(AcDbObjectId()).GetDXFData(), nullptr);
}

TEST(AdsEntityRead, GivesNothingWithoutADrawingAndOfAClosedOne) {
    AcDbObjectId id;
    {
        const DrawingForTests drawing(ChineseDrawing("0\nX\n5\nA1\n"));
        id = drawing.Id(0xA1);
        acdbSetCurDwg(nullptr);
        EXPECT_EQ(QcAdsEnt(id).GetDXFData(), nullptr);
    }
    const DrawingForTests next(ChineseDrawing("0\nX\n5\nA1\n"));
    EXPECT_EQ(QcAdsEnt(id).GetDXFData(), nullptr);
}

TEST(QcAdsEnt, IsMadeFromANameOrAnId) {
    const ads_name name = {42, 7};
    EXPECT_EQ(QcAdsEnt(name).GetObjectId(), AcDbObjectId::FromOldId(42));
    EXPECT_EQ(QcAdsEnt(AcDbObjectId::FromOldId(42)).GetObjectId(), AcDbObjectId::FromOldId(42));
    EXPECT_TRUE(QcAdsEnt().GetObjectId().isNull());
}
