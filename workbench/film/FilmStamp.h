// What is written on each picture of a film: place, day, both times, where the sun is, and what the colours mean.
#pragma once

#include <QImage>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/view/Plate.h"

class ViewCamera;

class FilmStamp {
public:
    // Keeps references to both. Windows have a legend when there are any.
    FilmStamp(const AnalysisRequest& request, const AnalysisAnswer& answer);

    // The lines at the top, the first one the title.
    std::vector<QString> LinesAt(double trueSolarTime) const;
    std::vector<PlateRow> Legend() const;

    // The compass turns with the camera.
    void Draw(QImage& picture, double trueSolarTime, const ViewCamera& camera) const;

private:
    const AnalysisRequest& m_request;
    const AnalysisAnswer& m_answer;
};
