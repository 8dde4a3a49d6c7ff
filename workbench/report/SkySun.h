// The sun's way over the sky of a window, on paper.
#pragma once

#include <string>

#include "workbench/report/PaperLabels.h"
#include "workbench/report/SkyFrame.h"

struct SkyPicture;
struct SunDay;

// All of its way by day, and above it what is lit, hidden, or lit and not counted.
std::string DrawSunPath(const SkyPicture& picture, const SkyFrame& frame, const SunDay& sun);
// The whole hours of true solar time on the way, with their names above it and those of Beijing time below.
std::string DrawSunHours(const SkyPicture& picture, const SkyFrame& frame, const SunDay& sun, PaperLabels& labels);
