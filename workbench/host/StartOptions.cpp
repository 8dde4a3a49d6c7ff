// Looking through the arguments.
#include "workbench/host/StartOptions.h"

std::vector<std::string_view> OptionValues(int argc, const char* const* argv, std::string_view option) {
    std::vector<std::string_view> values;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        if (argument == "--")
            break;
        const bool isJoined = argument.substr(0, option.size()) == option && argument.substr(option.size(), 1) == "=";
        if (isJoined && argument.size() > option.size() + 1)
            values.push_back(argument.substr(option.size() + 1));
        else if (isJoined || argument == option)
            values.push_back(++i < argc ? argv[i] : std::string_view());
    }
    return values;
}
