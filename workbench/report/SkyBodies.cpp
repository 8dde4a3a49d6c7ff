// Puts the faces of each entity together to what is seen of it.
#include "workbench/report/SkyBodies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>

#include "analysis/WindowResult.h"
#include "platform/host/HandleText.h"
#include "workbench/report/PaperLayers.h"
#include "workbench/report/SkyContent.h"

namespace {

enum BodyStyle { kOther, kCulprit };

constexpr int kHandleSize = 210;  // hundredths of a millimetre, like all on paper
constexpr int kSmallest = 8;

struct SkyBody {
    std::uint64_t handle = 0;
    double distance = 0.0;
    PaperUnion seen;
    std::vector<PaperLoop> loops;
    bool isCulprit = false;
};

// How high everything is hidden, by direction, by what is nearer and reaches down to the horizon.
class HiddenSky {
public:
    void Hide(const PaperLoop& polygon, int horizon) {
        const PaperBox box = BoxAround({polygon});
        if (box.bottom < horizon)
            return;
        for (int column = First(box.left); column < Last(box.right); ++column) {
            int& top = m_tops.try_emplace(column, horizon).first->second;
            top = std::min(top, std::max(TopAt(polygon, column * kColumn), TopAt(polygon, (column + 1) * kColumn)));
        }
    }
    bool Hides(const PaperBox& box) const {
        for (int column = First(box.left) - 1; column <= Last(box.right); ++column) {
            const auto top = m_tops.find(column);
            if (top == m_tops.end() || top->second > box.top)
                return false;
        }
        return true;
    }

private:
    static constexpr int kColumn = 15;
    static int First(int x) { return static_cast<int>(std::ceil(static_cast<double>(x) / kColumn)); }
    static int Last(int x) { return static_cast<int>(std::floor(static_cast<double>(x) / kColumn)); }
    // The highest place of a polygon at x, which it reaches.
    static int TopAt(const PaperLoop& polygon, int x) {
        double top = 1e9;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const PaperPoint a = polygon[i];
            const PaperPoint b = polygon[(i + 1) % polygon.size()];
            if (a.x != b.x && std::min(a.x, b.x) <= x && std::max(a.x, b.x) >= x)
                top = std::min(top, a.y + double{1} * (b.y - a.y) * (x - a.x) / (b.x - a.x));
        }
        return static_cast<int>(std::ceil(top));
    }

    std::map<int, int> m_tops;
};

std::set<std::uint64_t> CulpritsOf(const WindowHours& hours) {
    std::set<std::uint64_t> culprits;
    for (const HiddenPeriod& hidden : hours.hidden)
        culprits.insert(hidden.by.begin(), hidden.by.end());
    return culprits;
}

// On paper: once, or twice where it is seen at both ends of a sky that goes all around.
std::vector<PaperLoop> PolygonsOf(const SkyOutline& outline, const SkyFrame& frame) {
    std::vector<PaperLoop> polygons;
    const double outward = frame.FromMiddle(frame.outward);
    for (const double turn : {-360.0, 0.0, 360.0}) {
        PaperLoop polygon;
        for (const SkyPoint& corner : outline.corners) {
            const PaperPoint point = frame.Point(outward + corner.direction + turn, corner.altitude);
            if (polygon.empty() || point != polygon.back())
                polygon.push_back(point);
        }
        if (polygon.size() > 2 && BoxAround({polygon}).Meets(frame.frame))
            polygons.push_back(std::move(polygon));
    }
    return polygons;
}

