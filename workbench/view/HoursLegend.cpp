// Rows in the order of the standard's table, as every picture has them.
#include "workbench/view/HoursLegend.h"

#include "platform/base/TextNumber.h"
#include "workbench/Texts.h"
#include "workbench/view/IndexColors.h"
#include "workbench/view/WidgetText.h"

std::vector<PlateRow> HoursLegend(const std::vector<TimeColor>& colors, std::optional<double> need) {
    std::vector<PlateRow> rows;
    const auto mark = [&] {
        rows.push_back({-1, Shown(SayFormat(L"需要 %s", DoubleToText(*need))), true});
        need.reset();
    };
    for (const TimeColor& color : colors) {
        if (need && color.hours >= *need)
            mark();
        rows.push_back({RgbOfColorIndex(color.color), "\u2265 " + Shown(DoubleToText(color.hours))});
    }
    if (need && !rows.empty())
        mark();
    return rows;
}
