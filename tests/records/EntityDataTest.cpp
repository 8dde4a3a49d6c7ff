// Reading and setting groups of entities in a real drawing, and the names of table records.
#include "records/EntityData.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <memory>

#include "platform/base/Abandon.h"
#include "platform/host/AcDbObject.h"
#include "platform/host/AdsTypes.h"
#include "support/DrawingForTests.h"
#include "support/OwnedChain.h"

namespace {

constexpr std::uint64_t kEntity = 0xA1;
constexpr std::uint64_t kOther = 0xA2;

class EntityData : public testing::Test {
protected:
    // An entity with these groups behind its type and handle.
    void Open(const std::string& groups) {
        m_drawing = std::make_unique<DrawingForTests>(ChineseDrawing("0\nX\n5\nA1\n" + groups + "0\nY\n5\nA2\n"));
    }
    QcAdsEnt Entity() const { return QcAdsEnt(m_drawing->Id(kEntity)); }
    std::string Text() const { return m_drawing->Text(kEntity); }

    // Sets a value and reads it back with the type that reading gives.
    template <class Given, class Read = Given>
    Read SetAndGet(int code, Given given) {
        EXPECT_EQ(SetEntData(Entity(), code, &given), RTNORM);
        Read read{};
        EXPECT_EQ(GetEntData(Entity(), code, &read), RTNORM);
        return read;
    }
    void SetText(int code, const wchar_t* text) { EXPECT_EQ(SetEntData(Entity(), code, &text), RTNORM); }
    CString GetText(int code) const {
        wchar_t buffer[200] = L"untouched";
        EXPECT_EQ(GetEntData(Entity(), code, buffer), RTNORM);
        return CString(buffer);
    }

    std::unique_ptr<DrawingForTests> m_drawing;
};

}  // namespace

TEST_F(EntityData, ReadsEveryTypeThatADrawingHolds) {
    Open("8\n\xC7\xBD\n10\n1.5\n20\n2.5\n30\n3.5\n40\n-4.5\n50\n45\n70\n-1\n90\n-70000\n330\nA2\n");
    EXPECT_EQ(GetText(8), L"墙");
    double point[3] = {};
    EXPECT_EQ(GetEntData(Entity(), 10, point), RTNORM);
    EXPECT_EQ(point[0], 1.5);
    EXPECT_EQ(point[1], 2.5);
    EXPECT_EQ(point[2], 3.5);
    double number = 0;
    EXPECT_EQ(GetEntData(Entity(), 40, &number), RTNORM);
    EXPECT_EQ(number, -4.5);
    EXPECT_EQ(GetEntData(Entity(), 50, &number), RTNORM);
    EXPECT_EQ(number, 45);
    std::int32_t whole = 0;
    EXPECT_EQ(GetEntData(Entity(), 70, &whole), RTNORM);
    EXPECT_EQ(whole, -1);
    EXPECT_EQ(GetEntData(Entity(), 90, &whole), RTNORM);
    EXPECT_EQ(whole, -70000);
    std::uint64_t name[2] = {1, 1};
    EXPECT_EQ(GetEntData(Entity(), 330, name), RTNORM);
    EXPECT_EQ(name[0], m_drawing->Id(kOther).asOldId());
    EXPECT_EQ(name[1], 0U);
}

TEST_F(EntityData, ReadsTheNameOfTheEntityItself) {
    Open("");
    std::uint64_t name[2] = {1, 1};
    EXPECT_EQ(GetEntData(Entity(), -1, name), RTNORM);
    EXPECT_EQ(name[0], m_drawing->Id(kEntity).asOldId());
    EXPECT_EQ(name[1], 0U);
}

TEST_F(EntityData, SetsTexts) {
    Open("1\nold\n8\n0\n");
    SetText(1, L"新窗 W-1");
    EXPECT_EQ(GetText(1), L"新窗 W-1");
    EXPECT_EQ(Text(), "0=X|5=A1|1=\xD0\xC2\xB4\xB0 W-1|8=0|");
    SetText(1, L"");
    EXPECT_EQ(GetText(1), L"");
}

