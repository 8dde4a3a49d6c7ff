// The functions of OpenGL that faces and materials could reach, replaced for the whole program.
#include "GlRecorder.h"

#include <GL/gl.h>

#include <charconv>
#include <utility>

namespace {

GlCalls& Calls() {
    static GlCalls calls;
    return calls;
}

std::string Name(GLenum value) {
    static const std::pair<GLenum, const char*> kNames[] = {
        {GL_TRIANGLES, "GL_TRIANGLES"}, {GL_QUADS, "GL_QUADS"},        {GL_FRONT_AND_BACK, "GL_FRONT_AND_BACK"},
        {GL_AMBIENT, "GL_AMBIENT"},     {GL_DIFFUSE, "GL_DIFFUSE"},    {GL_SPECULAR, "GL_SPECULAR"},
        {GL_EMISSION, "GL_EMISSION"},   {GL_SHININESS, "GL_SHININESS"}};
    for (const auto& [number, name] : kNames)
        if (number == value)
            return name;
    return std::to_string(value);
}

// The shortest digits that read back to the same number, so that a float sent in place of a double shows.
template <class Number>
std::string Join(const Number* values, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        char digits[64];
        const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, values[i]);
        text += (i > 0 ? ", " : "") + std::string(digits, end.ptr);
    }
    return text;
}

void Note(const std::string& call) {
    Calls().push_back(call);
}

}  // namespace

GlCalls TakeGlCalls() {
    return std::exchange(Calls(), {});
}

void glBegin(GLenum mode) {
    Note("glBegin(" + Name(mode) + ")");
}
void glEnd() {
    Note("glEnd()");
}
void glNormal3dv(const GLdouble* v) {
    Note("glNormal3dv(" + Join(v, 3) + ")");
}
void glNormal3fv(const GLfloat* v) {
    Note("glNormal3fv(" + Join(v, 3) + ")");
}
void glVertex3dv(const GLdouble* v) {
    Note("glVertex3dv(" + Join(v, 3) + ")");
}
void glVertex3fv(const GLfloat* v) {
    Note("glVertex3fv(" + Join(v, 3) + ")");
}
void glMaterialf(GLenum side, GLenum name, GLfloat value) {
    Note("glMaterialf(" + Name(side) + ", " + Name(name) + ", " + Join(&value, 1) + ")");
}
void glMaterialfv(GLenum side, GLenum name, const GLfloat* values) {
    Note("glMaterialfv(" + Name(side) + ", " + Name(name) + ", " + Join(values, 4) + ")");
}
