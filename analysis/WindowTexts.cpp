// Reads texts, and finds by a tree of boxes which window each lies in.
#include "analysis/WindowTexts.h"

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "analysis/BoxTree.h"
#include "analysis/Boxes.h"
#include "analysis/PlainDrawingText.h"
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
constexpr int kAligned = 3;
constexpr int kFitted = 5;

bool ReadTextPoint(const EntityGroups& entity, QcGePoint& point) {
    const int across = entity.IntegerOr(kAcross, 0);
    const bool isByFirst = (across == 0 && entity.IntegerOr(kUp, 0) == 0) || across == kAligned || across == kFitted;
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

class NameGiver {
public:
    NameGiver(const std::vector<DrawnWindow>& windows, double thickness) : m_windows(windows), m_thickness(thickness) {
        std::vector<Box> boxes;
        boxes.reserve(windows.size());
        for (const DrawnWindow& window : windows)
            boxes.push_back(Plate{window}.Reach(thickness));
        m_tree = BoxTree(boxes);
    }

    // The number of the window that a text lies in; how many windows there are for none.
    std::size_t WindowOf(const WindowText& text) const {
        const Box here = BoxAround(text.place);
        std::size_t nearest = m_windows.size();
        double least = std::numeric_limits<double>::infinity();
        m_tree.Walk([&](const Box& box) { return Overlap(box, here); },
                    [&](std::size_t index) {
                        const std::optional<double> distance = Plate{m_windows[index]}.DistanceOf(text.place);
                        if (!distance || *distance > m_thickness || m_windows[index].layer != text.layer)
                            return;
                        if (*distance < least || (*distance == least && index < nearest)) {
                            least = *distance;
                            nearest = index;
                        }
                    });
        return nearest;
    }

private:
    const std::vector<DrawnWindow>& m_windows;
    double m_thickness;
    BoxTree m_tree;
};

CString NameWithoutText(const DrawnWindow& window, std::size_t index) {
    if (window.handle == 0)
        return CString(std::wstring_view(L"#" + std::to_wstring(index + 1)));
    return HandleText(window.handle);
}

}  // namespace

bool ReadWindowText(const AcDbDatabase& drawing, const EntityGroups& entity, double millimetres, WindowText& text) {
    QcGePoint place;
    const bool isLong = entity.Type() == "MTEXT";
    if (!(isLong ? entity.Point(kPoint, place) : ReadTextPoint(entity, place)))
        return false;
    const CString written = drawing.Decode(BytesOf(entity));
    text.text = isLong ? PlainLongText(written) : PlainText(written);
    text.place = Vector3{place.x, place.y, place.z} * millimetres;
    return !text.text.IsEmpty();
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
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (windows[i].name.IsEmpty())
            windows[i].name = NameWithoutText(windows[i], i);
}
