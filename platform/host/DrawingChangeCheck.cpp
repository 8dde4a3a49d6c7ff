// Looks at each record of a change before the first of them reaches the drawing.
#include "platform/host/DrawingChangeCheck.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "platform/base/Language.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfScanner.h"
#include "platform/host/DxfTraits.h"
#include "platform/host/LayerTable.h"

namespace {

constexpr int kMostTrueColor = 0xFFFFFF;

bool IsFinite(const NewEntity::Point& point) {
    return std::all_of(point.begin(), point.end(), [](double value) { return std::isfinite(value); });
}

bool IsNameSound(const CString& name, std::size_t most) {
    constexpr std::wstring_view kForbidden = L"<>/\\\":;?*|,=`";
    const std::wstring_view text = name.View();
    const auto isBad = [&](wchar_t c) {
        return c < L' ' || c == 0x7F || kForbidden.find(c) != std::wstring_view::npos;
    };
    return !text.empty() && text.size() <= most && text.front() != L' ' && text.back() != L' ' &&
           std::none_of(text.begin(), text.end(), isBad);
}

bool ArePointsSound(const NewEntity& entity) {
    const std::vector<NewEntity::Point>& points = entity.points;
    if (!std::all_of(points.begin(), points.end(), IsFinite))
        return false;
    const auto isLevel = [&points](const NewEntity::Point& point) { return point[2] == points[0][2]; };
    switch (entity.kind) {
        case NewEntity::Kind::Line:
            return points.size() == 2;
        case NewEntity::Kind::Face:
            return points.size() == 3 || points.size() == 4;
        case NewEntity::Kind::Polyline:
            return points.size() >= 2 && points.size() <= static_cast<std::size_t>(INT32_MAX) &&
                   std::all_of(points.begin(), points.end(), isLevel);
        case NewEntity::Kind::Text:
            return points.size() == 1;
    }
    return false;
}

bool IsExtrusionSound(const NewEntity::Point& extrusion) {
    constexpr double kShortest = 1e-12;
    return IsFinite(extrusion) && std::hypot(extrusion[0], extrusion[1], extrusion[2]) >= kShortest;
}

bool IsTextSound(const DxfDrawing& drawing, const NewEntity& entity) {
    std::string bytes;
    return !entity.text.IsEmpty() && drawing.GetCodec().Encode(entity.text, bytes) && bytes.size() <= kLongestDxfLine &&
           std::isfinite(entity.height) && entity.height > 0.0 && std::isfinite(entity.rotation);
}

// What is wrong with an entity, its layer aside; null for nothing.
const wchar_t* FaultOf(const DxfDrawing& drawing, const NewEntity& entity) {
    if (!ArePointsSound(entity))
        return L"第 %d 个新实体的点不对：直线要 2 个点，三维面 3 或 4 个，多段线至少 2 个且 z 相同，文字 1 个，"
               L"坐标都是有限的数。";
    if (!IsExtrusionSound(entity.extrusion))
        return L"第 %d 个新实体的拉伸方向不对：应为长度不为零的向量。";
    if (entity.colorIndex < 0 || entity.colorIndex > kColorByLayer || entity.trueColor > kMostTrueColor)
        return L"第 %d 个新实体的颜色不对：颜色号应为 0 到 256，真彩色不超过 0xFFFFFF。";
    if (entity.kind == NewEntity::Kind::Text && !IsTextSound(drawing, entity))
        return L"第 %d 个新实体的文字不对：应为一行不空的文字，字高大于零，角度是有限的数。";
    return nullptr;
}

Acad::ErrorStatus CheckLayer(const NewLayer& layer, std::size_t most, CString& message) {
    if (!IsNameSound(layer.name, most)) {
        message.Format(PlatformText(L"图层名“%s”不能用：应为 1 到 %d 个字符，首尾没有空格，也没有控制字符和 %s。"),
                       layer.name, static_cast<int>(most), L"< > / \\ \" : ; ? * | , = `");
        return Acad::eInvalidInput;
    }
    if (layer.colorIndex < 1 || layer.colorIndex > 255) {
        message.Format(PlatformText(L"图层“%s”的颜色号 %d 不对：应为 1 到 255。"), layer.name, layer.colorIndex);
        return Acad::eInvalidInput;
    }
    return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus CheckDrawingChange(const DxfDrawing& drawing, const DrawingChange& change, CString& message) {
    constexpr std::size_t kMostLetters = 255;
    constexpr std::size_t kMostLettersBefore = 31;
    std::set<std::wstring> layers = LayersOf(drawing);
    const std::size_t most = TraitsOf(drawing).hasLongNames ? kMostLetters : kMostLettersBefore;
    for (const NewLayer& layer : change.layers) {
        // One that is there is taken by whatever name it has.
        if (layers.insert(FoldedName(layer.name)).second)
            if (const Acad::ErrorStatus status = CheckLayer(layer, most, message); status != Acad::eOk)
                return status;
    }
    for (std::size_t i = 0; i < change.entities.size(); ++i) {
        const NewEntity& entity = change.entities[i];
        if (const wchar_t* const fault = FaultOf(drawing, entity)) {
            message.Format(PlatformText(fault), static_cast<int>(i + 1));
            return Acad::eInvalidInput;
        }
        if (!layers.contains(FoldedName(entity.layer))) {
            message.Format(PlatformText(L"第 %d 个新实体的图层“%s”不在图形中，请先建立它。"), static_cast<int>(i + 1),
                           entity.layer);
            return Acad::eKeyNotFound;
        }
    }
    return Acad::eOk;
}
