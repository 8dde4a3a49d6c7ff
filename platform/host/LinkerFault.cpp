// Takes the file away, and makes a name readable.
#include "platform/host/LinkerFault.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/base/Language.h"

namespace {

// The name as it stands in a source; as it is, when it is no mangled one.
CString NameInSource(const std::string& symbol) {
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status),
                                                      std::free);
    return FromUtf8(name ? name.get() : symbol);
}

}  // namespace

CString LinkerFault(const CString& path, const char* said) {
    std::string text(said ? said : "");
    const std::string file = ToUtf8(path.View()) + ": ";
    if (text.starts_with(file))
        text.erase(0, file.size());
    const std::string undefined = "undefined symbol: ";
    if (!text.starts_with(undefined))
        return FromUtf8(text);
    const std::size_t end = text.find_first_of(" \t,(", undefined.size());  // a version or a file may follow
    CString fault;
    fault.Format(PlatformText(L"找不到函数或变量“%s”，可能少链接了一个程序库；用 ldd -r '%s' 可列出缺少的全部名称"),
                 NameInSource(text.substr(undefined.size(), end - undefined.size())), path);
    return fault;
}
