// A house drawn for real: its shadow must lie where the solids say, pixel by pixel, and lit faces must be the bright
// ones. The picture in the documentation is this one, drawn finer.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <set>

#include "HouseScene.h"
#include "support/Folders.h"
#include "support/OffscreenGlForTests.h"

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 500;

Camera CameraFor(double scale) {
    return {{18, -24, 10}, {3.4, 1.5, 2.1}, 27, kWidth * scale, kHeight * scale};
}

bool Has(const GlPicture& picture, int x, int y, const std::array<unsigned char, 3>& colour) {
    const unsigned char* pixel =
        &picture.rgba[(static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)) * 4];
    for (std::size_t i = 0; i < 3; ++i)
        if (std::abs(pixel[i] - colour[i]) > 1)
            return false;
    return true;
}

// What a pixel may show: what lies at its middle, or less than a pixel beside it.
std::set<Seen> SeenAround(const HouseScene& scene, const Camera& camera, int x, int y) {
    std::set<Seen> seen;
    for (const double dx : {-1.0, 0.0, 1.0})
        for (const double dy : {-1.0, 0.0, 1.0})
            seen.insert(scene.At(camera, x + 0.5 + dx, y + 0.5 + dy));
    return seen;
}

GlPicture DrawScene(OffscreenGl& gl, HouseScene& scene, const Camera& camera) {
    scene.Draw(camera);
    GlPicture picture;
    EXPECT_TRUE(gl.Read(picture));
    return picture;
}

TEST(LitHouse, ShadowLiesWhereTheSolidsSayWithinAPixel) {
    ORVO_OPEN_GL(gl, kWidth, kHeight);
    HouseScene scene;
    const Camera camera = CameraFor(1);
    const GlPicture picture = DrawScene(*gl, scene, camera);

    std::map<Seen, int> judged;
    int wrong = 0;
    for (int y = 1; y < kHeight - 1; ++y) {
        for (int x = 1; x < kWidth - 1; ++x) {
            const std::set<Seen> seen = SeenAround(scene, camera, x, y);
            if (seen.size() != 1)
                continue;
            const Seen truth = *seen.begin();
            ++judged[truth];
            const bool isShadow = Has(picture, x, y, HouseScene::kShadow);
            const bool isSky = Has(picture, x, y, HouseScene::kSky);
            if (isShadow != (truth == Seen::ShadedGround) || isSky != (truth == Seen::Sky)) {
                ADD_FAILURE() << "pixel " << x << ", " << y << " should show " << static_cast<int>(truth);
                ASSERT_LT(++wrong, 20);
            }
        }
    }
    // Each of the four fills a fair part of the picture, and only the outlines were left out.
    for (const Seen seen : {Seen::Sky, Seen::SunlitGround, Seen::ShadedGround, Seen::House})
        EXPECT_GT(judged[seen], kWidth * kHeight / 50);
    EXPECT_GT(judged[Seen::Sky] + judged[Seen::SunlitGround] + judged[Seen::ShadedGround] + judged[Seen::House],
              kWidth * kHeight * 9 / 10);
}

TEST(LitHouse, GroundInTheSunHasOneColourBrighterThanItsShadow) {
    ORVO_OPEN_GL(gl, kWidth, kHeight);
    HouseScene scene;
    const Camera camera = CameraFor(1);
    const GlPicture picture = DrawScene(*gl, scene, camera);
    const std::size_t last = picture.rgba.size() - 4 * static_cast<std::size_t>(kWidth / 2);
    const std::array<unsigned char, 3> sunlit = {picture.rgba[last], picture.rgba[last + 1], picture.rgba[last + 2]};
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_GT(sunlit[i], HouseScene::kShadow[i] + 10);
    int judged = 0;
    for (int y = 1; y < kHeight - 1; y += 3) {
        for (int x = 1; x < kWidth - 1; x += 3) {
            if (SeenAround(scene, camera, x, y) != std::set{Seen::SunlitGround})
                continue;
            ++judged;
            ASSERT_TRUE(Has(picture, x, y, sunlit)) << x << ", " << y;
        }
    }
    EXPECT_GT(judged, 1000);
}

QcGePoint MiddleOf(const QcGeFace3dEX& face) {
    QcGePoint middle;
    const int count = face.GetPointNum();
    for (int i = 0; i < count; ++i)
        middle = {middle.x + face.m_pt[i].x / count, middle.y + face.m_pt[i].y / count,
                  middle.z + face.m_pt[i].z / count};
    return middle;
}

// In the middle of each face that the camera sees, the picture has the colour that the sun's angle gives it.
TEST(LitHouse, FacesHaveTheColourThatTheSunGivesThem) {
    ORVO_OPEN_GL(gl, kWidth, kHeight);
    HouseScene scene;
    const Camera camera = CameraFor(1);
    const GlPicture picture = DrawScene(*gl, scene, camera);
    int lit = 0;
    int unlit = 0;
    for (QcGeFace3dEX& face : scene.m_faces) {
        const QcGePoint middle = MiddleOf(face);
        const QcGeVector3d across = (face.m_pt[1] - face.m_pt[0]) * (face.m_pt[2] - face.m_pt[0]);
        if (Dot(across, camera.Eye() - middle) <= 0)
            continue;
        const double cosine = -Dot(across, scene.m_light) / across.Length() / scene.m_light.Length();
        EXPECT_EQ(face.IsSunLightOn(scene.m_light, true), cosine > 0);
        ++(cosine > 0 ? lit : unlit);
        const std::array<double, 3> expected = scene.ColourOf(face, std::max(cosine, 0.0));
        const std::array<double, 2> place = camera.PlaceOf(middle);
        const std::size_t at = (static_cast<std::size_t>(place[1]) * kWidth + static_cast<std::size_t>(place[0])) * 4;
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(picture.rgba[at + i], expected[i], 1.5) << "at " << place[0] << ", " << place[1];
    }
    EXPECT_GT(lit, 2);
    EXPECT_GT(unlit, 1);
}

TEST(LitHouse, LooksAsInTheDocumentation) {
    constexpr int kFine = 3;
    ORVO_OPEN_GL(gl, kWidth * kFine, kHeight * kFine);
    HouseScene scene;
    const GlPicture fine = DrawScene(*gl, scene, CameraFor(kFine));
    const QImage picture = QImage(fine.rgba.data(), fine.width, fine.height, QImage::Format_RGBX8888)
                               .scaled(kWidth, kHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                               .convertToFormat(QImage::Format_RGB32);
    ASSERT_TRUE(picture.save(QString::fromStdString(BuildFolder() + "/lit-house.png")));

    const QImage documented = QImage(QString::fromStdString(SourceFolder() + "/docs/pictures/lit-house.png"))
                                  .convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(documented.size(), picture.size()) << "the build folder holds the picture as it is now";
    // Another renderer may round otherwise, and shift an outline by a part of a pixel.
    int different = 0;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const QRgb left = picture.pixel(x, y);
            const QRgb right = documented.pixel(x, y);
            different += std::abs(qRed(left) - qRed(right)) > 8 || std::abs(qGreen(left) - qGreen(right)) > 8 ||
                         std::abs(qBlue(left) - qBlue(right)) > 8;
        }
    EXPECT_LT(different, kWidth * kHeight / 200) << "the build folder holds the picture as it is now";
}

}  // namespace
