// A word about configuration files that the module could not use; it says nothing about them itself.
#pragma once

// Complains about each of the three files that was found but refused, or that holds something else than it should.
// Defaults are in force for it then. Only meaningful right after the module was initialised.
void ReportUnusableFiles();
