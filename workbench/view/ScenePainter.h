// Makes pictures of a scene: sky, light, faces and their edges.
// Why: docs/decisions/workbench.md
#pragma once

#include <memory>

#include "platform/base/CString.h"
#include "platform/media/OffscreenGl.h"
#include "scene/Scene.h"
#include "workbench/view/ViewCamera.h"

// How much effort a picture gets.
struct PaintEffort {
    bool hasEdges = true;
    bool isSmooth = true;  // four samples a pixel, where the graphics can
};

// It stays with the thread that opened it.
class ScenePainter {
public:
    // Null, with the reason in words, where nothing can be drawn.
    static std::unique_ptr<ScenePainter> Open(CString& reason);
    ~ScenePainter();
    ScenePainter(const ScenePainter&) = delete;
    ScenePainter& operator=(const ScenePainter&) = delete;

    // Takes over what there is to draw; the scene is not needed afterwards. False, with nothing to draw, when there is
    // no memory for it.
    bool SetScene(const Scene& scene);
    // The longest side that a picture may have.
    int GetMaxSize() const { return m_gl->GetMaxSize(); }
    // A picture of the size that the camera has. False, with the picture empty, when the graphics refuse.
    bool Paint(const ViewCamera& camera, const PaintEffort& effort, GlPicture& picture);

private:
    explicit ScenePainter(std::unique_ptr<OffscreenGl> gl);
    void Draw(const ViewCamera& camera, bool edges) const;

    struct Parts;
    std::unique_ptr<OffscreenGl> m_gl;
    std::unique_ptr<Parts> m_parts;
};
