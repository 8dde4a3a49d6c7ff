// The material of a face: what it looks like in the light.
#pragma once

#include "platform/base/Api.h"

// Colours are red, green, blue, opacity, each from 0 to 1, and the shininess an exponent from 0 to 128, as OpenGL takes
// them; nothing is checked here. A new material has no values at all: set what it is drawn with before drawing.
class ORVO_API FaceMaterial {
public:
    // Without values.
    FaceMaterial();
    FaceMaterial(const FaceMaterial&) = default;
    FaceMaterial& operator=(const FaceMaterial&) = default;
    virtual ~FaceMaterial();

    // Red, green, blue and opacity.
    void SetAmbient(float r, float g, float b, float a);
    void SetDiffuse(float r, float g, float b, float a);
    void SetSpecular(float r, float g, float b, float a);
    void SetEmission(float r, float g, float b, float a);
    // The exponent.
    void SetShininess(float shininess);

    // These copy four floats to out, the caller's.
    void GetAmbient(float* out) const;
    void GetDiffuse(float* out) const;
    void GetSpecular(float* out) const;
    // Two getters that are called like setters, as they always were: callers know them by these names. The first one
    // copies four floats.
    void SetEmission(float* out) const;
    float SetShininess() const;

    // Makes ambient, diffuse and specular colour and shininess OpenGL's current material of both sides. The emission
    // stays as OpenGL has it. Needs a current context.
    void Draw() const;

private:
    float m_ambient[4];
    float m_diffuse[4];
    float m_specular[4];
    float m_fShininess;
    float m_emission[4];

public:
    // Three words for whoever keeps the materials; copied along and otherwise never looked at here.
    int m_nUser[3];
};