TEST_F(EntityData, SetsPoints) {
    Open("10\n1.0\n20\n2.0\n30\n3.0\n");
    const double given[] = {1, 7.25, -0.5};
    EXPECT_EQ(SetEntData(Entity(), 10, given), RTNORM);
    double read[3] = {};
    EXPECT_EQ(GetEntData(Entity(), 10, read), RTNORM);
    EXPECT_EQ(read[0], 1);
    EXPECT_EQ(read[1], 7.25);
    EXPECT_EQ(read[2], -0.5);
    EXPECT_EQ(Text(), "0=X|5=A1|10=1.0|20=7.25|30=-0.5|");
}

TEST_F(EntityData, SetsNumbersAndAngles) {
    Open("40\n1\n50\n2\n");
    EXPECT_EQ(SetAndGet(40, 0.1), 0.1);
    EXPECT_EQ(SetAndGet(50, 270.5), 270.5);
    EXPECT_EQ(Text(), "0=X|5=A1|40=0.1|50=270.5|");
}

TEST_F(EntityData, SetsWholeNumbers) {
    Open("70\n1\n90\n2\n290\n1\n");
    EXPECT_EQ((SetAndGet<std::int16_t, std::int32_t>(70, -1)), -1);
    EXPECT_EQ((SetAndGet<std::int16_t, std::int32_t>(70, SHRT_MIN)), SHRT_MIN);
    EXPECT_EQ(SetAndGet<std::int32_t>(90, INT_MIN), INT_MIN);
    EXPECT_EQ((SetAndGet<std::int16_t, std::int32_t>(290, 0)), 0);
    EXPECT_EQ(Text(), "0=X|5=A1|70=-32768|90=-2147483648|290=0|");
}

TEST_F(EntityData, SetsNamesFromTheFirstAndTheThirdWord) {
    Open("330\n0\n");
    const std::uint64_t id = m_drawing->Id(kOther).asOldId();
    const std::uint64_t given[] = {id, 0x2222222222222222, 0x3333333333333333};
    EXPECT_EQ(SetEntData(Entity(), 330, given), RTNORM);
    std::uint64_t read[2] = {};
    EXPECT_EQ(GetEntData(Entity(), 330, read), RTNORM);
    EXPECT_EQ(read[0], id);
    EXPECT_EQ(read[1], 0x3333333333333333U);
    EXPECT_EQ(Text(), "0=X|5=A1|330=A2|");
}

TEST_F(EntityData, SetsAndReadsTheFirstOfEqualCodes) {
    Open("40\n1\n40\n2\n");
    EXPECT_EQ(SetAndGet(40, 5.0), 5);
    EXPECT_EQ(Text(), "0=X|5=A1|40=5|40=2|");
}

TEST_F(EntityData, AppendsAGroupThatTheEntityLacks) {
    Open("8\n0\n");
    EXPECT_EQ((SetAndGet<std::int16_t, std::int32_t>(62, 3)), 3);
    EXPECT_EQ(SetAndGet(40, 2.5), 2.5);
    SetText(1, L"text");
    const double point[] = {1, 2, 3};
    EXPECT_EQ(SetEntData(Entity(), 11, point), RTNORM);
    EXPECT_EQ(SetAndGet<std::int32_t>(90, 70000), 70000);
    const std::uint64_t name[] = {m_drawing->Id(kOther).asOldId(), 0, 0};
    EXPECT_EQ(SetEntData(Entity(), 340, name), RTNORM);
    EXPECT_EQ(Text(), "0=X|5=A1|8=0|62=3|40=2.5|1=text|11=1|21=2|31=3|90=70000|340=A2|");
}

TEST_F(EntityData, AppendsAtTheEndOfTheChain) {
    Open("8\n0\n");
    EXPECT_EQ((SetAndGet<std::int16_t, std::int32_t>(62, 3)), 3);
    const OwnedChain chain = DataOf(m_drawing->Id(kEntity));
    const resbuf* last = chain.get();
    while (last->rbnext)
        last = last->rbnext;
    EXPECT_EQ(last->restype, 62);
}

TEST_F(EntityData, FailsForCodesWithoutAType) {
    Open("30\n5\n160\n5\n310\n00\n80\n5\n");
    double value = 7;
    for (const int code : {20, 30, 160, 310, 80, 101, 1072, -3, -6, 5003, INT_MIN, INT_MAX}) {
        EXPECT_EQ(SetEntData(Entity(), code, &value), RTERROR) << code;
        EXPECT_EQ(GetEntData(Entity(), code, &value), RTERROR) << code;
    }
    EXPECT_EQ(value, 7);
    EXPECT_FALSE(m_drawing->Database().IsModified());
}

