// A film of the analysed day: the drawing with its shadows, one picture after another.
// Why: docs/decisions/workbench.md
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/film/FilmRequest.h"
#include "workbench/view/ScenePainter.h"

class AcDbDatabase;
class Progress;

// When the pictures are, in true solar time: from the start of the span on, `every` minutes apart, up to its end.
std::vector<double> FilmMoments(SunPeriod span, int every);

// What the film will be: how many pictures, how long and how large; empty where there is no span to film.
CString FilmSizeText(const FilmRequest& request, const DayRequest& day);

class Film {
public:
    explicit Film(const FilmRequest& request) : m_request(request) {}

    // All give an ExitCode, and have complained unless it is success. The first two come before the analysis, which
    // takes its time.

    // Whether the film can be made, as far as day and file go; in the thread of the host. The drawing is never
    // replaced.
    int Check(const DayRequest& day, const CString& drawing);
    // Takes what draws, and tells what the film will be. From here on it belongs to one thread, where it goes, too.
    int Prepare();
    // Records. A film that the user stops has the pictures up to there, unless it has been given up then (a question
    // that may be asked in any thread; none: never); one that fails or is given up leaves nothing, and the file that
    // was there.
    int Shoot(const AcDbDatabase& drawing, const AnalysisRequest& request, const AnalysisAnswer& answer,
              Progress& progress, const std::function<bool()>& isGivenUp = nullptr);

private:
    FilmRequest m_request;
    std::unique_ptr<ScenePainter> m_painter;
    std::vector<double> m_moments;
};
