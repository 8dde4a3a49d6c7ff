// A film of the analysed day: the drawing with its shadows, one picture after another.
// Why: docs/decisions/workbench.md
#pragma once

#include <memory>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/film/FilmRequest.h"
#include "workbench/view/ScenePainter.h"

class AcDbDatabase;
class Progress;

// When the pictures are, in true solar time: from the start of the span on, `every` minutes apart, up to its end.
std::vector<double> FilmMoments(SunPeriod span, int every);

class Film {
public:
    explicit Film(const FilmRequest& request) : m_request(request) {}

    // Before the analysis, which takes its time: whether the film can be made, and what it will be, which is told on
    // the error stream. Gives an ExitCode, and has complained unless it is success. The drawing is never replaced.
    int Prepare(const DayRequest& day, const CString& drawing);
    // After it: records. A film that the user stops has the pictures up to there; one that fails leaves nothing, and
    // the file that was there. Gives an ExitCode like Prepare.
    int Shoot(const AcDbDatabase& drawing, const AnalysisRequest& request, const AnalysisAnswer& answer,
              Progress& progress);

private:
    FilmRequest m_request;
    std::unique_ptr<ScenePainter> m_painter;
    std::vector<double> m_moments;
};
