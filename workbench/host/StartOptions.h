// The options that the program itself goes by, before the workbench reads the whole command line.
#pragma once

#include <string_view>
#include <vector>

// The values of each "OPTION VALUE" and "OPTION=VALUE" among the arguments, argv[0] being the program; an empty one
// where the value is missing. Like the workbench it takes the next argument for the value of a lone "OPTION=", too.
// What follows "--" is no option. Whether they make sense is the workbench's to say.
std::vector<std::string_view> OptionValues(int argc, const char* const* argv, std::string_view option);
