// Brings windows to paper, the worst of a stack on top.
#include "workbench/report/PlanStrokes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <set>

#include "facts/Standard.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PlanSheet.h"
#include "workbench/view/IndexColors.h"

namespace {

constexpr int kEdge = 12;  // the dark rim around a stroke; hundredths of a millimetre, like all below
constexpr int kLeastLength = 40;
constexpr int kLeastToName = 80;  // of a window that is shorter a text could not be told to be its
constexpr int kSameLine = 15;
constexpr int kNameSize = 210;
constexpr int kHoursSize = 170;
constexpr std::size_t kMostLinks = 3000;  // beyond this a page gets slow of them
constexpr std::size_t kMostHours = 3000;

bool HasFailed(const PlanWindow& window) {
    return window.isTold && window.passes.has_value() && !*window.passes;
}

// Whole minutes, none of them rounded up to: 1:59 is not 2 hours.
CString HoursText(double minutes) {
    const auto whole = static_cast<long>(std::floor(std::clamp(minutes, 0.0, 1e6) + 1e-6));
    const std::string rest = std::to_string(whole % 60);
    return FromUtf8(std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest);
}

int StrokeWidth(const PlanSheet& sheet) {
    constexpr double kMost = 90.0;
    constexpr double kLeast = 30.0;
    constexpr double kMostRatio = 800.0;
    return static_cast<int>(std::clamp(kMost * std::sqrt(kMostRatio / sheet.ratio), kLeast, kMost));
}

bool BringToPaper(const PlanWindow& window, const PlanSheet& sheet, PlanStroke& stroke) {
    const Vector3 left = sheet.Place(window.corners[0].x, window.corners[0].y);
    const Vector3 right = sheet.Place(window.corners[1].x, window.corners[1].y);
    if (sheet.IsFarOutside(left) || sheet.IsFarOutside(right))
        return false;
    stroke.left = sheet.Point(window.corners[0].x, window.corners[0].y);
    stroke.right = sheet.Point(window.corners[1].x, window.corners[1].y);
    Vector3 way = right - left;
    const double length = Length(way);
    if (!(length > 0.0))
        way = {1.0, 0.0, 0.0};
    else
        way = way * (1.0 / length);
    if (window.isTold && length > 0.0) {
        stroke.outX = -way.y;
        stroke.outY = way.x;
    }
    if (length < kLeastLength) {
        const Vector3 middle = (left + right) * 0.5;
        const Vector3 half = way * (0.5 * kLeastLength);
        const Vector3 from = middle - half;
        const Vector3 to = middle + half;
        stroke.left = {static_cast<int>(std::lround(from.x)), static_cast<int>(std::lround(from.y))};
        stroke.right = {static_cast<int>(std::lround(to.x)), static_cast<int>(std::lround(to.y))};
    }
    stroke.hasRoom = length >= kLeastToName;
    // It lies outside of the wall, so that the walls of slender buildings keep theirs apart.
    const auto shift = [&](PaperPoint& point) {
        point.x += static_cast<int>(std::lround(stroke.outX * 0.5 * StrokeWidth(sheet)));
        point.y += static_cast<int>(std::lround(stroke.outY * 0.5 * StrokeWidth(sheet)));
    };
    shift(stroke.left);
    shift(stroke.right);
    return true;
}

PaperPoint MiddleOf(const PlanStroke& stroke) {
    return {(stroke.left.x + stroke.right.x) / 2, (stroke.left.y + stroke.right.y) / 2};
}

PaperPoint Outside(const PlanStroke& stroke, double away, double along) {
    const PaperPoint middle = MiddleOf(stroke);
    return {middle.x + static_cast<int>(std::lround(stroke.outX * away - stroke.outY * along)),
            middle.y + static_cast<int>(std::lround(stroke.outY * away + stroke.outX * along))};
}

// A little longer than the stroke.
PaperLoop RimOf(const PlanStroke& stroke) {
    const double length = std::hypot(stroke.right.x - stroke.left.x, stroke.right.y - stroke.left.y);
    if (!(length > 0.0))
        return {stroke.left, stroke.right};
    const auto x = static_cast<int>(std::lround((stroke.right.x - stroke.left.x) * kEdge / length));
    const auto y = static_cast<int>(std::lround((stroke.right.y - stroke.left.y) * kEdge / length));
    return {{stroke.left.x - x, stroke.left.y - y}, {stroke.right.x + x, stroke.right.y + y}};
}

// A triangle that points at the window.
std::string MarkOf(const PlanStroke& stroke, int width) {
    std::string path;
    AppendLoop(path, {Outside(stroke, width, 0.0), Outside(stroke, 2.2 * width, 0.7 * width),
                      Outside(stroke, 2.2 * width, -0.7 * width)});
    return path;
}

// Beside a window, the nearer the better; empty where there is no room.
std::string TextBeside(const PlanStroke& stroke, int width, const CString& text, int size, PaperLabels& labels) {
    if (text.IsEmpty() || !stroke.hasRoom)
        return {};
    const PaperBox own = BoxForText(text, size, {});
    // As far as the text's box reaches towards the window.
    const double reach = 0.5 * (std::abs(stroke.outX) * own.Width() + std::abs(stroke.outY) * own.Height());
    const double aside = std::abs(stroke.outX) * own.Height() + std::abs(stroke.outY) * own.Width();
    for (const double away : {0.0, 1.0, 2.2})
        for (const double along : {0.0, 0.5, -0.5}) {
            const double gap = 2.2 * width + 0.3 * size;
            const PaperPoint middle = Outside(stroke, gap + reach + away * size, along * aside);
            const PaperBox box = BoxForText(text, size, middle);
            if (labels.TryTake(box))
                return TextInBox(text, box, size);
        }
    return {};
}

CString NameAndHours(const PlanWindow& window) {
    return window.name + L" " + HoursText(window.minutes);
}

// Farther and farther away, outwards first.
std::optional<PaperBox> RoomAround(const PlanStroke& stroke, const CString& text, PaperLabels& labels) {
    const double ahead =
        stroke.outX == 0.0 && stroke.outY == 0.0 ? -0.5 * std::numbers::pi : std::atan2(stroke.outY, stroke.outX);
    const PaperPoint middle = MiddleOf(stroke);
    for (const double away : {5.0, 7.0, 10.0, 14.0, 19.0, 25.0, 32.0, 40.0})
        for (const double aside : {0.0, 20.0, -20.0, 40.0, -40.0, 65.0, -65.0, 90.0, -90.0, 125.0, -125.0, 180.0}) {
            const double direction = ahead + aside * std::numbers::pi / 180.0;
            const PaperPoint place = {middle.x + static_cast<int>(std::lround(away * kNameSize * std::cos(direction))),
                                      middle.y + static_cast<int>(std::lround(away * kNameSize * std::sin(direction)))};
            const PaperBox box = BoxForText(text, kNameSize, place);
            if (labels.TryTake(box))
                return box;
        }
    return {};
}

PaperPoint NearestOf(const PaperBox& box, PaperPoint to) {
    return {std::clamp(to.x, box.left, box.right), std::clamp(to.y, box.top, box.bottom)};
}

std::string TitleOf(const PlanWindow& window) {
    CString title = window.name;
    if (window.isTold)
        title += L" " + HoursText(window.minutes);
    return "<title>" + Markup(title) + "</title>";
}

// Neighbours of one colour share a group; where there are too many for links, a path.
std::string ColoredStrokes(const PlanPicture& picture, const PlanStrokes& strokes) {
    const bool hasLinks = strokes.strokes.size() <= kMostLinks;
    std::string colored;
    std::string before;
    for (const PlanStroke& stroke : strokes.strokes) {
        const PlanWindow& window = picture.windows[stroke.window];
        const std::string color = window.isTold ? ColorOfMinutes(picture, window.minutes) : ColorText(kUntoldRgb);
        const char* const end = hasLinks ? "</g>\n" : "\"/>\n";
        if (color != before) {
            colored += before.empty() ? "" : end;
            colored += hasLinks ? "<g stroke=\"" + color + "\">\n" : "<path stroke=\"" + color + "\" d=\"";
            before = color;
        }
        std::string line;
        AppendLine(line, {stroke.left, stroke.right});
        if (!hasLinks)
            colored += line;
        else if (window.link.empty())
            colored += "<path d=\"" + line + "\">" + TitleOf(window) + "</path>\n";
        else
            colored += "<a href=\"" + window.link + "\">" + TitleOf(window) + "<path d=\"" + line + "\"/></a>\n";
    }
    return colored + (hasLinks ? "</g>\n" : "\"/>\n");
}

}  // namespace

