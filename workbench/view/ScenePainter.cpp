// Draws a scene with OpenGL: the lamps, and sky, faces, marks and edges in their order.
#include "workbench/view/ScenePainter.h"

#include <GL/gl.h>

#include <new>
#include <optional>
#include <utility>

#include "workbench/view/DrawnScene.h"
#include "workbench/view/Sky.h"
#include "workbench/view/SmoothBuffer.h"
#include "workbench/view/SunPicture.h"

struct ScenePainter::Parts {
    std::optional<SceneLists> lists;
    std::optional<SceneLists> marks;
    MarkedShapes marked;
    SmoothBuffer smooth;
    SunPicture sun;
};

namespace {

// Directions to the lamps, which stand still in the world. The bright one is high in the south-east; a faint one
// opposite tells apart the walls that the bright one does not reach. A flat roof gets 92 % of its colour, the shadiest
// wall half of it.
constexpr float kAmbient[] = {0.42F, 0.42F, 0.42F, 1.0F};
constexpr float kToSun[] = {0.42F, -0.66F, 0.9F, 0.0F};
constexpr float kSun[] = {0.66F, 0.66F, 0.65F, 1.0F};
constexpr float kToSky[] = {-0.85F, 0.45F, 0.1F, 0.0F};
constexpr float kSky[] = {0.18F, 0.185F, 0.2F, 1.0F};
constexpr float kNoLight[] = {0.0F, 0.0F, 0.0F, 1.0F};

void PlaceLamp(GLenum lamp, const float* direction, const float* color) {
    glLightfv(lamp, GL_POSITION, direction);
    glLightfv(lamp, GL_AMBIENT, kNoLight);
    glLightfv(lamp, GL_DIFFUSE, color);
    glLightfv(lamp, GL_SPECULAR, kNoLight);
    glEnable(lamp);
}

// Faces are lit on both sides: drawings do not care which side of a wall is its front.
void SetUpLight() {
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    PlaceLamp(GL_LIGHT0, kToSun, kSun);
    PlaceLamp(GL_LIGHT1, kToSky, kSky);
}

}  // namespace

ScenePainter::ScenePainter(std::unique_ptr<OffscreenGl> gl) : m_gl(std::move(gl)), m_parts(std::make_unique<Parts>()) {}

ScenePainter::~ScenePainter() {
    m_gl->MakeCurrent();
    m_parts.reset();
}

std::unique_ptr<ScenePainter> ScenePainter::Open(CString& reason) {
    std::unique_ptr<OffscreenGl> gl = OffscreenGl::Open(1, 1, reason);
    if (!gl)
        return nullptr;
    return std::unique_ptr<ScenePainter>(new ScenePainter(std::move(gl)));
}

bool ScenePainter::SetScene(const Scene& scene, const Scene& marks) {
    if (!m_gl->MakeCurrent())
        return false;
    m_parts->lists.reset();
    m_parts->marks.reset();
    m_parts->marked = {};
    try {
        m_parts->lists.emplace(scene);
        if (!marks.faces.empty())
            m_parts->marks.emplace(marks, m_parts->lists->GetOrigin());
    } catch (const std::bad_alloc&) {
        return false;
    }
    return m_parts->lists->IsReady() && (!m_parts->marks || m_parts->marks->IsReady());
}

void ScenePainter::SetMarked(const MarkedShapes& marked) {
    m_parts->marked = marked;
}

void ScenePainter::SetResults(std::shared_ptr<const ViewResults> results, std::optional<std::size_t> chosen) {
    m_results = std::move(results);
    m_chosen = chosen;
}

bool ScenePainter::Prepare(const ViewCamera& camera) {
    const int width = camera.GetWidth();
    const int height = camera.GetHeight();
    if (!m_gl->MakeCurrent())
        return false;
    return (width == m_gl->GetWidth() && height == m_gl->GetHeight()) || m_gl->Resize(width, height);
}

bool ScenePainter::Paint(const ViewCamera& camera, const PaintEffort& effort, GlPicture& picture) {
    picture = GlPicture();
    if (!Prepare(camera))
        return false;
    const bool smooth = effort.isSmooth && m_parts->smooth.Begin(camera.GetWidth(), camera.GetHeight());
    Draw(camera, effort);
    if (smooth)
        m_parts->smooth.End();
    return m_gl->Read(picture);
}

bool ScenePainter::PaintInSun(const ViewCamera& camera, const SceneSun& sun, const PaintEffort& effort,
                              GlPicture& picture) {
    picture = GlPicture();
    if (!Prepare(camera) || !m_parts->lists ||
        !m_parts->sun.Aim(camera, sun.direction, GetDrawn(effort), effort.isSmooth))
        return false;
    const bool smooth = effort.isSmooth && m_parts->smooth.Begin(camera.GetWidth(), camera.GetHeight());
    const bool isDrawn = m_parts->sun.Draw(camera, GetDrawn(effort), effort.hasEdges);
    if (smooth)
        m_parts->smooth.End();
    return isDrawn && m_gl->Read(picture);
}

DrawnScene ScenePainter::GetDrawn(const PaintEffort& effort) const {
    return {*m_parts->lists, m_parts->marks ? &*m_parts->marks : nullptr,
            m_parts->marked, m_results.get(),
            m_chosen,        m_hidden,
            effort.isStopped};
}

void ScenePainter::Draw(const ViewCamera& camera, const PaintEffort& effort) const {
    glClear(GL_DEPTH_BUFFER_BIT);
    DrawSky(1.0F);
    if (!m_parts->lists)
        return;
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(camera.GetProjectionMatrix().data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(camera.GetViewMatrix(m_parts->lists->GetOrigin()).data());
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_LIGHTING);
    SetUpLight();
    // Faces step back a little, so that the edges in their planes are seen.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0F, 1.0F);
    m_parts->lists->DrawFaces(m_hidden, effort.isStopped);
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (m_parts->marks)
        m_parts->marks->DrawFaces({}, effort.isStopped);
    glDisable(GL_LIGHTING);
    DrawThinParts(GetDrawn(effort), effort.hasEdges);
}
