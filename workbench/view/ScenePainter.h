// Makes pictures of a scene: sky, light, faces and their edges, and the shadows of a moment if it is asked for them.
// Why: docs/decisions/workbench.md
#pragma once

#include <atomic>
#include <memory>

#include "platform/base/CString.h"
#include "platform/media/OffscreenGl.h"
#include "scene/Scene.h"
#include "workbench/view/MarkedShapes.h"
#include "workbench/view/ScenePick.h"
#include "workbench/view/ViewCamera.h"
#include "workbench/view/ViewResults.h"

// How much effort a picture gets.
struct PaintEffort {
    bool hasEdges = true;
    bool isSmooth = true;  // four samples a pixel, where the graphics can; and shadows twice as fine
    const std::atomic<bool>* isStopped =
        nullptr;  // set when the picture is wanted no more; what comes is then undefined
};

// The sun of a moment: the direction to it in the drawing's axes, of any length but 0. Below the horizon it is night.
struct SceneSun {
    QcGeVector3d direction;
};

struct DrawnScene;

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
    // The marks are faces that are drawn before those they lie on, have no edges, and cast no shadows.
    bool SetScene(const Scene& scene, const Scene& marks = {});
    // Which of the scene's layers are left out of the pictures from now on.
    void SetHiddenLayers(const HiddenLayers& hidden) { m_hidden = hidden; }
    // The faces and lines that are marked from now on, until the next scene comes; none for none.
    void SetMarked(const MarkedShapes& marked);
    // The results that are shown from now on, null for none, and the window among them that is chosen.
    void SetResults(std::shared_ptr<const ViewResults> results, std::optional<std::size_t> chosen);
    // The longest side that a picture may have.
    int GetMaxSize() const { return m_gl->GetMaxSize(); }
    // A picture of the size that the camera has. False, with the picture empty, when the graphics refuse.
    bool Paint(const ViewCamera& camera, const PaintEffort& effort, GlPicture& picture);
    // The same as the sun shines on it. What it reaches is clearly brighter than what it does not, be that in the
    // shadow of something or turned away. The ground is level, lies where the lowest corner of scene and marks is, and
    // fades away far from them; from below it is not there. Shadows are exact to about a pixel of the sun's map, which
    // shows no more than what is seen (see SunFrame.h and docs/performance.md).
    bool PaintInSun(const ViewCamera& camera, const SceneSun& sun, const PaintEffort& effort, GlPicture& picture);

private:
    explicit ScenePainter(std::unique_ptr<OffscreenGl> gl);
    bool Prepare(const ViewCamera& camera);
    DrawnScene GetDrawn(const PaintEffort& effort) const;
    void Draw(const ViewCamera& camera, const PaintEffort& effort) const;

    struct Parts;
    std::unique_ptr<OffscreenGl> m_gl;
    std::unique_ptr<Parts> m_parts;
    HiddenLayers m_hidden;
    std::shared_ptr<const ViewResults> m_results;
    std::optional<std::size_t> m_chosen;
};
