// Changes for tests of redrawn drawings, and what drawings hold after them.
#pragma once

#include <utility>

#include "DrawingText.h"
#include "platform/host/DrawingChange.h"

inline NewEntity NewLine(const wchar_t* layer = L"0") {
    NewEntity entity;
    entity.layer = layer;
    entity.points = {{0.0, 0.5, 1.0}, {2.0, -3.25, 1e-7}};
    return entity;
}
inline NewEntity NewText(const wchar_t* text, const wchar_t* layer = L"0") {
    NewEntity entity;
    entity.kind = NewEntity::Kind::Text;
    entity.layer = layer;
    entity.points = {{1.0, 2.0, 3.0}};
    entity.text = text;
    entity.height = 2.5;
    return entity;
}
inline NewEntity NewPolyline(const wchar_t* layer = L"0") {
    NewEntity entity;
    entity.kind = NewEntity::Kind::Polyline;
    entity.layer = layer;
    entity.points = {{0.0, 0.0, 4.5}, {1.0, 0.0, 4.5}, {1.0, 1.0, 4.5}};
    return entity;
}
inline NewEntity NewFace(const wchar_t* layer = L"0") {
    NewEntity entity;
    entity.kind = NewEntity::Kind::Face;
    entity.layer = layer;
    entity.points = {{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 2.0}};
    return entity;
}

inline DrawingChange ChangeOf(std::vector<NewLayer> layers, std::vector<NewEntity> entities) {
    DrawingChange change;
    change.layers = std::move(layers);
    change.entities = std::move(entities);
    return change;
}

inline void MustRedraw(OpenDrawing& drawing, const DrawingChange& change) {
    CString message(L"before");
    ASSERT_EQ(drawing.database.Redraw(change, &message), Acad::eOk) << ToUtf8(message.View());
    EXPECT_TRUE(message.IsEmpty());
}
// What a drawing is saved as after a change, and reads as again.
inline std::string Redrawn(std::string_view text, const DrawingChange& change) {
    OpenDrawing drawing(text);
    MustRedraw(drawing, change);
    const std::string saved = drawing.Saved();
    EXPECT_EQ(OpenDrawing(saved).Saved(), saved);
    return saved;
}

// The header of a drawing of a version, with the next handle where that is given.
inline std::string HeaderOf(std::string_view version, std::string_view seed = {}, std::string_view more = {}) {
    std::string body = "  9\n$ACADVER\n  1\n" + std::string(version) + "\n" + std::string(more);
    if (!seed.empty())
        body += "  9\n$HANDSEED\n  5\n" + std::string(seed) + "\n";
    return Section("HEADER", body);
}