// By entity, from near to far, without what is hidden.
std::vector<SkyBody> FindBodies(const SkyPicture& picture, const SkyFrame& frame) {
    std::vector<SkyOutline> outlines = FindSkyOutlines(picture.faces, EyeOf(picture), picture.withProject);
    std::map<std::uint32_t, double> nearest;
    for (const SkyOutline& outline : outlines) {
        double& distance = nearest.try_emplace(outline.entity, outline.distance).first->second;
        distance = std::min(distance, outline.distance);
    }
    std::sort(outlines.begin(), outlines.end(), [&](const SkyOutline& a, const SkyOutline& b) {
        const double left = nearest[a.entity];
        const double right = nearest[b.entity];
        return left != right ? left < right : a.entity < b.entity;
    });
    const std::set<std::uint64_t> culprits = CulpritsOf(picture.hours);
    HiddenSky hidden;
    std::vector<SkyBody> bodies;
    for (std::size_t first = 0, end = 0; first < outlines.size(); first = end) {
        const std::uint32_t entity = outlines[first].entity;
        SkyBody body;
        body.handle = picture.faces.handles[entity];
        body.distance = nearest[entity];
        body.isCulprit = culprits.count(body.handle) > 0;
        std::vector<PaperLoop> polygons;
        for (end = first; end < outlines.size() && outlines[end].entity == entity; ++end)
            for (PaperLoop& polygon : PolygonsOf(outlines[end], frame))
                polygons.push_back(std::move(polygon));
        if (polygons.empty())
            continue;
        const PaperBox box = BoxAround(polygons);
        if (!body.isCulprit && (hidden.Hides(box) || std::max(box.Width(), box.Height()) < kSmallest))
            continue;
        for (const PaperLoop& polygon : polygons) {
            body.seen.Add(polygon);
            hidden.Hide(polygon, frame.frame.bottom);
        }
        body.loops = body.seen.TakeLoops();
        if (!body.loops.empty())
            bodies.push_back(std::move(body));
    }
    return bodies;
}

// Near the top of a body, where the text is wholly on it.
std::string DrawHandle(const SkyBody& body, const SkyFrame& frame, PaperLabels& labels) {
    constexpr int kTries = 8;
    const CString text = HandleText(body.handle);
    PaperBox box = BoxAround(body.loops);
    box = {std::max(box.left, frame.frame.left), std::max(box.top, frame.frame.top),
           std::min(box.right, frame.frame.right), std::min(box.bottom, frame.frame.bottom)};
    for (int row = 0; row < kTries; ++row)
        for (const int column : {4, 3, 5, 2, 6, 1, 7}) {
            const PaperBox own = BoxForText(text, kHandleSize,
                                            {box.left + box.Width() * column / kTries,
                                             box.top + kHandleSize + (box.Height() - kHandleSize) * row / kTries});
            if (Cover(body.loops, own) && labels.TryTake(own))
                return TextInBox(text, own, kHandleSize);
        }
    return {};
}

}  // namespace

SkyBodies DrawBodies(const SkyPicture& picture, const SkyFrame& frame, PaperLabels& labels) {
    constexpr std::array kLooks = {"class=\"others\" fill=\"#ececea\" stroke=\"#999\" stroke-width=\"10\"",
                                   "class=\"culprits\" fill=\"#c4c4c0\" stroke=\"#222\" stroke-width=\"18\""};
    const std::vector<SkyBody> bodies = FindBodies(picture, frame);
    SkyBodies drawn;
    PaperLayers layers(frame.frame);
    for (auto body = bodies.rbegin(); body != bodies.rend(); ++body) {
        std::string& path = layers.LayerFor(body->isCulprit ? kCulprit : kOther, BoxAround(body->loops));
        for (const PaperLoop& loop : body->loops)
            AppendLoop(path, loop);
        drawn.hasCulprits = drawn.hasCulprits || body->isCulprit;
        drawn.hasOthers = drawn.hasOthers || !body->isCulprit;
    }
    for (const PaperLayers::Layer& layer : layers.All())
        drawn.shapes +=
            std::string("<path ") + kLooks[static_cast<std::size_t>(layer.style)] + " d=\"" + layer.content + "\"/>\n";
    // The nearest first: their handles are not to give way to those behind.
    for (const SkyBody& body : bodies)
        if (body.isCulprit && body.handle != 0)
            drawn.handles += DrawHandle(body, frame, labels);
    if (!drawn.handles.empty())
        drawn.handles = "<g class=\"handles\" font-size=\"" + std::to_string(kHandleSize) +
                        "\" font-weight=\"bold\" text-anchor=\"middle\">\n" + drawn.handles + "</g>\n";
    return drawn;
}
