// Two plates of text with a margin, and the compass.
#include "workbench/film/FilmStamp.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <limits>

#include "facts/ClockText.h"
#include "facts/DayText.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/film/FilmScene.h"
#include "workbench/view/CompassRose.h"
#include "workbench/view/IndexColors.h"
#include "workbench/view/WidgetText.h"

namespace {

const QColor kInk(30, 34, 40);
const QColor kPlate(255, 255, 255, 215);
// Grey of the ground, in the sun and in the shadow.
constexpr int kLitGround = 0xC2C2BE;
constexpr int kShadedGround = 0x555552;

CString Degrees(double value) {
    CString text;
    text.Format(L"%.1f", value);
    return text == L"-0.0" ? CString(L"0.0") : text;
}

// One plate: its rows, each with a colour or without one, in one column or more, and how large everything is.
class Plate {
public:
    explicit Plate(int textHeight) : m_height(textHeight), m_font(FontOf(textHeight)), m_metrics(m_font) {}

    void Add(const QString& text, int rgb = -1) { m_rows.push_back({rgb, text}); }
    int Height() const { return std::min(static_cast<int>(m_rows.size()), m_most) * Line() + 2 * Margin(); }
    // Further rows go into further columns, so that it is no higher than this if a row fits into it.
    void MakeNoHigherThan(int height) { m_most = std::max((height - 2 * Margin()) / Line(), 1); }
    // No wider than `most`: longer texts end in dots.
    void Draw(QPainter& painter, int x, int y, int most) const {
        const int wide = std::min(Width(), most);
        painter.setPen(Qt::NoPen);
        painter.setBrush(kPlate);
        painter.drawRoundedRect(x, y, wide, Height(), m_height / 3.0, m_height / 3.0);
        painter.setFont(m_font);
        int left = x + Margin();
        const int right = x + wide - Margin();
        for (std::size_t first = 0; first < m_rows.size() && left < right; first += Step()) {
            const int column = ColumnWidth(first);
            for (std::size_t i = first; i < EndOfColumn(first); ++i)
                DrawRow(painter, m_rows[i],
                        QRect(left, y + Margin() + static_cast<int>(i - first) * Line(), std::min(column, right - left),
                              Line()));
            left += column + Gap();
        }
    }

private:
    static QFont FontOf(int pixels) {
        QFont font;
        font.setPixelSize(pixels);
        return font;
    }
    int Line() const { return m_height * 14 / 10; }
    int Margin() const { return m_height * 6 / 10; }
    int Indent(const FilmStamp::LegendRow& row) const { return row.rgb >= 0 ? m_height * 2 : 0; }
    int Gap() const { return m_height; }
    std::size_t Step() const { return static_cast<std::size_t>(m_most); }
    std::size_t EndOfColumn(std::size_t first) const { return std::min(m_rows.size() - first, Step()) + first; }
    int ColumnWidth(std::size_t first) const {
        int wide = 0;
        for (std::size_t i = first; i < EndOfColumn(first); ++i)
            wide = std::max(wide, Indent(m_rows[i]) + m_metrics.horizontalAdvance(m_rows[i].text));
        return wide + m_height / 2;  // a little more: texts of two fonts are measured too short
    }
    int Width() const {
        int wide = 2 * Margin();
        for (std::size_t first = 0; first < m_rows.size(); first += Step())
            wide += ColumnWidth(first) + (first > 0 ? Gap() : 0);
        return wide;
    }
    void DrawRow(QPainter& painter, const FilmStamp::LegendRow& row, const QRect& room) const {
        painter.setPen(kInk);
        if (row.rgb >= 0) {
            painter.setBrush(QColor(static_cast<QRgb>(row.rgb)));
            painter.drawRect(QRect(room.x(), room.y() + (Line() - m_height) / 2, m_height * 3 / 2, m_height - 1));
        }
        const QRect rest = room.adjusted(Indent(row), 0, 0, 0);
        painter.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft,
                         m_metrics.elidedText(row.text, Qt::ElideRight, rest.width()));
    }

    int m_height;
    int m_most = std::numeric_limits<int>::max();  // rows in a column
    QFont m_font;
    QFontMetrics m_metrics;
    std::vector<FilmStamp::LegendRow> m_rows;
};

}  // namespace

FilmStamp::FilmStamp(const AnalysisRequest& request, const AnalysisAnswer& answer)
    : m_request(request), m_answer(answer) {}

std::vector<QString> FilmStamp::LinesAt(double trueSolarTime) const {
    const SunPosition sun = PositionOfSun(ComputeSunDay(m_request.terms, *m_request.settings.place), trueSolarTime);
    return {Shown(Printable(m_request.settings.place->FullName())), Shown(Printable(DayInWords(m_request.terms.day))),
            Shown(SayFormat(L"真太阳时 %s", ClockText(trueSolarTime))),
            Shown(SayFormat(L"北京时间 %s", ClockText(trueSolarTime + m_answer.beijingOffset))),
            SunOfDrawing(m_request, trueSolarTime).direction.z > 0.0
                ? Shown(SayFormat(L"太阳高度角 %s°，方位角 %s°", Degrees(sun.altitude), Degrees(sun.azimuth)))
                : ShownSay(L"夜间：太阳在地平线以下")};
}

std::vector<FilmStamp::LegendRow> FilmStamp::Legend() const {
    std::vector<LegendRow> rows = {{kLitGround, ShownSay(L"太阳照到")}, {kShadedGround, ShownSay(L"阴影")}};
    const std::vector<WindowResult>& windows = m_answer.windows;
    if (std::any_of(windows.begin(), windows.end(), [](const WindowResult& each) { return each.facing.has_value(); })) {
        rows.push_back({-1, ShownSay(L"窗的日照（小时）")});
        for (const TimeColor& color : m_request.settings.standard->timeColors)
            rows.push_back({RgbOfColorIndex(color.color), "\u2265 " + Shown(DoubleToText(color.hours))});
    }
    if (std::any_of(windows.begin(), windows.end(), [](const WindowResult& each) { return !each.facing; }))
        rows.push_back({kNoSideColor, ShownSay(L"窗：分不清室外侧")});
    return rows;
}

void FilmStamp::Draw(QImage& picture, double trueSolarTime, const ViewCamera& camera) const {
    const int side = std::min(picture.width() * 9 / 16, picture.height());
    const int text = std::max(side / 42, 10);
    const int edge = text;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const int most = picture.width() * 3 / 5;
    Plate top(text);
    for (const QString& line : LinesAt(trueSolarTime))
        top.Add(line);
    top.Draw(painter, edge, edge, most);
    Plate bottom(text);
    for (const LegendRow& row : Legend())
        bottom.Add(row.text, row.rgb);
    bottom.MakeNoHigherThan(picture.height() - top.Height() - 3 * edge);
    bottom.Draw(painter, edge, picture.height() - edge - bottom.Height(), picture.width() - 2 * edge);
    const double radius = text * 2.2;
    const QSizeF reach = ReachOfCompassRose(painter.font(), radius);
    DrawCompassRose(painter, camera, m_request.north, {picture.width() - edge - reach.width(), edge + reach.height()},
                    radius);
}
