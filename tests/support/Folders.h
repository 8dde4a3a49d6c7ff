// Where the checkout and its build lie, for tests that read files of the one or start programs of the other. Only one
// small source is compiled with these paths, so that ccache serves all the others in every checkout.
// Why: docs/decisions/tests.md
#pragma once

#include <string>

/// The root of the checkout, without a separator at its end.
std::string SourceFolder();
/// The folder of the build that the test belongs to, likewise.
std::string BuildFolder();
