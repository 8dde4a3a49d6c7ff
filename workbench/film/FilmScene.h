// What a film shows: the drawing, its windows in the colours of the result, the sun, and from where.
#pragma once

#include <vector>

#include "analysis/WindowAnalysis.h"
#include "scene/Scene.h"
#include "workbench/film/FilmRequest.h"
#include "workbench/view/ScenePainter.h"

class AcDbDatabase;

// The windows as faces in the drawing's unit, a centimetre outside of where they are drawn, so that the walls that they
// lie on do not hide them; those without a side on both sides, in grey.
Scene WindowMarks(const std::vector<WindowResult>& windows, double millimetres);

// White-grey, for windows of which nobody knows which side is outside.
inline constexpr int kNoSideColor = 0xB0B0B0;

// The camera of a request, which shows all of two scenes. True north lies `north` degrees counter-clockwise of +Y.
ViewCamera FilmCameraOf(const FilmRequest& request, const Scene& scene, const Scene& marks, double north);

// The sun of true solar time, in the drawing's axes.
SceneSun SunOfDrawing(const DayRequest& request, double trueSolarTime);
