// What a sky is drawn of.
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
