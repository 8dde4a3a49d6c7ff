// Reads texts, and finds by a tree of boxes which window each lies in.
#include "analysis/WindowTexts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/BoxTree.h"
#include "analysis/Boxes.h"
#include "analysis/PlainDrawingText.h"
#include "analysis/WindowName.h"
#include "analysis/WindowRectangle.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/HandleText.h"
#include "scene/EntityGroups.h"
#include "scene/ObjectCoordinates.h"

namespace {

constexpr int kText = 1;
constexpr int kMoreText = 3;
constexpr int kPoint = 10;
constexpr int kSecondPoint = 11;
constexpr int kAcross = 72;
constexpr int kUp = 73;
constexpr int kUpOfAttribute = 74;
constexpr int kAttributeFlags = 70;
constexpr int kNotShown = 1;
constexpr int kAligned = 3;
constexpr int kFitted = 5;
constexpr double kNameReachInPlan = 200.0;

bool ReadTextPoint(const EntityGroups& entity, int upCode, QcGePoint& point) {
    const int across = entity.IntegerOr(kAcross, 0);
    const bool isByFirst = (across == 0 && entity.IntegerOr(upCode, 0) == 0) || across == kAligned || across == kFitted;
    if (isByFirst || !entity.Point(kSecondPoint, point))
        if (!entity.Point(kPoint, point))
            return false;
    ObjectCoordinates axes;
    if (!ReadExtrusion(entity, axes))
        return false;
    point = axes.ToWorld(point);
    return true;
}

// The text of a long MTEXT stands in several groups.
std::string BytesOf(const EntityGroups& entity) {
    std::string bytes;
    for (const DxfGroup& group : entity.All())
        if (group.code == kText || group.code == kMoreText)
            bytes += group.value;
    return bytes;
}

// A window as a text sees it.
struct Plate {
    const DrawnWindow& window;

    // How far a place is before or behind it; none where it is neither.
    std::optional<double> DistanceOf(const Vector3& place) const {
        const Vector3 to = place - window.lowerLeft;
        const double x = Dot(to, window.right);
        const bool isWithin = x >= -kWindowTolerance && x <= window.width + kWindowTolerance &&
                              to.z >= -kWindowTolerance && to.z <= window.height + kWindowTolerance;
        if (!isWithin)
            return {};
        return std::fabs(Dot(to, window.Outward()));
    }
    Box Reach(double thickness) const {
        const Vector3 end = window.lowerLeft + window.right * window.width + Vector3{0.0, 0.0, window.height};
        const Box box = BoxAround(BoxAround(window.lowerLeft), BoxAround(end));
        return Widened(box, thickness + kWindowTolerance);
    }
};

// A window that is drawn as a line, as a text sees it: in plan.
struct PlanLine {
    const DrawnWindow& window;

    double DistanceOf(const Vector3& place) const {
        const Vector3 to = place - window.lowerLeft;
        const Vector3 away = to - window.right * std::clamp(Dot(to, window.right), 0.0, window.width);
        return std::hypot(away.x, away.y);
    }
    // How far a place is below its sill or above its head.
    double HeightAway(const Vector3& place) const {
        const double above = place.z - window.lowerLeft.z;
        return std::fabs(above - std::clamp(above, 0.0, window.height));
    }
    // At level 0, whatever its own.
    Box Reach() const {
        const Vector3 end = window.lowerLeft + window.right * window.width;
        return Widened(BoxAround(BoxAround(InPlan(window.lowerLeft)), BoxAround(InPlan(end))),
                       kNameReachInPlan + kWindowTolerance);
    }
    static Vector3 InPlan(const Vector3& point) { return {point.x, point.y, 0.0}; }
};

// Of one kind, known by their number among all windows.
struct WindowsToName {
    std::vector<std::size_t> numbers;
    std::vector<Box> boxes;
    BoxTree tree;

    void Add(std::size_t number, const Box& box) {
        numbers.push_back(number);
        boxes.push_back(box);
    }
    template <class Visit>
    void VisitAt(const Vector3& place, const Visit& visit) const {
        const Box here = BoxAround(place);
        tree.Walk([&](const Box& box) { return Overlap(box, here); },
                  [&](std::size_t index) { visit(numbers[index]); });
    }
};

class NameGiver {
public:
    NameGiver(const std::vector<DrawnWindow>& windows, double thickness) : m_windows(windows), m_thickness(thickness) {
        for (std::size_t i = 0; i < windows.size(); ++i)
            if (windows[i].isLine)
                m_lines.Add(i, PlanLine{windows[i]}.Reach());
            else
                m_rectangles.Add(i, Plate{windows[i]}.Reach(thickness));
        m_lines.tree = BoxTree(m_lines.boxes);
        m_rectangles.tree = BoxTree(m_rectangles.boxes);
    }

