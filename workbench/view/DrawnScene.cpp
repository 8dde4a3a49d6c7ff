// Draws edges, lines, and above them what is marked.
#include "workbench/view/DrawnScene.h"

#include <GL/gl.h>

namespace {

constexpr float kLineWidth = 1.5F;  // chords shorter than a pixel would leave gaps in thinner ones

}  // namespace

void DrawThinParts(const DrawnScene& scene, bool edges) {
    if (edges)
        scene.lists.DrawEdges(scene.hidden, scene.isStopped);
    glLineWidth(kLineWidth);
    scene.lists.DrawLines(scene.hidden, scene.isStopped);
    glLineWidth(1.0F);
    if (scene.results)
        DrawResults(*scene.results, scene.chosen, scene.lists.GetOrigin());
    DrawMarked(scene.marked, scene.lists.GetOrigin());
}
