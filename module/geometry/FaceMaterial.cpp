// Storing colours and sending them to OpenGL.
#include "geometry/FaceMaterial.h"

#include <GL/gl.h>

#include <algorithm>

namespace {

void Store(float (&colour)[4], float r, float g, float b, float a) {
    colour[0] = r;
    colour[1] = g;
    colour[2] = b;
    colour[3] = a;
}

}  // namespace

// Begins with no values, as documented.
FaceMaterial::FaceMaterial() {}

FaceMaterial::~FaceMaterial() = default;

void FaceMaterial::SetAmbient(float r, float g, float b, float a) {
    Store(m_ambient, r, g, b, a);
}

void FaceMaterial::SetDiffuse(float r, float g, float b, float a) {
    Store(m_diffuse, r, g, b, a);
}

void FaceMaterial::SetSpecular(float r, float g, float b, float a) {
    Store(m_specular, r, g, b, a);
}

void FaceMaterial::SetEmission(float r, float g, float b, float a) {
    Store(m_emission, r, g, b, a);
}

void FaceMaterial::SetShininess(float shininess) {
    m_fShininess = shininess;
}

void FaceMaterial::GetAmbient(float* out) const {
    std::copy_n(m_ambient, 4, out);
}

void FaceMaterial::GetDiffuse(float* out) const {
    std::copy_n(m_diffuse, 4, out);
}

void FaceMaterial::GetSpecular(float* out) const {
    std::copy_n(m_specular, 4, out);
}

void FaceMaterial::SetEmission(float* out) const {
    std::copy_n(m_emission, 4, out);
}

float FaceMaterial::SetShininess() const {
    return m_fShininess;
}

void FaceMaterial::Draw() const {
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, m_ambient);
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, m_diffuse);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, m_specular);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, m_fShininess);
}
