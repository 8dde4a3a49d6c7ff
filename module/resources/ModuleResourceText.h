// The module's resource script, as it is compiled into the module.
#pragma once

#include <string_view>

// UTF-8, with the numbers of Resource.h in place of its include. Generated while the module is built; there for as long
// as the module is loaded.
std::string_view ModuleResourceText();
