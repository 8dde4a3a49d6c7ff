// The slider over the day: its numbers, its mark, and what a click on it does.
#include <gtest/gtest.h>

#include <QStyle>
#include <QTest>

#include "workbench/PreparedWindows.h"
#include "workbench/window/HourSlider.h"

namespace {

constexpr double kLastMinute = 24 * 60 - 1;

class DaySlider : public PreparedWindows {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(PreparedWindows::SetUp());
        m_slider = std::make_unique<HourSlider>(nullptr);
        SetWidth(500);
        m_slider->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_slider.get()));
    }
    void SetWidth(int width) const { m_slider->resize(width, m_slider->sizeHint().height()); }
    int Handle() const { return m_slider->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, m_slider.get()); }
    // Where the middle of the handle is at a minute: it goes from edge to edge.
    double XOf(double minute) const { return Handle() / 2.0 + minute / kLastMinute * (m_slider->width() - Handle()); }
    QPoint Groove(double minute) const { return {static_cast<int>(std::lround(XOf(minute))), Handle() / 2}; }
    double MinutesPerPixel() const { return kLastMinute / (m_slider->width() - Handle()); }
    // The stretches of columns that have the mark's green, each up to its right edge.
    std::vector<std::pair<int, int>> Marked() const {
        const QImage image = m_slider->grab().toImage().convertToFormat(QImage::Format_RGB32);
        std::vector<std::pair<int, int>> found;
        for (int x = 0; x < image.width(); ++x) {
            bool isGreen = false;
            for (int y = 0; y < image.height(); ++y)
                isGreen = isGreen || image.pixelColor(x, y) == QColor(46, 158, 82);
            if (isGreen && !found.empty() && found.back().second == x)
                found.back().second = x + 1;
            else if (isGreen)
                found.emplace_back(x, x + 1);
        }
        return found;
    }

    std::unique_ptr<HourSlider> m_slider;
};

}  // namespace

TEST_F(DaySlider, GoesWhereItIsClicked) {
    m_slider->setValue(12 * 60);
    m_slider->setPageStep(30);
    for (const int minute : {9 * 60, 20 * 60, 100}) {
        QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, Groove(minute));
        EXPECT_NEAR(m_slider->value(), minute, MinutesPerPixel()) << "and not a page towards it";
        EXPECT_FALSE(m_slider->isSliderDown());
    }
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, {0, Handle() / 2});
    EXPECT_EQ(m_slider->value(), 0);
    const QPoint atNumbers(Groove(15 * 60).x(), m_slider->height() - 3);
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, atNumbers);
    EXPECT_NEAR(m_slider->value(), 15 * 60, MinutesPerPixel()) << "on its number, too";
    QTest::mouseClick(m_slider.get(), Qt::RightButton, {}, Groove(300));
    EXPECT_NEAR(m_slider->value(), 15 * 60, MinutesPerPixel());
}

TEST_F(DaySlider, IsDraggedOnFromTheClick) {
    m_slider->setValue(12 * 60);
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, Groove(9 * 60));
    EXPECT_TRUE(m_slider->isSliderDown());
    QTest::mouseMove(m_slider.get(), Groove(10 * 60));
    EXPECT_NEAR(m_slider->value(), 10 * 60, 2 * MinutesPerPixel());
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, Groove(10 * 60));
    EXPECT_FALSE(m_slider->isSliderDown());
}

// Taken at its side it does not jump.
TEST_F(DaySlider, IsHeldWhereItIsTaken) {
    m_slider->setValue(12 * 60);
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, Groove(12 * 60) + QPoint(Handle() / 2 - 2, 0));
    EXPECT_EQ(m_slider->value(), 12 * 60);
}

TEST_F(DaySlider, StepsByKeys) {
    m_slider->setValue(12 * 60);
    m_slider->setPageStep(30);
    QTest::keyClick(m_slider.get(), Qt::Key_Right);
    QTest::keyClick(m_slider.get(), Qt::Key_PageUp);
    EXPECT_EQ(m_slider->value(), 12 * 60 + 31);
}

TEST_F(DaySlider, HasAsManyNumbersAsFit) {
    for (const int width : {144, 200, 300, 500, 900}) {
        SetWidth(width);
        const std::vector<int> hours = m_slider->GetNumberedHours();
        ASSERT_GE(hours.size(), 2U);
        EXPECT_EQ(hours[0], 0);
        const int step = hours[1];
        EXPECT_EQ(24 % step, 0) << "the same ones in the morning and in the evening";
        EXPECT_EQ(hours.size(), static_cast<std::size_t>(24 / step));
        const double hour = XOf(60) - XOf(0);
        const int room = m_slider->fontMetrics().horizontalAdvance("00");
        EXPECT_GT(step * hour, room) << "at " << width << " they are written over each other";
        if (step > 1)
            EXPECT_LT((step - 1) * hour, 1.7 * room) << "at " << width << " there is room for more";
    }
}

TEST_F(DaySlider, WritesThemBelow) {
    const auto inked = [this](int left, int right) {
        const QImage image = m_slider->grab().toImage().convertToFormat(QImage::Format_RGB32);
        int count = 0;
        for (int y = image.height() - m_slider->fontMetrics().height(); y < image.height(); ++y)
            for (int x = left; x <= right; ++x)
                count += image.pixelColor(x, y).lightness() < 100 ? 1 : 0;
        return count;
    };
    SetWidth(900);
    ASSERT_EQ(m_slider->GetNumberedHours().size(), 24U);
    for (const int hour : {8, 12, 23}) {
        const int x = static_cast<int>(XOf(hour * 60));
        EXPECT_GT(inked(x - 8, x + 8), 5) << hour;
    }
    const int between = static_cast<int>(XOf(12 * 60 + 30));
    EXPECT_EQ(inked(between - 2, between + 2), 0);
}

TEST_F(DaySlider, MarksAStretch) {
    m_slider->setValue(0);
    EXPECT_TRUE(Marked().empty());
    m_slider->SetMark(SunPeriod{8.0, 16.0});
    auto marked = Marked();
    ASSERT_EQ(marked.size(), 1U);
    EXPECT_NEAR(marked[0].first, XOf(8 * 60), 1.0);
    EXPECT_NEAR(marked[0].second, XOf(16 * 60), 1.0);
    m_slider->SetMark(SunPeriod{-2.0, 3.0});  // from ten in the evening
    marked = Marked();
    ASSERT_EQ(marked.size(), 2U);
    EXPECT_NEAR(marked[0].second, XOf(3 * 60), 1.0);
    EXPECT_NEAR(marked[1].first, XOf(22 * 60), 1.0);
    m_slider->SetMark({});
    EXPECT_TRUE(Marked().empty());
}
