// Which entities are told to cast no shadow although somebody drew them to.
#include "analysis/UnreadBodies.h"

#include "DrawingForWindows.h"

namespace {

std::size_t CountIn(const std::string& entities, const std::string& layers = {},
                    const std::vector<CString>& windowLayers = {}) {
    const OpenDrawing drawing(DrawingWith(entities, layers));
    return CountUnreadBodies(drawing.database, windowLayers);
}

}  // namespace

TEST(UnreadBodies, AreBlocksSolidsAndSurfaces) {
    for (const char* type :
         {"INSERT", "3DSOLID", "BODY", "REGION", "SURFACE", "PLANESURFACE", "NURBSURFACE", "EXTRUDEDSURFACE",
          "SWEPTSURFACE", "REVOLVEDSURFACE", "LOFTEDSURFACE", "ACAD_PROXY_ENTITY"})
        EXPECT_EQ(CountIn(Entity(type, "8=WALL")), 1U) << type;
    EXPECT_EQ(CountIn(Entity("INSERT", "8=WALL") + Triangle("8=WALL") + Entity("3DSOLID", "")), 2U);
}

TEST(UnreadBodies, AreWhatIsFlatOnlyWithAThickness) {
    for (const char* type : {"LINE", "ARC", "CIRCLE", "SOLID", "TRACE"}) {
        EXPECT_EQ(CountIn(Entity(type, "8=WALL 39=3000")), 1U) << type;
        EXPECT_EQ(CountIn(Entity(type, "8=WALL")), 0U) << type;
        EXPECT_EQ(CountIn(Entity(type, "8=WALL 39=0")), 0U) << type;
    }
}

TEST(UnreadBodies, AreNeitherMarksNorWhatTheSceneReads) {
    EXPECT_EQ(CountIn(Triangle("8=WALL") + Entity("TEXT", "8=WALL 39=10 1=x") + Entity("MTEXT", "8=WALL") +
                      Entity("DIMENSION", "8=WALL") + Entity("LWPOLYLINE", "8=WALL 10=0 20=0 10=1 20=0") +
                      Block({}, 0, 0, 10, 10, 0, 10)),
              0U);
}

TEST(UnreadBodies, AreVisibleAndOffTheLayersOfWindows) {
    const std::string off = "0\nLAYER\n2\nOFF\n70\n0\n62\n-7\n";
    EXPECT_EQ(CountIn(Entity("3DSOLID", "8=OFF"), off), 0U);
    EXPECT_EQ(CountIn(Entity("3DSOLID", "8=WALL 60=1")), 0U);
    EXPECT_EQ(CountIn(Entity("3DSOLID", "8=WALL 67=1")), 0U);
    EXPECT_EQ(CountIn(Entity("3DSOLID", "8=window")), 0U);
    EXPECT_EQ(CountIn(Entity("3DSOLID", "8=window"), {}, {L"GLASS"}), 1U);
}
