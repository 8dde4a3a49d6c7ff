// A word about configuration files that the module could not use; it says nothing about them itself.
#pragma once

// Complains about each of the three files that was found but refused, or that holds something else than it should.
// Defaults are in force for it then. Only meaningful right after the module was initialised.
void ReportUnusableFiles();

// The step's whole-number copy, which no file keeps, is made to agree with the step that the settings file holds, so
// that the note line tells the truth.
void RefreshWholeStep();
