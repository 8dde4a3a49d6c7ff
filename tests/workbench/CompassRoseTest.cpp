// The compass keeps within what it says it needs, wherever one looks from, and can be read before dark ground.
#include "workbench/view/CompassRose.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "platform/base/Language.h"
#include "workbench/WindowStage.h"
#include "workbench/view/ViewCamera.h"

namespace {

constexpr double kRadius = 36.0;
constexpr int kSide = 400;

class CompassRose : public WindowStage {
protected:
    // What is painted, on a ground of one colour with much room around.
    static QImage Paint(double azimuth, double altitude, const QColor& ground, double north = 0.0) {
        ViewCamera camera;
        camera.SetViewport(kSide, kSide);
        camera.Look(azimuth, altitude);
        QImage image(kSide, kSide, QImage::Format_RGB32);
        image.fill(ground);
        QPainter painter(&image);
        DrawCompassRose(painter, camera, north, QPointF(kSide / 2.0, kSide / 2.0), kRadius);
        return image;
    }
    // How far from the middle there is anything else than ground.
    static QSizeF Reach(const QImage& image) {
        QSizeF reach(0, 0);
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                if (image.pixel(x, y) != image.pixel(0, 0))
                    reach = reach.expandedTo(
                        QSizeF(std::max(kSide / 2 - x, x + 1 - kSide / 2), std::max(kSide / 2 - y, y + 1 - kSide / 2)));
        return reach;
    }
};

}  // namespace

TEST_F(CompassRose, ReachesNoFurtherThanItSays) {
    for (const wchar_t* language : {L"zh", L"en"}) {
        Language().SetLanguage(language);
        const QSizeF most = ReachOfCompassRose(QFont(), kRadius);
        for (int azimuth = 0; azimuth < 360; azimuth += 15)
            for (const double altitude : {0.0, 30.0, 90.0}) {
                const QSizeF reach = Reach(Paint(azimuth, altitude, Qt::white));
                EXPECT_GT(reach.width(), kRadius) << "it is there";
                EXPECT_LE(reach.width(), most.width()) << azimuth << ", " << altitude;
                EXPECT_LE(reach.height(), most.height()) << azimuth << ", " << altitude;
            }
    }
}

// North is up in the picture: the label stands above the ring, alone.
TEST_F(CompassRose, HasALabelThatIsReadBeforeDarkAndLightGround) {
    Language().SetLanguage(L"en");
    for (const QColor& ground : {QColor(30, 30, 30), QColor(240, 240, 240)}) {
        const QImage image = Paint(180.0, 90.0, ground);
        int lightest = 0;
        int darkest = 255;
        const int ring = kSide / 2 - static_cast<int>(kRadius) - 3;
        for (int y = 0; y < ring; ++y)
            for (int x = 0; x < kSide; ++x) {
                lightest = std::max(lightest, qGray(image.pixel(x, y)));
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
            }
        EXPECT_GT(lightest, 180) << "the rim, or the ground";
        EXPECT_LT(darkest, 90) << "the letters, or the ground";
    }
}

// From above the drawing's y axis is up in the picture, and true north 90 degrees counter-clockwise of it is to the
// left.
TEST_F(CompassRose, PointsToTrueNorth) {
    Language().SetLanguage(L"en");
    const auto inkBeyondTheRing = [](const QImage& image, const QRect& part) {
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                count += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        return count;
    };
    const int ring = static_cast<int>(kRadius) + 3;
    const QRect above(0, 0, kSide, kSide / 2 - ring);
    const QRect left(0, 0, kSide / 2 - ring, kSide);
    const QImage up = Paint(180.0, 90.0, Qt::white);
    EXPECT_GT(inkBeyondTheRing(up, above), 0);
    EXPECT_EQ(inkBeyondTheRing(up, left), 0);
    const QImage turned = Paint(180.0, 90.0, Qt::white, 90.0);
    EXPECT_EQ(inkBeyondTheRing(turned, above), 0);
    EXPECT_GT(inkBeyondTheRing(turned, left), 0);
}
