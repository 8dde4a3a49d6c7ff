// The host's drawing and its unit of length.
#include "platform/host/DrawingUnits.h"

#include <gtest/gtest.h>

#include <optional>

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
