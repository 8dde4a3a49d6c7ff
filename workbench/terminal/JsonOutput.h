// Answers as documents for other programs.
#pragma once

#include <nlohmann/json_fwd.hpp>

class Output;

// A document, indented by two blanks, in the order in which its members were set. Numbers that are not finite are null.
void PrintJson(Output& output, const nlohmann::ordered_json& document);
