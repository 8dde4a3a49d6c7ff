// The folder, the command line, and one loader for each file.
#include "workbench/host/PlugIns.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/host/PluginFolder.h"
#include "workbench/host/StartOptions.h"

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const CString& text) {
    return {ToUtf8(text.View())};
}

// The libraries in the folder, by name. A folder that is not there has none.
std::vector<CString> FilesIn(const CString& folder, std::vector<CString>& messages) {
    std::vector<std::string> files;
    std::error_code error;
    fs::directory_iterator entries(PathOf(folder), error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error))
        if (entries->path().extension() == ".so")
            files.push_back(entries->path().string());
    if (error && error != std::errc::no_such_file_or_directory)
        messages.push_back(SayFormat(L"读不了插件文件夹“%s”：%s", Printable(folder), FromUtf8(error.message())));
    std::sort(files.begin(), files.end());
    std::vector<CString> found;
    std::transform(files.begin(), files.end(), std::back_inserter(found),
                   [](const std::string& file) { return FromUtf8(file); });
    return found;
}

}  // namespace

PlugIns::~PlugIns() {
    while (!m_loaders.empty())
        m_loaders.pop_back();
}

bool PlugIns::WasTried(const CString& file) const {
    return std::any_of(m_files.begin(), m_files.end(), [&file](const CString& tried) {
        std::error_code error;
        return fs::equivalent(PathOf(tried), PathOf(file), error);
    });
}

std::vector<CString> PlugIns::Load(const std::vector<CString>& named) {
    m_files = {PluginPath(L"OrvoDataBase.so"), PluginPath(L"OrvoWorkbench.so")};
    std::vector<CString> messages;
    std::vector<CString> files = FilesIn(PluginPath(L"plugins"), messages);
    files.insert(files.end(), named.begin(), named.end());
    for (const CString& file : files) {
        if (WasTried(file))
            continue;
        m_files.push_back(file);
        auto loader = std::make_unique<ModuleLoader>();
        CString error;
        if (loader->Load(file, error))
            m_loaders.push_back(std::move(loader));
        else
            messages.push_back(Printable(error));
    }
    return messages;
}

std::vector<CString> PlugInsNamed(int argc, const char* const* argv) {
    std::vector<CString> files;
    for (const std::string_view value : OptionValues(argc, argv, "--plugin"))
        if (!value.empty() && value.substr(0, 2) != "--")
            files.push_back(FromUtf8(value));
    return files;
}
