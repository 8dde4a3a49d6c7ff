// Documents as text.
#include "workbench/terminal/JsonOutput.h"

#include <nlohmann/json.hpp>

#include "platform/host/Output.h"

void PrintJson(Output& output, const nlohmann::ordered_json& document) {
    output.Write(document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
}
