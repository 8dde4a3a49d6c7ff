// A scene as OpenGL keeps it: for each part of a layer a display list of faces, one of their edges, and one of lines.
#pragma once

#include <atomic>
#include <optional>

#include "platform/geometry/QcGePoint.h"
#include "scene/Scene.h"
#include "workbench/view/ScenePick.h"
#include "workbench/view/ViewCamera.h"

// Belongs to the context that is current when it is made, which has to be current in every other call, too.
//
// OpenGL computes in single precision, whose 7 digits would make a building 5e8 units from the origin shake by 30
// units. So the lists hold copies of the faces, moved by an origin close to most of them; the camera's view matrix is
// computed for that origin. It is the median of the faces' first corners and not the middle of the box around them: one
// stray face far away, as drawings have them, moves that middle away from everything, but no median.
//
// Faces with a corner that is not finite or more than 1e15 units away are left out.
class SceneLists {
public:
    explicit SceneLists(const Scene& scene);
    // With the origin of another one, to be drawn beside it.
    SceneLists(const Scene& scene, const QcGePoint& origin);
    ~SceneLists();
    SceneLists(const SceneLists&) = delete;
    SceneLists& operator=(const SceneLists&) = delete;

    // False when the graphics had no memory for it; then nothing is drawn.
    bool IsReady() const { return m_isReady; }
    const QcGePoint& GetOrigin() const { return m_origin; }
    // Around the faces that are drawn, those of hidden layers included; none without any.
    const std::optional<ViewBox>& GetBox() const { return m_box; }
    // The same around the lines.
    const std::optional<ViewBox>& GetLineBox() const { return m_lineBox; }
    // Each leaves off once `isStopped` is set, which may be null.
    //
    // Expects lighting to be on: colours go into the material.
    void DrawFaces(const HiddenLayers& hidden, const std::atomic<bool>* isStopped) const { Call(0, hidden, isStopped); }
    // Expects lighting to be off: thin lines, darker than their face. Flag i of a face hides the edge that begins at
    // its corner i.
    void DrawEdges(const HiddenLayers& hidden, const std::atomic<bool>* isStopped) const { Call(1, hidden, isStopped); }
    // Those of flat entities. Expects lighting to be off.
    void DrawLines(const HiddenLayers& hidden, const std::atomic<bool>* isStopped) const { Call(2, hidden, isStopped); }

private:
    static constexpr unsigned kKinds = 3;

    void Call(unsigned kind, const HiddenLayers& hidden, const std::atomic<bool>* isStopped) const;

    QcGePoint m_origin;
    std::optional<ViewBox> m_box;
    std::optional<ViewBox> m_lineBox;
    std::vector<std::uint32_t> m_parts;  // the layer of each part, which is small enough to be drawn in a moment
    unsigned m_first = 0;                // of kKinds lists for each of them
    bool m_isReady = false;
};
