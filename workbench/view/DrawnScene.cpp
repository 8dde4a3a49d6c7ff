// Draws edges, lines, and above them what is marked.
#include "workbench/view/DrawnScene.h"

void DrawThinParts(const DrawnScene& scene, bool edges) {
    if (edges)
        scene.lists.DrawEdges(scene.hidden, scene.isStopped);
    scene.lists.DrawLines(scene.hidden, scene.isStopped);
    DrawMarked(scene.marked, scene.lists.GetOrigin());
}
