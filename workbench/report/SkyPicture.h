// The sky of a report: what the sun does over a window in a day, and what stands in its way.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

#include "platform/base/CString.h"

struct DayAnswer;
struct DayRequest;
struct OccluderSet;
struct WindowHours;
struct WindowResult;

struct SkyPicture {
    const OccluderSet& faces;    // what stands: StandingFaces.h
    const DayRequest& request;   // with a place and a standard
    const DayAnswer& answer;     // without a failure
    const WindowResult& window;  // whose outside is known
    const WindowHours& hours;    // its own, or those before a project
    std::string id;              // begins the names of the picture's own elements: unique in its page
    CString title = {};          // for who cannot see it; empty for the usual one
    bool withProject = true;     // else what is of a project is not there
    double width = 180.0;        // on paper, millimetres
};

// One <svg> element in the interface's language that can stand in a page of HTML and as a file of its own: the sky over
// the horizon as the middle of the window sees it (of the judged part of a wide window; of the sill where the standard
// asks for that), directions to the right and altitude upwards, both in the same degrees.
//
// What hides the sun that day is darker and has its handle. The sun's path is bright while it reaches the window and
// dark while it is hidden from a part of it, dashed while it counts for nothing; what lies behind the window's plane is
// hatched. Empty for a window whose outside is not known.
std::string DrawSky(const SkyPicture& picture);
