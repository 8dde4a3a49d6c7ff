// The view in a file: what the picture shows, and the formats that names ask for.
#include "workbench/window/SavedView.h"

#include <QCheckBox>
#include <QImageReader>

#include "workbench/AnalysisPanelStage.h"
#include "workbench/PreparedWindows.h"
#include "workbench/ViewStage.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/view/HoursLegend.h"
#include "workbench/window/SunBar.h"

namespace {

class SavedViewTest : public AnalysisPanelTest {
protected:
    void SetUp() override {
        AnalysisPanelTest::SetUp();
        if (View()->GetPicture().isNull())
            GTEST_SKIP() << "no EGL: there is no picture to save";
    }
    // As the menu does.
    std::filesystem::path Save(const char* name) const {
        CFileDialog::SetNextFileForTest(m_folder.File(name).GetString());
        QTest::keySequence(m_window.get(), QKeySequence("Ctrl+Shift+P"));
        return m_folder / name;
    }
    static QByteArray FormatOf(const std::filesystem::path& path) {
        QImageReader reader(QString::fromStdString(path.string()));
        reader.setDecideFormatFromContent(true);
        const QByteArray format = reader.format();
        return reader.read().isNull() ? QByteArray("none") : format;
    }
    static QImage Read(const std::filesystem::path& path) {
        return QImage(QString::fromStdString(path.string())).convertToFormat(QImage::Format_RGB32);
    }
    // What the window shows; the frame of the focus is not of the picture.
    QImage Shown() const {
        Edit()->setFocus();
        View()->GetShownPicture();  // at rest
        return View()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
};

// Letters are drawn.
class StampedViewTest : public PreparedWindows {};

bool IsMagenta(QRgb pixel) {
    return pixel == 0xFFFF00FF;
}

int CountMagenta(const QImage& picture, const QRect& of) {
    return Count(picture.copy(of), IsMagenta);
}

QImage Magenta() {
    QImage picture(600, 400, QImage::Format_RGB32);
    picture.fill(0xFFFF00FF);
    return picture;
}

}  // namespace

TEST_F(SavedViewTest, HasTheFormatOfItsEnding) {
    EXPECT_EQ(FormatOf(Save("pic.png")), "png") << Log();
    EXPECT_EQ(FormatOf(Save("pic.jpg")), "jpeg") << Log();
    EXPECT_EQ(FormatOf(Save("PIC.JPEG")), "jpeg") << Log();
    EXPECT_EQ(FormatOf(Save("pic.bmp")), "bmp") << Log();
    EXPECT_EQ(Read(m_folder / "pic.bmp"), Read(m_folder / "pic.png"));
    EXPECT_TRUE(HasLogged("pic.jpg"));
}

TEST_F(SavedViewTest, IsAPngWithoutAnEnding) {
    Save("pic");
    EXPECT_EQ(FormatOf(m_folder / "pic.png"), "png") << Log();
    EXPECT_FALSE(std::filesystem::exists(m_folder / "pic"));
    EXPECT_TRUE(HasLogged("pic.png"));
    m_folder.Write("other.png", "theirs");  // nobody was asked about that name
    Save("other");
    EXPECT_EQ(m_folder.Read("other.png"), "theirs");
    EXPECT_TRUE(HasLogged("other.png")) << Log();
    Save("dot.");
    EXPECT_EQ(FormatOf(m_folder / "dot.png"), "png") << Log();
}

TEST_F(SavedViewTest, IsRefusedForEndingsThatCannotBeWritten) {
    m_folder.Write("pic.gif", "theirs");
    Save("pic.gif");
    EXPECT_EQ(m_folder.Read("pic.gif"), "theirs");
    EXPECT_TRUE(HasLogged("不能写成 .gif 的图片")) << Log();
    EXPECT_TRUE(HasLogged(".png .jpg .jpeg .bmp")) << Log();
    Save("nowhere/pic.png");
    EXPECT_TRUE(HasLogged("nowhere/pic.png")) << Log();
}

TEST_F(SavedViewTest, OffersWhatItCanWrite) {
    EXPECT_EQ(PictureFilter(), CString(L"图片 (*.png *.jpg *.jpeg *.bmp)|*.png;*.jpg;*.jpeg;*.bmp||"));
}

TEST_F(SavedViewTest, ShowsWhatTheWindowShows) {
    const QImage plain = View()->GetPicture().convertToFormat(QImage::Format_RGB32);
    const QImage shown = Shown();
    EXPECT_NE(plain, shown) << "the compass";
    EXPECT_EQ(Read(Save("pic.png")), shown);
}

TEST_F(SavedViewTest, TellsMomentAndColours) {
    Run();
    Find<QCheckBox>("SunSwitch")->click();
    const QImage shown = Shown();
    const QImage expected = StampedView(View()->GetShownPicture(), Find<SunBar>("SunBar")->GetStamp(),
                                        Find<AnalysisPanel>("AnalysisPanel")->GetLegend());
    EXPECT_EQ(Find<SunBar>("SunBar")->GetStamp().size(), 5U);
    EXPECT_FALSE(Find<AnalysisPanel>("AnalysisPanel")->GetLegend().empty());
    const QImage saved = Read(Save("pic.png"));
    EXPECT_EQ(saved, expected.convertToFormat(QImage::Format_RGB32));
    const QRect middle(saved.width() / 2 - 20, saved.height() / 2 - 60, 40, 40);
    EXPECT_EQ(saved.copy(middle), shown.copy(middle)) << "else it is the view with the path of the sun";
    EXPECT_NE(saved.copy(0, 0, 100, 60), shown.copy(0, 0, 100, 60));
}

TEST_F(SavedViewTest, SaysPlaceAndMoment) {
    EXPECT_TRUE(Find<SunBar>("SunBar")->GetStamp().empty()) << "the sun is off";
    Type("set --date 2025-12-22 --place 通州");
    Find<SunBar>("SunBar")->ShineAt(9.5);
    const std::vector<QString> lines = Find<SunBar>("SunBar")->GetStamp();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0].toStdString(), "北京市/通州");
    EXPECT_EQ(lines[1].toStdString(), "2025年12月22日");
    EXPECT_EQ(lines[2].toStdString(), "真太阳时 09:30:00");
    EXPECT_TRUE(lines[3].startsWith(QString::fromUtf8("北京时间 09:4"))) << lines[3].toStdString();
    EXPECT_EQ(lines[4], Find<QLabel>("SunAbout")->text());
}