TEST_F(EntityData, FailsForEntitiesWithoutData) {
    Open("40\n1\n");
    double value = 7;
    EXPECT_EQ(SetEntData(QcAdsEnt(), 40, &value), RTERROR);
    EXPECT_EQ(GetEntData(QcAdsEnt(), 40, &value), RTERROR);
    const QcAdsEnt entity = Entity();
    acdbSetCurDwg(nullptr);
    EXPECT_EQ(SetEntData(entity, 40, &value), RTERROR);
    EXPECT_EQ(GetEntData(entity, 40, &value), RTERROR);
    EXPECT_EQ(value, 7);
}

TEST_F(EntityData, FailsWithoutMemoryOfTheCallers) {
    Open("40\n1\n");
    EXPECT_EQ(SetEntData(Entity(), 40, nullptr), RTERROR);
    EXPECT_EQ(GetEntData(Entity(), 40, nullptr), RTERROR);
    EXPECT_EQ(Text(), "0=X|5=A1|40=1|");
}

TEST_F(EntityData, FailsToReadAGroupThatIsMissingAndGivesUpTheChain) {
    Open("40\n1\n");
    double value = 7;
    const std::size_t before = AbandonedCount();
    EXPECT_EQ(GetEntData(Entity(), 41, &value), RTERROR);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(AbandonedCount(), before + 1);
    EXPECT_EQ(GetEntData(Entity(), 40, &value), RTNORM);
    EXPECT_EQ(AbandonedCount(), before + 1);
}

TEST_F(EntityData, GivesUpTheTextThatIsReplacedButNoneThatIsAppended) {
    Open("1\nold\n");
    const std::size_t before = AbandonedCount();
    SetText(1, L"new");
    EXPECT_EQ(AbandonedCount(), before + 1);
    SetText(2, L"appended");
    EXPECT_EQ(AbandonedCount(), before + 1);
    EXPECT_EQ(SetAndGet(40, 1.0), 1);
    EXPECT_EQ(AbandonedCount(), before + 1);
}

TEST_F(EntityData, SaysThatItWentWellWhenTheDrawingRefuses) {
    Open("1\nold\n40\n1.50\n");
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SetEntData(Entity(), 40, &nothing), RTNORM);
    SetText(1, L"two\nlines");
    SetText(0, L"Z");
    EXPECT_EQ(Text(), "0=X|5=A1|1=old|40=1.50|");
    EXPECT_FALSE(m_drawing->Database().IsModified());
}

TEST_F(EntityData, ReadsAndSetsTableRecords) {
    Open("");
    const QcAdsEnt layer(m_drawing->Id(0x11));
    std::int32_t color = 0;
    EXPECT_EQ(GetEntData(layer, 62, &color), RTNORM);
    EXPECT_EQ(color, 1);
    const std::int16_t given = 5;
    EXPECT_EQ(SetEntData(layer, 62, &given), RTNORM);
    EXPECT_EQ(GetEntData(layer, 62, &color), RTNORM);
    EXPECT_EQ(color, 5);
}

TEST_F(EntityData, NamesTableRecords) {
    Open("");
    EXPECT_EQ(GetSymbolName(m_drawing->Id(0x10)), L"0");
    EXPECT_EQ(GetSymbolName(m_drawing->Id(0x11)), L"墙");
}

TEST_F(EntityData, NamesNothingElse) {
    Open("2\nname of a block\n");
    EXPECT_EQ(GetSymbolName(AcDbObjectId()), L"");
    EXPECT_EQ(GetSymbolName(m_drawing->Id(kEntity)), L"");
    EXPECT_EQ(GetSymbolName(AcDbObjectId::FromOldId(m_drawing->Id(kEntity).asOldId() + 1000000)), L"");
    const AcDbObjectId layer = m_drawing->Id(0x11);
    acdbSetCurDwg(nullptr);
    EXPECT_EQ(GetSymbolName(layer), L"");
}

TEST_F(EntityData, ClosesWhatItOpensForAName) {
    Open("");
    const int before = AcDbObject::OpenCount();
    GetSymbolName(m_drawing->Id(0x11));
    GetSymbolName(m_drawing->Id(kEntity));
    EXPECT_EQ(AcDbObject::OpenCount(), before);
}
