// What is asked of a film of the day. Plain values.
#pragma once

#include <optional>

#include "platform/base/CString.h"
#include "workbench/view/ViewCamera.h"

inline constexpr int kLeastFilmWidth = 320;
inline constexpr int kMostFilmWidth = 3840;
inline constexpr int kLeastFilmHeight = 240;
inline constexpr int kMostFilmHeight = 2160;

// Where the eye is, in degrees: clockwise from true north, and above the horizon.
struct FilmCamera {
    double azimuth = 0.0;
    double altitude = 0.0;
};

struct FilmRequest {
    CString file;
    bool mayReplace = false;  // a file of that name without asking
    int every = 5;            // minutes from one picture to the next, above 0
    int width = 1280;         // within the limits above; even
    int height = 720;
    StandardView view = StandardView::SouthEast;  // south is true south; the one from the top has the drawing's y up
    std::optional<FilmCamera> camera;             // goes before the view
    double zoom = 1.0;                            // 1 shows everything; above 0
};
