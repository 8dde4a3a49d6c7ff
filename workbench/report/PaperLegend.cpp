// Lays signs and texts out in lines.
#include "workbench/report/PaperLegend.h"

#include "workbench/report/Markup.h"
#include "workbench/report/PaperLabels.h"

std::string PlacedText(const CString& text, double x, double y, const char* anchor) {
    return "<text x=\"" + Coordinate(x) + "\" y=\"" + Coordinate(y) + "\" text-anchor=\"" + anchor + "\">" +
           Markup(text) + "</text>\n";
}

int LayOutLegend(const std::vector<LegendEntry>& entries, int width, int top, std::string& markup) {
    constexpr int kLine = 480;
    constexpr int kSignWidth = 500;
    constexpr int kGap = 120;
    constexpr int kBetween = 400;
    int x = 0;
    int y = top;
    markup += "<g class=\"legend\" font-size=\"" + std::to_string(kLegendSize) + "\">\n";
    for (const LegendEntry& entry : entries) {
        const int sign = entry.sign.empty() ? 0 : kSignWidth + kGap;
        const int own = sign + TextWidthOnPaper(entry.text, kLegendSize);
        if (x > 0 && x + own > width) {
            x = 0;
            y += kLine;
        }
        if (sign > 0)
            markup += "<g transform=\"translate(" + std::to_string(x) + ' ' + std::to_string(y) + ")\">" + entry.sign +
                      "</g>";
        markup += PlacedText(entry.text, x + sign, y + kLegendSize, "start");
        x += own + kBetween;
    }
    markup += "</g>\n";
    return y + kLine - top;
}
