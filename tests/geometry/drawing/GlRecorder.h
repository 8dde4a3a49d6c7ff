// A stand-in for OpenGL that draws nothing and writes down every call with its arguments.
#pragma once

#include <string>
#include <vector>

using GlCalls = std::vector<std::string>;

// The calls since the last time this was asked, such as "glBegin(GL_QUADS)" or "glVertex3dv(1, 2, 3)".
GlCalls TakeGlCalls();
