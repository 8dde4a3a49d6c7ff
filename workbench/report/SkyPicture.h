// The sky of a report: what the sun does over a window in a day, and what stands in its way.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

#include "workbench/report/SkyContent.h"

// One <svg> element in the interface's language that can stand in a page of HTML and as a file of its own: the sky over
// the horizon as the middle of the window sees it (of the judged part of a wide window; of the sill where the standard
// asks for that), directions to the right and altitude upwards, both in the same degrees.
//
// What hides the sun that day is darker and has its handle. The sun's path is bright while it reaches the window and
// dark while it is hidden from a part of it, dashed while it counts for nothing; what lies behind the window's plane is
// hatched. Empty for a window whose outside is not known.
std::string DrawSky(const SkyPicture& picture);
