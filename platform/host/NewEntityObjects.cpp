// Groups of lines, faces, polylines and texts, in the order of the format.
#include "platform/host/NewEntityObjects.h"

#include <algorithm>

#include "platform/host/DrawingChange.h"
#include "platform/host/DxfObjectMaker.h"

namespace {

constexpr int kLayer = 8;
constexpr int kColor = 62;
constexpr int kTrueColor = 420;
constexpr int kExtrusion = 210;
constexpr int kText = 1;
constexpr int kFlags = 70;
constexpr int kClosed = 1;

void WritePoint(DxfObjectMaker& maker, int code, const NewEntity::Point& point) {
    maker.Real(code, point[0]);
    maker.Real(code + 10, point[1]);
    maker.Real(code + 20, point[2]);
}

void WriteExtrusion(DxfObjectMaker& maker, const NewEntity& entity) {
    if (entity.extrusion != NewEntity::Point{0.0, 0.0, 1.0})
        WritePoint(maker, kExtrusion, entity.extrusion);
}

// What every entity begins with.
void BeginEntity(DxfObjectMaker& maker, const char* type, const NewEntity& entity, std::uint64_t owner) {
    maker.Begin(type, owner);
    maker.Subclass("AcDbEntity");
    maker.Text(kLayer, entity.layer);
    if (entity.colorIndex != kColorByLayer)
        maker.Integer(kColor, entity.colorIndex);
    if (entity.trueColor >= 0 && maker.GetTraits().hasTrueColors)
        maker.Integer(kTrueColor, entity.trueColor);
}

void MakeLine(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker) {
    BeginEntity(maker, "LINE", entity, owner);
    maker.Subclass("AcDbLine");
    WritePoint(maker, 10, entity.points[0]);
    WritePoint(maker, 11, entity.points[1]);
}

void MakeFace(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker) {
    BeginEntity(maker, "3DFACE", entity, owner);
    maker.Subclass("AcDbFace");
    // A triangle has its third corner twice.
    for (std::size_t corner = 0; corner < 4; ++corner)
        WritePoint(maker, 10 + static_cast<int>(corner), entity.points[std::min(corner, entity.points.size() - 1)]);
}

void MakeFlatPolyline(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker) {
    BeginEntity(maker, "LWPOLYLINE", entity, owner);
    maker.Subclass("AcDbPolyline");
    maker.Integer(90, static_cast<int>(entity.points.size()));
    maker.Integer(kFlags, entity.isClosed ? kClosed : 0);
    maker.Real(38, entity.points[0][2]);
    for (const NewEntity::Point& point : entity.points) {
        maker.Real(10, point[0]);
        maker.Real(20, point[1]);
    }
    WriteExtrusion(maker, entity);
}

// As drawings had it before they knew flat polylines, and before entities told their owner.
void MakePolylineOfVertices(const NewEntity& entity, DxfObjectMaker& maker) {
    constexpr std::uint64_t kNoOwner = 0;
    BeginEntity(maker, "POLYLINE", entity, kNoOwner);
    maker.Subclass("AcDb2dPolyline");
    maker.Integer(66, 1);
    WritePoint(maker, 10, {0.0, 0.0, entity.points[0][2]});
    maker.Integer(kFlags, entity.isClosed ? kClosed : 0);
    WriteExtrusion(maker, entity);
    for (const NewEntity::Point& point : entity.points) {
        BeginEntity(maker, "VERTEX", entity, kNoOwner);
        maker.Subclass("AcDbVertex");
        maker.Subclass("AcDb2dVertex");
        WritePoint(maker, 10, point);
    }
    BeginEntity(maker, "SEQEND", entity, kNoOwner);
}

void MakeText(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker) {
    constexpr int kCentre = 1;
    constexpr int kMiddle = 2;
    BeginEntity(maker, "TEXT", entity, owner);
    maker.Subclass("AcDbText");
    WritePoint(maker, 10, entity.points[0]);
    maker.Real(40, entity.height);
    maker.Text(kText, entity.text);
    if (entity.rotation != 0.0)
        maker.Real(50, entity.rotation);
    if (entity.isCentred) {
        maker.Integer(72, kCentre);
        WritePoint(maker, 11, entity.points[0]);
    }
    WriteExtrusion(maker, entity);
    maker.Subclass("AcDbText");
    if (entity.isCentred)
        maker.Integer(73, kMiddle);
}

}  // namespace

void MakeEntity(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker) {
    switch (entity.kind) {
        case NewEntity::Kind::Line:
            return MakeLine(entity, owner, maker);
        case NewEntity::Kind::Face:
            return MakeFace(entity, owner, maker);
        case NewEntity::Kind::Polyline:
            return maker.GetTraits().hasFlatPolylines ? MakeFlatPolyline(entity, owner, maker)
                                                      : MakePolylineOfVertices(entity, maker);
        case NewEntity::Kind::Text:
            return MakeText(entity, owner, maker);
    }
}
