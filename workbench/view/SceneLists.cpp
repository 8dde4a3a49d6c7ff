// Recording display lists with the faces' own drawing members.
#include "workbench/view/SceneLists.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "workbench/view/IndexColors.h"
#include "workbench/view/ViewCamera.h"

namespace {

constexpr float kEdgeBrightness = 0.4F;

bool IsUsable(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthestCoordinate && std::fabs(point.y) <= kFarthestCoordinate &&
           std::fabs(point.z) <= kFarthestCoordinate;
}

bool IsUsable(const QcGeFace3dEX& face) {
    return std::all_of(face.m_pt, face.m_pt + face.GetCornerCount(), [](const QcGePoint& pt) { return IsUsable(pt); });
}

double TakeMedian(std::vector<double>& values) {
    if (values.empty())
        return 0.0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

QcGePoint FindOrigin(const Scene& scene) {
    QcGePoint origin;
    for (double QcGePoint::*const axis : {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z}) {
        std::vector<double> values;
        values.reserve(scene.faces.size());
        for (const QcGeFace3dEX& face : scene.faces)
            if (IsUsable(face))
                values.push_back(face.m_pt[0].*axis);
        if (scene.faces.empty())
            for (const SceneSegment& segment : scene.lines.segments)
                if (IsUsable(segment.from))
                    values.push_back(segment.from.*axis);
        origin.*axis = TakeMedian(values);
    }
    return origin;
}

void Widen(std::optional<ViewBox>& box, const QcGePoint& at) {
    if (!box)
        box = ViewBox{at, at};
    box->least = {std::min(box->least.x, at.x), std::min(box->least.y, at.y), std::min(box->least.z, at.z)};
    box->most = {std::max(box->most.x, at.x), std::max(box->most.y, at.y), std::max(box->most.z, at.z)};
}

std::optional<ViewBox> FindBox(const Scene& scene) {
    std::optional<ViewBox> box;
    for (const QcGeFace3dEX& face : scene.faces)
        if (IsUsable(face))
            for (int i = 0; i < face.GetCornerCount(); ++i)
                Widen(box, face.m_pt[i]);
    return box;
}

std::optional<ViewBox> FindLineBox(const Scene& scene) {
    std::optional<ViewBox> box;
    for (const SceneSegment& line : scene.lines.segments) {
        if (!IsUsable(line.from) || !IsUsable(line.to))
            continue;
        Widen(box, line.from);
        Widen(box, line.to);
    }
    return box;
}

bool IsNumber(const QcGeVector3dEX& normal) {
    return std::isfinite(normal.x) && std::isfinite(normal.y) && std::isfinite(normal.z);
}

// Sends the face relative to the origin, with the normal that it has. One that has no normal has no area to draw.
void DrawFace(const QcGeFace3dEX& face, const QcGePoint& origin) {
    const int count = face.GetCornerCount();
    QcGePoint corners[4];
    for (int i = 0; i < count; ++i)
        corners[i] = face.m_pt[i] - origin;
    QcGeFace3dEX shown(corners, count, true);
    if (face.IsNormalReady())
        shown.SetNormal(face.Normal());
    if (IsNumber(shown.GetNormal()))
        shown.DrawVertexAsTriangles();
}

// A line from the smaller to the larger of two points.
struct Edge {
    QcGePoint from, to;
    bool operator==(const Edge& other) const { return from == other.from && to == other.to; }
    bool operator<(const Edge& other) const { return from == other.from ? other.to > to : other.from > from; }
};

void AddVisibleEdges(const QcGeFace3dEX& face, std::vector<Edge>& edges) {
    const int count = face.GetCornerCount();
    for (int i = 0; i < count; ++i) {
        const QcGePoint& a = face.m_pt[i];
        const QcGePoint& b = face.m_pt[(i + 1) % count];
        if (face.m_flag[i] == 0)
            edges.push_back(a > b ? Edge{b, a} : Edge{a, b});
    }
}

void SendPoint(const QcGePoint& point, const QcGePoint& origin) {
    const double coordinates[] = {point.x - origin.x, point.y - origin.y, point.z - origin.z};
    glVertex3dv(coordinates);
}

int RgbOf(const SceneEntity& entity) {
    return entity.trueColor >= 0 ? entity.trueColor & 0xFFFFFF : RgbOfColorIndex(entity.colorIndex);
}

int RgbOf(const SceneLineRun& run) {
    return RgbOfLine(run.colorIndex, run.trueColor);
}

struct Color {
    float r, g, b;
    explicit Color(int rgb)
        : r(static_cast<float>(rgb >> 16 & 255) / 255.0F),
          g(static_cast<float>(rgb >> 8 & 255) / 255.0F),
          b(static_cast<float>(rgb & 255) / 255.0F) {}
};

FaceMaterial MaterialOf(int rgb) {
    const Color color(rgb);
    FaceMaterial material;
    material.SetAmbient(color.r, color.g, color.b, 1.0F);
    material.SetDiffuse(color.r, color.g, color.b, 1.0F);
    material.SetSpecular(0.0F, 0.0F, 0.0F, 1.0F);
    material.SetEmission(0.0F, 0.0F, 0.0F, 1.0F);
    material.SetShininess(0.0F);
    return material;
}

// What is drawn in one colour, so that OpenGL changes it once a colour and not once a face.
struct Coat {
    std::vector<const QcGeFace3dEX*> faces;
    std::vector<Edge> edges;
    std::vector<const SceneSegment*> lines;
};

using Coats = std::map<int, Coat>;
using CoatsByPart = std::map<std::pair<std::uint32_t, std::size_t>, Coats>;

// Adds an entity's edges, each once: neighbouring faces have them in common, and lines are dear.
void AddEdges(Coat& coat, std::size_t firstFace) {
    std::vector<Edge> edges;
    for (std::size_t i = firstFace; i < coat.faces.size(); ++i)
        AddVisibleEdges(*coat.faces[i], edges);
    std::sort(edges.begin(), edges.end());
    coat.edges.insert(coat.edges.end(), edges.begin(), std::unique(edges.begin(), edges.end()));
}

// Entities go into parts of about so many faces or segments.
CoatsByPart SortByColor(const Scene& scene) {
    constexpr std::size_t kShapesOfAPart = 20'000;
    CoatsByPart parts;
    std::map<std::uint32_t, std::size_t> shapes;
    const auto coatOf = [&](std::uint32_t layer, int rgb, std::size_t count) -> Coat& {
        std::size_t& before = shapes[layer];
        Coat& coat = parts[{layer, before / kShapesOfAPart}][rgb];
        before += count;
        return coat;
    };
    const std::size_t total = scene.faces.size();
    for (const SceneEntity& entity : scene.entities) {
        const std::size_t first = std::min(entity.firstFace, total);
        const std::size_t count = std::min(entity.faceCount, total - first);
        Coat& coat = coatOf(entity.layer, RgbOf(entity), count);
        const std::size_t before = coat.faces.size();
        for (std::size_t i = first; i < first + count; ++i)
            if (IsUsable(scene.faces[i]))
                coat.faces.push_back(&scene.faces[i]);
        AddEdges(coat, before);
    }
    const std::vector<SceneSegment>& segments = scene.lines.segments;
    for (const SceneLineRun& run : scene.lines.runs) {
        Coat& coat = coatOf(run.layer, RgbOf(run), run.count);
        for (std::size_t i = run.first; i < run.first + run.count; ++i)
            if (IsUsable(segments[i].from) && IsUsable(segments[i].to))
                coat.lines.push_back(&segments[i]);
    }
    return parts;
}

void RecordFaces(const Coats& coats, const QcGePoint& origin) {
    for (const auto& [rgb, coat] : coats) {
        MaterialOf(rgb).Draw();
        glBegin(GL_TRIANGLES);
        for (const QcGeFace3dEX* face : coat.faces)
            DrawFace(*face, origin);
        glEnd();
    }
}

void RecordEdges(const Coats& coats, const QcGePoint& origin) {
    for (const auto& [rgb, coat] : coats) {
        const Color color(rgb);
        glColor3f(color.r * kEdgeBrightness, color.g * kEdgeBrightness, color.b * kEdgeBrightness);
        glBegin(GL_LINES);
        for (const Edge& edge : coat.edges) {
            SendPoint(edge.from, origin);
            SendPoint(edge.to, origin);
        }
        glEnd();
    }
}

void RecordLines(const Coats& coats, const QcGePoint& origin) {
    for (const auto& [rgb, coat] : coats) {
        const Color color(rgb);
        glColor3f(color.r, color.g, color.b);
        glBegin(GL_LINES);
        for (const SceneSegment* line : coat.lines) {
            SendPoint(line->from, origin);
            SendPoint(line->to, origin);
        }
        glEnd();
    }
}

}  // namespace

SceneLists::SceneLists(const Scene& scene) : SceneLists(scene, FindOrigin(scene)) {}

SceneLists::SceneLists(const Scene& scene, const QcGePoint& origin)
    : m_origin(origin), m_box(FindBox(scene)), m_lineBox(FindLineBox(scene)) {
    const CoatsByPart parts = SortByColor(scene);
    while (glGetError() != GL_NO_ERROR) {
    }
    m_first = glGenLists(static_cast<GLsizei>(std::max<std::size_t>(parts.size(), 1) * kKinds));
    if (m_first == 0)
        return;
    for (const auto& [part, coats] : parts) {
        const unsigned first = m_first + static_cast<unsigned>(m_parts.size()) * kKinds;
        m_parts.push_back(part.first);
        unsigned kind = 0;
        for (const auto record : {RecordFaces, RecordEdges, RecordLines}) {
            glNewList(first + kind++, GL_COMPILE);
            record(coats, m_origin);
            glEndList();
        }
    }
    m_isReady = glGetError() == GL_NO_ERROR;
}

SceneLists::~SceneLists() {
    if (m_first != 0)
        glDeleteLists(m_first, static_cast<GLsizei>(std::max<std::size_t>(m_parts.size(), 1) * kKinds));
}

void SceneLists::Call(unsigned kind, const HiddenLayers& hidden, const std::atomic<bool>* isStopped) const {
    for (std::size_t i = 0; m_isReady && i < m_parts.size() && !(isStopped && *isStopped); ++i)
        if (!IsHidden(hidden, m_parts[i]))
            glCallList(m_first + static_cast<unsigned>(i) * kKinds + kind);
}