std::string ColorText(int rgb) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += kDigits[rgb >> shift & 15];
    return text;
}

std::string ColorOfMinutes(const PlanPicture& picture, double minutes) {
    Standard table;
    table.timeColors = picture.colors;
    return ColorText(RgbOfColorIndex(table.TimeColorOf(minutes / 60.0)));
}

PlanStrokes FindStrokes(const PlanPicture& picture, const PlanSheet& sheet) {
    PlanStrokes found;
    found.width = StrokeWidth(sheet);
    for (std::size_t i = 0; i < picture.windows.size(); ++i) {
        PlanStroke stroke;
        stroke.window = i;
        if (BringToPaper(picture.windows[i], sheet, stroke))
            found.strokes.push_back(stroke);
    }
    const auto minutes = [&](const PlanStroke& stroke) {
        const PlanWindow& window = picture.windows[stroke.window];
        return window.isTold ? window.minutes : 1e9;
    };
    std::stable_sort(found.strokes.begin(), found.strokes.end(),
                     [&](const PlanStroke& a, const PlanStroke& b) { return minutes(a) < minutes(b); });
    std::set<std::array<int, 4>> lines;
    const auto rounded = [](int place) { return (place + (place < 0 ? -kSameLine : kSameLine) / 2) / kSameLine; };
    found.covered = std::erase_if(found.strokes, [&](const PlanStroke& each) {
        return !lines.insert({rounded(each.left.x), rounded(each.left.y), rounded(each.right.x), rounded(each.right.y)})
                    .second;
    });
    std::reverse(found.strokes.begin(), found.strokes.end());
    return found;
}

