// Two plates of text with a margin, and the compass.
#include "workbench/film/FilmStamp.h"

#include <QPainter>
#include <algorithm>

#include "facts/SunDay.h"
#include "workbench/film/FilmScene.h"
#include "workbench/view/CompassRose.h"
#include "workbench/view/HoursLegend.h"
#include "workbench/view/PlaceWords.h"
#include "workbench/view/SunStamp.h"
#include "workbench/view/WidgetText.h"

namespace {

// Grey of the ground, in the sun and in the shadow.
constexpr int kLitGround = 0xC2C2BE;
constexpr int kShadedGround = 0x555552;

}  // namespace

FilmStamp::FilmStamp(const AnalysisRequest& request, const AnalysisAnswer& answer)
    : m_request(request), m_answer(answer) {}

std::vector<QString> FilmStamp::LinesAt(double trueSolarTime) const {
    const Place& place = *m_request.settings.place;
    return SunStamp(PlaceInWords(place), m_request.terms.day, ComputeSunDay(m_request.terms, place), trueSolarTime);
}

std::vector<PlateRow> FilmStamp::Legend() const {
    std::vector<PlateRow> rows = {{kLitGround, ShownSay(L"太阳照到")}, {kShadedGround, ShownSay(L"阴影")}};
    const std::vector<WindowResult>& windows = m_answer.windows;
    if (std::any_of(windows.begin(), windows.end(), [](const WindowResult& each) { return each.facing.has_value(); })) {
        rows.push_back({-1, ShownSay(L"窗的日照（小时）")});
        const auto hours = HoursLegend(m_request.settings.standard->timeColors, m_request.need);
        rows.insert(rows.end(), hours.begin(), hours.end());
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
        top.Add({-1, line});
    top.Draw(painter, edge, edge, most);
    Plate bottom(text);
    for (const PlateRow& row : Legend())
        bottom.Add(row);
    bottom.MakeNoHigherThan(picture.height() - top.Height() - 3 * edge);
    bottom.Draw(painter, edge, picture.height() - edge - bottom.Height(), picture.width() - 2 * edge);
    const double radius = text * 2.2;
    const QSizeF reach = ReachOfCompassRose(painter.font(), radius);
    DrawCompassRose(painter, camera, m_request.north, {picture.width() - edge - reach.width(), edge + reach.height()},
                    radius);
}
