// The sample drawing: every building is a closed body that faces outwards, with the volume that its plan gives.
#include <numbers>

#include "SceneForTests.h"
#include "support/Folders.h"

namespace {

// The file is read where it lies.
struct Sample {
    Sample() {
        CString message;
        EXPECT_EQ(m_drawing.dxfIn(FromUtf8(SourceFolder() + "/data/samples/house.dxf"), &message), Acad::eOk)
            << ToUtf8(message.View());
        m_scene = BuildScene(m_drawing);
    }
    AcDbDatabase m_drawing;
    Scene m_scene;
};

constexpr double kCubicMetre = 1e9;

}  // namespace

TEST(SampleDrawing, HasAGroundSevenBuildingsARoofAndAPavilion) {
    const Sample sample;
    ASSERT_EQ(sample.m_scene.entities.size(), 10U);
    EXPECT_EQ(sample.m_scene.faultyCount, 0U);
    EXPECT_EQ(OtherCount(sample.m_scene), 1U) << "a text";
    EXPECT_EQ(sample.m_scene.least, QcGePoint(-40000, -40000, 0));
    EXPECT_EQ(sample.m_scene.most, QcGePoint(150000, 160000, 60000));
}

TEST(SampleDrawing, HasAGroundThatLooksUp) {
    const Sample sample;
    const std::vector<QcGeFace3dEX> ground = FacesOf(sample.m_scene, 0);
    ASSERT_EQ(ground.size(), 1U);
    EXPECT_DOUBLE_EQ(AreaVectorOf(ground[0])[2], 190e3 * 200e3);
}

TEST(SampleDrawing, HasBuildingsWithTheVolumesOfTheirPlans) {
    // The half circle of the stairs has a radius of 3 m. A chord over the angle a is 3000 * (1 - cos(a / 2)) away from
    // it, at most 50 mm; n of them enclose n / 2 * r^2 * sin(pi / n).
    const double chords = std::ceil(std::numbers::pi / (2.0 * std::acos(1.0 - 50.0 / 3000.0)));
    const double stairs = chords / 2.0 * 9.0 * std::sin(std::numbers::pi / chords);
    const double volumes[] = {
        48.0 * 14 * 36, 48.0 * 14 * 36, 26.0 * 24 * 60, (40.0 * 14 + 14 * 21) * 24, (36.0 * 14 + stairs) * 30,
        24.0 * 12 * 18, 48.0 * 14 * 45};
    const Sample sample;
    for (std::size_t i = 0; i < 7; ++i) {
        SCOPED_TRACE(i);
        ExpectBody(FacesOf(sample.m_scene, 1 + i), volumes[i] * kCubicMetre);
    }
}

TEST(SampleDrawing, HasAHippedRoof) {
    // 26 x 14 m, 4 m high, the ridge 12 m long: a prism of the ridge's length and the two hips, a pyramid together.
    const Sample sample;
    const std::vector<QcGeFace3dEX> roof = FacesOf(sample.m_scene, 8);
    EXPECT_EQ(roof.size(), 5U);
    ExpectBody(roof, (14.0 * 4 / 2 * 12 + 14.0 * 14 * 4 / 3) * kCubicMetre);
    EXPECT_EQ(sample.m_scene.entities[8].trueColor, 0xA0522D) << "its layer's";
}

TEST(SampleDrawing, HasAPavilion) {
    // A hexagon of 13 x 8 m less four corners of 4 x 4 / 2: 72 square metres, 3 m high, and a roof of 2 m.
    const Sample sample;
    const std::vector<QcGeFace3dEX> pavilion = FacesOf(sample.m_scene, 9);
    EXPECT_EQ(pavilion.size(), 6U + 6U + 4U);
    ExpectBody(pavilion, (72.0 * 3 + 72.0 * 2 / 3) * kCubicMetre);
    EXPECT_EQ(sample.m_scene.entities[9].colorIndex, 30) << "its own";
    EXPECT_EQ(sample.m_scene.entities[9].trueColor, -1);
}

TEST(SampleDrawing, HasTheColorsOfItsLayers) {
    const Sample sample;
    EXPECT_EQ(sample.m_scene.entities[0].colorIndex, 8);
    for (std::size_t i = 1; i <= 7; ++i)
        EXPECT_EQ(sample.m_scene.entities[i].colorIndex, 9);
    EXPECT_EQ(sample.m_scene.entities[8].colorIndex, 1);
    std::string names;
    std::vector<DxfGroup> groups;
    for (const SceneEntity& entity : sample.m_scene.entities) {
        ASSERT_TRUE(sample.m_drawing.GetGroups(entity.id, groups));
        for (const DxfGroup& group : groups)
            if (group.code == 8)
                names += ToUtf8(sample.m_drawing.Decode(group.value).View()) + " ";
    }
    EXPECT_EQ(names.substr(0, std::string("地面 建筑 ").size()), "地面 建筑 ");
    EXPECT_NE(names.find("屋顶"), std::string::npos);
}
