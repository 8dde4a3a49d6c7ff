// Measures what an entity shows, and reads the rest of its groups.
#include "workbench/window/EntityProperties.h"

#include <algorithm>
#include <optional>

#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/EntityWords.h"

namespace {

CString Metres(double metres) {
    CString text;
    text.Format(L"%.3f m", metres);
    return text;
}

struct Shape {
    std::optional<QcGePoint> least;
    QcGePoint most;
    std::size_t faceCount = 0;
    std::size_t segmentCount = 0;
    int colorIndex = 7;
    int trueColor = -1;

    void Take(const QcGePoint& point) {
        if (!least)
            least = most = point;
        for (double QcGePoint::*const axis : {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z}) {
            (*least).*axis = std::min((*least).*axis, point.*axis);
            most.*axis = std::max(most.*axis, point.*axis);
        }
    }
};

Shape ShapeOf(const Scene& scene, AcDbObjectId id) {
    Shape shape;
    for (const SceneEntity& entity : scene.entities) {
        if (entity.id != id)
            continue;
        shape.colorIndex = entity.colorIndex;
        shape.trueColor = entity.trueColor;
        shape.faceCount += entity.faceCount;
        for (std::size_t i = 0; i < entity.faceCount; ++i) {
            const QcGeFace3dEX& face = scene.faces[entity.firstFace + i];
            std::for_each_n(face.m_pt, face.GetCornerCount(), [&](const QcGePoint& point) { shape.Take(point); });
        }
    }
    for (const SceneLineRun& run : scene.lines.runs) {
        if (run.id != id)
            continue;
        if (shape.faceCount == 0) {
            shape.colorIndex = run.colorIndex;
            shape.trueColor = run.trueColor;
        }
        shape.segmentCount += run.count;
        for (std::size_t i = run.first; i < run.first + run.count; ++i) {
            shape.Take(scene.lines.segments[i].from);
            shape.Take(scene.lines.segments[i].to);
        }
    }
    return shape;
}

CString ColorText(const Shape& shape) {
    CString text;
    if (shape.trueColor >= 0)
        text.Format(L"#%06X", shape.trueColor);
    else
        text.Format(L"%d", shape.colorIndex);
    return text;
}

// The block of an INSERT, as the file names it.
CString BlockOf(const AcDbDatabase& drawing, AcDbObjectId id) {
    constexpr int kName = 2;
    std::vector<DxfGroup> groups;
    drawing.GetGroups(id, groups);
    const auto name =
        std::find_if(groups.begin(), groups.end(), [](const DxfGroup& group) { return group.code == kName; });
    return name == groups.end() ? CString() : Printable(drawing.Decode(name->value));
}

}  // namespace

std::vector<EntityProperty> PropertiesOf(const AcDbDatabase& drawing, const Scene& scene, AcDbObjectId id) {
    const EntityWords words = WordsOfEntity(drawing, id);
    const Shape shape = ShapeOf(scene, id);
    if (words.type.IsEmpty() || !shape.least)
        return {};
    std::vector<EntityProperty> properties{{Say(L"句柄"), HandleOrNone(drawing.GetHandle(id))},
                                           {Say(L"类型"), Printable(words.type)},
                                           {Say(L"图层"), words.layer.IsEmpty() ? L"0" : Printable(words.layer)},
                                           {Say(L"实体颜色"), ColorText(shape)}};
    if (words.type == L"INSERT")
        properties.push_back({Say(L"块"), BlockOf(drawing, id)});
    constexpr double kMillimetresPerMetre = 1000.0;
    const double metres = UnitOf(drawing).millimetres.value_or(1.0) / kMillimetresPerMetre;
    const QcGePoint& least = *shape.least;
    const auto size = [&](double QcGePoint::*axis) { return Metres((shape.most.*axis - least.*axis) * metres); };
    properties.push_back({Say(L"长（东西）"), size(&QcGePoint::x)});
    properties.push_back({Say(L"宽（南北）"), size(&QcGePoint::y)});
    properties.push_back({Say(L"高"), size(&QcGePoint::z)});
    properties.push_back({Say(L"底面标高"), Metres(least.z * metres)});
    properties.push_back({Say(L"面数"), CountText(shape.faceCount)});
    properties.push_back({Say(L"线数"), CountText(shape.segmentCount)});
    return properties;
}
