// The shader's source, its compilation, and what it is told.
//
// The map has one depth for each of its pixels, but a face that the sun meets at a slope has many of them within one.
// So each of the four pixels around a place is compared with the depth that the plane of the place's own face has in
// the middle of that pixel: no face shades itself, however steep, and nothing has to be moved away from the sun for
// that. What remains is less than a pixel of the map at the edges of shadows.
//
// Colours are lifted to a quarter of white: on black no shadow would be seen.
#include "workbench/view/SunShader.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>

#include "geometry/DotProduct.h"
#include "workbench/view/SunFrame.h"

namespace {

constexpr const char* kVertexSource = R"(#version 120
uniform mat4 toMap;
uniform vec4 toEye;
varying vec3 inMap;
varying vec3 place;
varying vec3 normal;
varying vec4 color;
void main() {
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
    inMap = (toMap * gl_Vertex).xyz;
    place = gl_Vertex.xyz;
    normal = dot(gl_Normal, toEye.xyz - toEye.w * place) < 0.0 ? -gl_Normal : gl_Normal;
    vec4 c = gl_FrontMaterial.diffuse;
    color = vec4(c.rgb + max(0.0, 0.25 - max(c.r, max(c.g, c.b))), c.a);
})";

constexpr const char* kFragmentSource = R"(#version 120
uniform sampler2D map;
uniform float mapSize;
uniform bool hasMap;
uniform vec3 toSun, mapRight, mapUp;
uniform vec2 slopes;
uniform vec4 fade;
varying vec3 inMap;
varying vec3 place;
varying vec3 normal;
varying vec4 color;

float LitAt(vec2 cell, vec2 at, vec2 slope, float room) {
    float depth = texture2D(map, (cell + 0.5) / mapSize).r;
    float own = inMap.z + dot(cell - at, slope) - room;
    return depth >= 1.0 || own <= depth ? 1.0 : 0.0;
}

float LitPart(vec3 n, float cosine) {
    if (!hasMap || any(lessThan(inMap.xy, vec2(0.0))) || any(greaterThan(inMap.xy, vec2(1.0))))
        return 1.0;
    vec2 slope = slopes * vec2(dot(n, mapRight), dot(n, mapUp)) / cosine;
    float room = 2e-6 + 0.02 * (abs(slope.x) + abs(slope.y));
    vec2 at = inMap.xy * mapSize - 0.5;
    vec2 cell = floor(at);
    vec2 part = at - cell;
    float below = mix(LitAt(cell, at, slope, room), LitAt(cell + vec2(1.0, 0.0), at, slope, room), part.x);
    float above = mix(LitAt(cell + vec2(0.0, 1.0), at, slope, room), LitAt(cell + vec2(1.0), at, slope, room), part.x);
    return mix(below, above, part.y);
}

void main() {
    vec3 n = normalize(normal);
    float cosine = dot(n, toSun);
    vec3 light = vec3(0.34 + 0.05 * n.z) + vec3(0.05) * dot(n, vec3(-0.8, 0.6, 0.0));
    if (toSun.z <= 0.0)
        light *= vec3(0.55, 0.6, 0.75);
    else if (cosine > 1e-4)
        light += LitPart(n, cosine) * (0.36 + 0.20 * cosine) * vec3(1.03, 1.0, 0.95);
    float opacity = fade.w > 0.0 ? 1.0 - smoothstep(0.55, 1.0, distance(place.xy, fade.xy) / fade.w) : 1.0;
    gl_FragColor = vec4(color.rgb * light, opacity);
})";

unsigned Compile(GLenum kind, const char* source) {
    const GLuint shader = glCreateShader(kind);
    if (shader == 0)
        return 0;
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint isCompiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &isCompiled);
    if (isCompiled == GL_TRUE)
        return shader;
    glDeleteShader(shader);
    return 0;
}

void SetVector(GLuint program, const char* name, const QcGeVector3d& vector) {
    glUniform3f(glGetUniformLocation(program, name), static_cast<float>(vector.x), static_cast<float>(vector.y),
                static_cast<float>(vector.z));
}

}  // namespace

SunShader::~SunShader() {
    if (m_program != 0)
        glDeleteProgram(m_program);
}

bool SunShader::Begin(const SunShading& shading) {
    if (m_isRefused)
        return false;
    if (m_program == 0 && !Make()) {
        m_isRefused = true;
        return false;
    }
    glUseProgram(m_program);
    Tell(shading);
    FadeAt(0.0);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, shading.map);
    return true;
}

void SunShader::FadeAt(double distance, const QcGePoint& middle) {
    glUniform4f(glGetUniformLocation(m_program, "fade"), static_cast<float>(middle.x), static_cast<float>(middle.y),
                0.0F, static_cast<float>(distance));
}

void SunShader::End() const {
    glBindTexture(GL_TEXTURE_2D, 0);
    glUseProgram(0);
}

bool SunShader::Make() {
    const GLuint vertex = Compile(GL_VERTEX_SHADER, kVertexSource);
    const GLuint fragment = Compile(GL_FRAGMENT_SHADER, kFragmentSource);
    if (vertex != 0 && fragment != 0) {
        m_program = glCreateProgram();
        glAttachShader(m_program, vertex);
        glAttachShader(m_program, fragment);
        glLinkProgram(m_program);
        GLint isLinked = GL_FALSE;
        glGetProgramiv(m_program, GL_LINK_STATUS, &isLinked);
        if (isLinked != GL_TRUE) {
            glDeleteProgram(m_program);
            m_program = 0;
        }
    }
    // They live on in the program.
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    return m_program != 0;
}

void SunShader::Tell(const SunShading& shading) const {
    SetVector(m_program, "toSun", shading.toSun);
    const std::array<double, 4>& eye = shading.toEye;
    glUniform4f(glGetUniformLocation(m_program, "toEye"), static_cast<float>(eye[0]), static_cast<float>(eye[1]),
                static_cast<float>(eye[2]), static_cast<float>(eye[3]));
    glUniform1i(glGetUniformLocation(m_program, "map"), 0);
    glUniform1i(glGetUniformLocation(m_program, "hasMap"), shading.frame ? 1 : 0);
    if (!shading.frame)
        return;
    const SunFrame& frame = *shading.frame;
    glUniform1f(glGetUniformLocation(m_program, "mapSize"), static_cast<float>(shading.mapSize));
    SetVector(m_program, "mapRight", frame.right);
    SetVector(m_program, "mapUp", frame.up);
    // How much deeper the map's next pixel is, for a face whose slope is 1 there.
    const double deep = (frame.mostToSun - frame.leastToSun) * shading.mapSize;
    glUniform2f(glGetUniformLocation(m_program, "slopes"),
                static_cast<float>((frame.mostRight - frame.leastRight) / deep),
                static_cast<float>((frame.mostUp - frame.leastUp) / deep));
    const std::array<double, 16> matrix = frame.GetMatrix(shading.origin);
    std::array<float, 16> single{};
    std::transform(matrix.begin(), matrix.end(), single.begin(),
                   [](double value) { return static_cast<float>(value); });
    glUniformMatrix4fv(glGetUniformLocation(m_program, "toMap"), 1, GL_FALSE, single.data());
}
