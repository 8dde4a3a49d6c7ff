// The shading of what the sun shines on, and of what it does not.
#pragma once

#include <array>

#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"

struct SunFrame;

// What the shader is told of a picture. A plain value.
struct SunShading {
    QcGeVector3d toSun;               // of length 1; no sun when it does not go upwards
    const SunFrame* frame = nullptr;  // null: nothing that is seen is in a shadow of something else
    unsigned map = 0;
    int mapSize = 1;
    QcGePoint origin;                  // of the coordinates that are drawn
    std::array<double, 4> toEye = {};  // the eye, relative to the origin, and 1; or the direction to it, and 0
};

// Belongs to the context that is current when it is first begun, which has to be current in all calls, the destructor
// included.
//
// A place is lit when the side of its face that is seen looks to the sun and the map shows nothing between. Of the
// face's colour it then has 60 to 98 %, the more the straighter the sun falls on it; in the shadow 27 to 42 %, and at
// night less than that. So what is lit is brighter than what is not, whatever their sides. Colours darker than
// a quarter of white count as that dark a grey, because black would be black in the sun, too.
class SunShader {
public:
    SunShader() = default;
    ~SunShader();
    SunShader(const SunShader&) = delete;
    SunShader& operator=(const SunShader&) = delete;

    // From here on faces are drawn with it, in their material's diffuse colour. False, with nothing changed, where the
    // graphics have no shaders.
    bool Begin(const SunShading& shading);
    // Makes what is at this distance of `middle` (relative to the origin), in plan, transparent, and more so towards
    // it; 0 for nothing.
    void FadeAt(double distance, const QcGePoint& middle = QcGePoint());
    void End() const;

private:
    bool Make();
    void Tell(const SunShading& shading) const;

    unsigned m_program = 0;
    bool m_isRefused = false;
};