TEST_F(StampedViewTest, HasPlatesInTwoCornersOnly) {
    EXPECT_EQ(StampedView(Magenta(), {}, {}), Magenta());
    const QImage stamped = StampedView(Magenta(), {"Place", "Day"}, {});
    EXPECT_EQ(CountMagenta(stamped, {100, 0, 500, 400}), 500 * 400);
    EXPECT_EQ(CountMagenta(stamped, {0, 100, 600, 300}), 600 * 300);
    EXPECT_LT(CountMagenta(stamped, {13, 13, 50, 40}), 50 * 40 / 10);
    const QImage told = StampedView(Magenta(), {}, {{-1, "Colours"}, {0x00FF00, "2"}});
    EXPECT_EQ(CountMagenta(told, {0, 0, 450, 400}), 450 * 400);
    EXPECT_EQ(CountMagenta(told, {0, 0, 600, 300}), 600 * 300);
    EXPECT_GT(Count(told, [](QRgb pixel) { return pixel == 0xFF00FF00; }), 100);
    // Too many for one column, and for a picture that is too small for any.
    const std::vector<PlateRow> many(60, {0x00FF00, "2"});
    EXPECT_EQ(CountMagenta(StampedView(Magenta(), {}, many), {0, 0, 600, 12}), 600 * 12);
    EXPECT_EQ(StampedView(Magenta().copy(0, 0, 10, 10), {"Place"}, many).size(), QSize(10, 10));
}
