// Two bands of colours.
#include "workbench/view/Sky.h"

#include <GL/gl.h>

namespace {

constexpr float kSkyColor[] = {0.60F, 0.74F, 0.89F};
constexpr float kHazeColor[] = {0.90F, 0.94F, 0.96F};
constexpr float kGroundColor[] = {0.83F, 0.84F, 0.82F};

void SetColor(const float* color, float brightness) {
    glColor3f(color[0] * brightness, color[1] * brightness, color[2] * brightness);
}

void DrawBand(double bottom, const float* lower, double top, const float* upper, float brightness) {
    SetColor(lower, brightness);
    glVertex2d(-1.0, bottom);
    glVertex2d(1.0, bottom);
    SetColor(upper, brightness);
    glVertex2d(1.0, top);
    glVertex2d(-1.0, top);
}

}  // namespace

void DrawSky(float brightness) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glBegin(GL_QUADS);
    DrawBand(-1.0, kGroundColor, 0.0, kHazeColor, brightness);
    DrawBand(0.0, kHazeColor, 1.0, kSkyColor, brightness);
    glEnd();
}