    // The number of the window that a text names; how many windows there are for none.
    std::size_t WindowOf(const WindowText& text) const {
        const Nearest rectangle = NearestRectangle(text);
        const Nearest line = NearestLine(text);
        return line.IsBefore(rectangle) ? line.window : rectangle.window;
    }

private:
    // Of equally near ones the first.
    struct Nearest {
        std::size_t window;
        double distance = std::numeric_limits<double>::infinity();

        bool IsBefore(const Nearest& other) const {
            return distance < other.distance || (distance == other.distance && window < other.window);
        }
        void Offer(const Nearest& other) {
            if (other.IsBefore(*this))
                *this = other;
        }
    };

    Nearest NearestRectangle(const WindowText& text) const {
        Nearest nearest{m_windows.size()};
        m_rectangles.VisitAt(text.place, [&](std::size_t window) {
            const std::optional<double> distance = Plate{m_windows[window]}.DistanceOf(text.place);
            if (distance && *distance <= m_thickness && m_windows[window].layer == text.layer)
                nearest.Offer({window, *distance});
        });
        return nearest;
    }

    // Lines of several storeys may lie above each other: of those the level chooses.
    Nearest NearestLine(const WindowText& text) const {
        const Vector3 place = PlanLine::InPlan(text.place);
        Nearest inPlan{m_windows.size()};
        m_lines.VisitAt(place, [&](std::size_t window) {
            const double distance = PlanLine{m_windows[window]}.DistanceOf(place);
            if (distance <= kNameReachInPlan && m_windows[window].layer == text.layer)
                inPlan.Offer({window, distance});
        });
        const double most = std::min(inPlan.distance + kWindowTolerance, kNameReachInPlan);
        Nearest inHeight{m_windows.size()};
        m_lines.VisitAt(place, [&](std::size_t window) {
            const PlanLine line{m_windows[window]};
            if (line.DistanceOf(place) <= most && m_windows[window].layer == text.layer)
                inHeight.Offer({window, line.HeightAway(text.place)});
        });
        return {inHeight.window, inPlan.distance};
    }

    const std::vector<DrawnWindow>& m_windows;
    double m_thickness;
    WindowsToName m_rectangles;
    WindowsToName m_lines;
};

CString NameWithoutText(const DrawnWindow& window, std::size_t index) {
    if (window.handle == 0)
        return CString(std::wstring_view(L"#" + std::to_wstring(index + 1)));
    return HandleText(window.handle);
}

}  // namespace

bool ReadWindowText(const AcDbDatabase& drawing, const EntityGroups& entity, CString& text, QcGePoint& point) {
    const std::string_view type = entity.Type();
    if (type == "MTEXT") {
        text = PlainLongText(drawing.Decode(BytesOf(entity)));
        return entity.Point(kPoint, point) && !text.IsEmpty();
    }
    const bool isAttribute = type == "ATTRIB";
    if (isAttribute && (entity.IntegerOr(kAttributeFlags, 0) & kNotShown) != 0)
        return false;
    if ((type != "TEXT" && !isAttribute) || !ReadTextPoint(entity, isAttribute ? kUpOfAttribute : kUp, point))
        return false;
    // What follows the first text of an attribute is the same once more, as a long one.
    const DxfGroup* const written = isAttribute ? entity.Find(kText) : nullptr;
    text = PlainText(drawing.Decode(written ? written->value : BytesOf(entity)));
    return !text.IsEmpty();
}

void NameWindows(std::vector<DrawnWindow>& windows, const std::vector<WindowText>& texts, double thickness) {
    if (!texts.empty() && !windows.empty()) {
        const NameGiver giver(windows, thickness);
        for (const WindowText& text : texts) {
            const std::size_t index = giver.WindowOf(text);
            if (index < windows.size() && windows[index].name.IsEmpty())
                windows[index].name = text.text;
        }
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        DrawnWindow& window = windows[i];
        if (window.name.IsEmpty())
            window.name = NameWithoutText(window, i);
        window.building = BuildingOf(window.name);
        window.flat = FlatOf(window.name);
    }
}
