// redraw-drawing IN OUT LAYER [TEXT]: empties the layers ORVO_RESULT and LAYER of a drawing and, with a text, makes
// them anew with an entity of each kind: a line, a face, on LAYER a closed polyline, and the text on a wall that faces
// south; saves.
#include <cstdio>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingChange.h"

namespace {

NewEntity EntityOf(NewEntity::Kind kind, std::vector<NewEntity::Point> points) {
    NewEntity entity;
    entity.kind = kind;
    entity.layer = L"orvo_result";
    entity.points = std::move(points);
    return entity;
}

DrawingChange ResultOf(const CString& layer, const char* text) {
    DrawingChange change;
    change.layers = {{L"ORVO_RESULT", 3}, {layer, 30}};
    change.entities.push_back(EntityOf(NewEntity::Kind::Line, {{1.0, 2.0, 3.0}, {4.0, 5.5, -6.25}}));
    change.entities.push_back(EntityOf(NewEntity::Kind::Face, {{0.0, 0.0, 1.0}, {9.0, 0.0, 1.0}, {9.0, 9.0, 2.0}}));
    change.entities.back().colorIndex = 1;
    change.entities.back().trueColor = 0xFF8000;
    change.entities.push_back(
        EntityOf(NewEntity::Kind::Polyline, {{0.0, 0.0, 4.5}, {10.0, 0.0, 4.5}, {10.0, 1e-7, 4.5}}));
    change.entities.back().isClosed = true;
    change.entities.back().layer = layer;
    change.entities.push_back(EntityOf(NewEntity::Kind::Text, {{3.0, 7.0, -2.0}}));
    change.entities.back().text = FromUtf8(text);
    change.entities.back().height = 2.5;
    change.entities.back().isCentred = true;
    change.entities.back().extrusion = {0.0, -1.0, 0.0};
    return change;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4 && argc != 5)
        return 2;
    const CString layer = FromUtf8(argv[3]);
    AcDbDatabase drawing;
    DrawingChange change;
    if (argc == 5)
        change = ResultOf(layer, argv[4]);
    change.emptiedLayers = {L"orvo_Result", layer};
    CString message;
    if (drawing.dxfIn(FromUtf8(argv[1]), &message) == Acad::eOk && drawing.Redraw(change, &message) == Acad::eOk &&
        drawing.dxfOut(FromUtf8(argv[2]), &message) == Acad::eOk)
        return 0;
    std::fprintf(stderr, "%s\n", ToUtf8(message.View()).c_str());
    return 1;
}