std::string DrawStrokes(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels) {
    if (strokes.strokes.empty())
        return {};
    const int half = strokes.width / 2;
    std::string rims;
    std::string marks;
    for (const PlanStroke& stroke : strokes.strokes) {
        AppendLine(rims, RimOf(stroke));
        const PaperBox box = BoxAround({{stroke.left, stroke.right}});
        labels.Take({box.left - half, box.top - half, box.right + half, box.bottom + half});
        if (HasFailed(picture.windows[stroke.window]))
            marks += MarkOf(stroke, strokes.width);
    }
    std::string all = "<g class=\"windows\" fill=\"none\" stroke-width=\"" + std::to_string(strokes.width) +
                      "\">\n<path class=\"rims\" stroke=\"#222\" stroke-width=\"" +
                      std::to_string(strokes.width + 2 * kEdge) + "\" d=\"" + rims + "\"/>\n" +
                      ColoredStrokes(picture, strokes) + "</g>\n";
    if (!marks.empty())
        all += "<path class=\"fails\" fill=\"#111\" d=\"" + marks + "\"/>\n";
    return all;
}

PlanNames DrawNames(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels) {
    std::string texts;
    std::vector<const PlanStroke*> nameless;
    // The worst ones stand last.
    for (auto stroke = strokes.strokes.rbegin(); stroke != strokes.strokes.rend(); ++stroke) {
        const PlanWindow& window = picture.windows[stroke->window];
        if (!HasFailed(window))
            continue;
        std::string text = TextBeside(*stroke, strokes.width, NameAndHours(window), kNameSize, labels);
        if (text.empty())
            text = TextBeside(*stroke, strokes.width, window.name, kNameSize, labels);
        if (text.empty() && !window.name.IsEmpty())
            nameless.push_back(&*stroke);
        texts += text;
    }
    // Behind the others, whose room beside their windows nothing from afar is to take.
    PlanNames names;
    std::string leaders;
    for (const PlanStroke* stroke : nameless) {
        const CString text = NameAndHours(picture.windows[stroke->window]);
        if (const std::optional<PaperBox> box = RoomAround(*stroke, text, labels)) {
            AppendLine(leaders, {Outside(*stroke, 2.2 * strokes.width, 0.0), NearestOf(*box, MiddleOf(*stroke))});
            texts += TextInBox(text, *box, kNameSize);
        } else {
            ++names.leftOut;
        }
    }
    if (!leaders.empty())
        names.markup =
            "<path class=\"leaders\" fill=\"none\" stroke=\"#111\" stroke-opacity=\"1\" stroke-width=\"9\" d=\"" +
            leaders + "\"/>\n";
    if (!texts.empty())
        names.markup += "<g class=\"names\" font-size=\"" + std::to_string(kNameSize) + "\" font-weight=\"bold\">\n" +
                        texts + "</g>\n";
    return names;
}

std::string DrawHours(const PlanPicture& picture, const PlanStrokes& strokes, PaperLabels& labels) {
    std::string texts;
    for (const PlanStroke& stroke : strokes.strokes) {
        const PlanWindow& window = picture.windows[stroke.window];
        if (window.isTold && !HasFailed(window) && strokes.strokes.size() <= kMostHours)
            texts += TextBeside(stroke, strokes.width, HoursText(window.minutes), kHoursSize, labels);
    }
    if (texts.empty())
        return {};
    return "<g class=\"hours\" font-size=\"" + std::to_string(kHoursSize) + "\">\n" + texts + "</g>\n";
}
