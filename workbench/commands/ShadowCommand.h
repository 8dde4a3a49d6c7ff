// orvo shadow: what the module computes for one face and one light.
#pragma once

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct ShadowOptions {
    CString face;   // x,y,z;x,y,z;x,y,z with three or four corners
    CString light;  // dx,dy,dz: the way the light travels
    bool isJson = false;
};

// Normal, plane, whether the light falls on the front, and the matrix that projects along the light onto the plane.
// Gives an ExitCode; a face that has no plane is a failure.
int RunShadow(const ShadowOptions& options, Output& output);

// Its row of the host's table.
Subcommand ShadowSubcommand();
