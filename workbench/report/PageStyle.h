// How a report looks, on the screen and on A4, and what little its tables do.
#pragma once

#include <string_view>

// The style sheet: nothing of it comes from anywhere else.
std::string_view PageStyle();

// Sorts tables by the column whose heading is pressed, and shows the rows and time lines that contain what is typed.
// Without it everything can be read in the drawing's order; what it needs besides (buttons, a field) it makes itself.
std::string_view PageScript();
