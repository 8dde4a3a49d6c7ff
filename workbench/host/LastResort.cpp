// Looks for the two questions that need no library.
#include "workbench/host/LastResort.h"

#include <algorithm>
#include <string_view>

#include "workbench/Texts.h"
#include "workbench/Version.h"

std::optional<CString> AnswerWithoutLibraries(int argc, const char* const* argv) {
    const char* const* const end = std::find(argv + 1, argv + argc, std::string_view("--"));
    const auto has = [&](std::string_view word) { return std::find(argv + 1, end, word) != end; };
    if (has("--help") || has("-h") || (argc > 1 && argv[1] == std::string_view("help")))
        return VersionText() + L"\n" +
               Say(L"用法：orvo [子命令] [选项]\n子命令在没能加载的程序库里，现在只有 --version 和 --help 可用。"
                   L"上面的消息说明了原因；请重新安装程序。");
    if (has("--version"))
        return VersionText();
    return std::nullopt;
}
