// How often the references to AVI files were given up: the module's calls pass through this program on their way.
#pragma once

#include "platform/media/AviFile.h"

int AviFileReleases();
// What the last of them left of its file's references.
DWORD ReferencesLeft();
