// The host's drawing and its unit of length.
#include "platform/host/DrawingUnits.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "DrawingText.h"

namespace {

std::string DrawingIn(std::string_view unit) {
    return DrawingOf(Section("HEADER", "  9\n$INSUNITS\n" + std::string(unit)));
}

class DrawingUnits : public testing::Test {
protected:
    ~DrawingUnits() override { acdbSetCurDwg(nullptr); }
};

}  // namespace

TEST_F(DrawingUnits, AreNotMetresWithoutADrawing) {
    acdbSetCurDwg(nullptr);
    EXPECT_EQ(acdbCurDwg(), nullptr);
    EXPECT_EQ(QcDbGetDrawUnit(), 0);
    EXPECT_FALSE(g_bMeterUnitDraw);
    AcDbDatabase empty;
    acdbSetCurDwg(&empty);
    EXPECT_EQ(acdbCurDwg(), &empty);
    EXPECT_EQ(QcDbGetDrawUnit(), 0);
}

TEST_F(DrawingUnits, AreToldOfAnyDrawing) {
    OpenDrawing metres(DrawingIn(" 70\n6\n"));
    OpenDrawing millimetres(DrawingIn(" 70\n4\n"));
    acdbSetCurDwg(&millimetres.database);
    EXPECT_TRUE(IsDrawingInMetres(&metres.database));
    EXPECT_FALSE(IsDrawingInMetres(&millimetres.database));
    EXPECT_FALSE(IsDrawingInMetres(nullptr));
    EXPECT_FALSE(g_bMeterUnitDraw) << "asking changes nothing";
}

TEST_F(DrawingUnits, AreMetresForTheInsertionUnitSixOnly) {
    for (int unit = 0; unit <= 20; ++unit) {
        OpenDrawing drawing(DrawingIn(" 70\n" + std::to_string(unit) + "\n"));
        EXPECT_EQ(QcDbGetDrawUnit(), 0) << "it is not the host's yet";
        acdbSetCurDwg(&drawing.database);
        EXPECT_EQ(QcDbGetDrawUnit() != 0, unit == 6) << unit;
        EXPECT_EQ(g_bMeterUnitDraw, unit == 6) << unit;
    }
}

TEST_F(DrawingUnits, AreReadWithBlanksAroundThem) {
    OpenDrawing drawing(DrawingIn(" 70\n     6 \n"));
    acdbSetCurDwg(&drawing.database);
    EXPECT_NE(QcDbGetDrawUnit(), 0);
}

TEST_F(DrawingUnits, AreNotMetresWhenTheVariableIsUnsound) {
    for (const char* unit :
         {" 70\n6x\n", " 70\n\n", " 70\n6.0\n", " 40\n6\n", "", " 70\n99999999999999999999\n", " 70\n1\n 70\n6\n"}) {
        OpenDrawing drawing(DrawingIn(unit));
        acdbSetCurDwg(&drawing.database);
        EXPECT_EQ(QcDbGetDrawUnit(), 0) << unit;
    }
    OpenDrawing headless(DrawingOf(""));
    acdbSetCurDwg(&headless.database);
    EXPECT_EQ(QcDbGetDrawUnit(), 0);
}

TEST_F(DrawingUnits, AreConvertedToMillimetres) {
    // Each from its own definition: in inches, in metres, in survey feet of 1200/3937 m.
    const std::pair<int, double> kLengths[] = {{0, 1.0},
                                               {1, 25.4},
                                               {2, 304.8},
                                               {3, 1609344.0},
                                               {4, 1.0},
                                               {5, 10.0},
                                               {6, 1000.0},
                                               {7, 1e6},
                                               {10, 914.4},
                                               {14, 100.0},
                                               {15, 10000.0},
                                               {16, 100000.0},
                                               {21, 304.8006096012192},
                                               {22, 25.4000508001016},
                                               {23, 914.4018288036576},
                                               {24, 1609347.218694437}};
    for (const auto& [number, millimetres] : kLengths) {
        const OpenDrawing drawing(DrawingIn(" 70\n" + std::to_string(number) + "\n"));
        const DrawingUnit unit = UnitOf(drawing.database);
        ASSERT_TRUE(unit.millimetres) << number;
        EXPECT_NEAR(*unit.millimetres, millimetres, 1e-13 * millimetres) << number;
        EXPECT_TRUE(unit.name.IsEmpty());
    }
}

