// Hints in empty fields under the colours of several desktops.
#include "workbench/window/HintColors.h"

#include <QLineEdit>

#include "workbench/WindowStage.h"

namespace {

const QColor kHalfBlack(0, 0, 0, 128);

// A dark desktop's, with the hints that the toolkit has where the desktop names none.
QPalette Dark(const QColor& hint) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::WindowText, QColor(252, 252, 252));
    dark.setColor(QPalette::Text, QColor(252, 252, 252));
    dark.setColor(QPalette::PlaceholderText, hint);
    return dark;
}

void SetDesktop(const QPalette& palette) {
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();  // widgets are told by one
}

class HintColorsTest : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        m_before = QApplication::palette();
    }
    void TearDown() override {
        WindowStage::TearDown();
        SetDesktop(m_before);
    }
    QColor HintOf(const char* field) const {
        return Find<QLineEdit>(field)->palette().color(QPalette::PlaceholderText);
    }
    // The brightest pixel within the field's frame, from 0 to 255.
    int BrightestIn(const char* field) const {
        const QImage image = Find<QLineEdit>(field)->grab().toImage();
        int brightest = 0;
        for (int y = 5; y < image.height() - 5; ++y)
            for (int x = 5; x < image.width() - 5; ++x)
                brightest = std::max(brightest, image.pixelColor(x, y).lightness());
        return brightest;
    }

    QPalette m_before;
};

}  // namespace

TEST_F(HintColorsTest, AreTakenFromTextsWhereTheDesktopHasNone) {
    SetDesktop(Dark(kHalfBlack));
    EXPECT_EQ(HintOf("WindowLayers").rgba(), qRgba(252, 252, 252, 128));
    EXPECT_GT(BrightestIn("WindowLayers"), 100) << "the field has 30";
    SetDesktop(m_before);
    EXPECT_EQ(HintOf("WindowLayers").rgba(), m_before.color(QPalette::PlaceholderText).rgba())
        << "the desktop is light again";
}

TEST_F(HintColorsTest, AreMendedInAWindowThatOpensThen) {
    m_window.reset();
    SetDesktop(Dark(kHalfBlack));
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    EXPECT_EQ(HintOf("WindowLayers").rgba(), qRgba(252, 252, 252, 128));
}

TEST_F(HintColorsTest, StayTheDesktopsWhereTheyCanBeRead) {
    const QColor green(90, 200, 90);
    SetDesktop(Dark(green));
    EXPECT_EQ(HintOf("WindowLayers"), green);
}

// Half black on white: (1 + 0.05) / (0.2140 + 0.05) = 3.98; on black it is black.
TEST(HintContrast, IsThatOfTheColourThatIsSeen) {
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::PlaceholderText, kHalfBlack);
    EXPECT_TRUE(HintColors::AreReadable(light));
    light.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 20));
    EXPECT_FALSE(HintColors::AreReadable(light)) << "next to nothing is seen of it";
    EXPECT_FALSE(HintColors::AreReadable(Dark(kHalfBlack)));
    EXPECT_TRUE(HintColors::AreReadable(Dark(Qt::white)));
}
