// The house and the day that most cases on paper are about.
#pragma once

#include "JudgedScene.h"
#include "PaperSun.h"

inline constexpr double kLatitude = 31.2;
inline constexpr double kSolstice = 23.44;
inline const PaperSun kWinter(kLatitude, -kSolstice);

// A window of 1500 by 1500 with its sill at 1000, in the middle of a south wall.
inline JudgedScene House() {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    return scene;
}

inline AnalysisRequest Winter() {
    return RequestFor(kLatitude, -kSolstice);
}