TEST_F(DrawingUnits, AreMillimetresWhereNoneIsNamed) {
    for (const char* unit : {"", " 40\n6\n"})
        EXPECT_EQ(UnitOf(OpenDrawing(DrawingIn(unit)).database).millimetres, 1.0) << unit;
    EXPECT_EQ(UnitOf(OpenDrawing(DrawingOf("")).database).millimetres, 1.0);
    EXPECT_EQ(UnitOf(AcDbDatabase()).millimetres, 1.0);
}

TEST_F(DrawingUnits, AreNamedWhereNobodyBuildsInThem) {
    const std::pair<const char*, const wchar_t*> kNames[] = {
        {"8", L"微英寸"},        {"9", L"密耳"},
        {"11", L"埃"},           {"12", L"纳米"},
        {"13", L"微米"},         {"17", L"吉米"},
        {"18", L"天文单位"},     {"19", L"光年"},
        {"20", L"秒差距"},       {"25", L"$INSUNITS 25"},
        {"-1", L"$INSUNITS -1"}, {" 6x ", L"$INSUNITS 6x"},
        {"", L"$INSUNITS "},     {"99999999999999999999", L"$INSUNITS 99999999999999999999"}};
    for (const auto& [number, name] : kNames) {
        const OpenDrawing drawing(DrawingIn(" 70\n" + std::string(number) + "\n"));
        const DrawingUnit unit = UnitOf(drawing.database);
        EXPECT_FALSE(unit.millimetres) << number;
        EXPECT_EQ(unit.name, name) << number;
    }
}

TEST_F(DrawingUnits, FollowTheHostsDrawing) {
    OpenDrawing metres(DrawingIn(" 70\n6\n"));
    OpenDrawing millimetres(DrawingIn(" 70\n4\n"));
    acdbSetCurDwg(&metres.database);
    EXPECT_TRUE(g_bMeterUnitDraw);
    acdbSetCurDwg(&millimetres.database);
    EXPECT_FALSE(g_bMeterUnitDraw);
    ASSERT_EQ(millimetres.database.dxfIn(metres.files.File("drawing.dxf")), Acad::eOk);
    EXPECT_TRUE(g_bMeterUnitDraw) << "it was read anew";
    EXPECT_EQ(QcDbGetDrawUnit(), 1);
    acdbSetCurDwg(nullptr);
    EXPECT_FALSE(g_bMeterUnitDraw);
}

TEST_F(DrawingUnits, StayWhenAReadFailsOrAnotherDrawingIsRead) {
    OpenDrawing metres(DrawingIn(" 70\n6\n"));
    acdbSetCurDwg(&metres.database);
    CString message;
    EXPECT_NE(metres.database.dxfIn(metres.files.File("none.dxf"), &message), Acad::eOk);
    EXPECT_EQ(QcDbGetDrawUnit(), 1);
    const OpenDrawing other(DrawingIn(" 70\n4\n"));
    EXPECT_EQ(QcDbGetDrawUnit(), 1);
}

TEST_F(DrawingUnits, DoNotOutliveTheDrawing) {
    std::optional<OpenDrawing> metres;
    metres.emplace(DrawingIn(" 70\n6\n"));
    acdbSetCurDwg(&metres->database);
    { const OpenDrawing other(DrawingIn(" 70\n4\n")); }
    EXPECT_EQ(acdbCurDwg(), &metres->database);
    metres.reset();
    EXPECT_EQ(acdbCurDwg(), nullptr);
    EXPECT_EQ(QcDbGetDrawUnit(), 0);
    EXPECT_FALSE(g_bMeterUnitDraw);
}
