// The table of resource scripts. It is short, there are as many as modules with dialogs, and a look-up comes before a
// dialog is shown.
#include "platform/host/ResourceText.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>

namespace {

struct Entry {
    HINSTANCE module = nullptr;
    std::string_view text;  // empty: the place is free
};

constinit std::array<Entry, 64> g_texts;

Entry* FindEntry(HINSTANCE module) {
    const auto found = std::find_if(g_texts.begin(), g_texts.end(), [module](const Entry& entry) {
        return entry.module == module && !entry.text.empty();
    });
    return found == g_texts.end() ? nullptr : &*found;
}

Entry* FindFreeEntry() {
    const auto found =
        std::find_if(g_texts.begin(), g_texts.end(), [](const Entry& entry) { return entry.text.empty(); });
    return found == g_texts.end() ? nullptr : &*found;
}

// What the build linked into the library in which the address lies: not into one that this library depends on.
std::string_view LinkedText(HINSTANCE module) {
    Dl_info library{};
    if (!module || dladdr(module, &library) == 0 || !library.dli_fname)
        return {};
    void* const handle = dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    if (!handle)
        return {};
    const void* const text = dlsym(handle, "OrvoResourceScript");
    dlclose(handle);
    Dl_info origin{};
    const bool isOwn = text && dladdr(text, &origin) != 0 && origin.dli_fbase == library.dli_fbase;
    return isOwn ? static_cast<const char*>(text) : std::string_view();
}

}  // namespace

bool AfxSetResourceText(HINSTANCE module, std::string_view text) {
    Entry* entry = FindEntry(module);
    if (!entry && !text.empty())
        entry = FindFreeEntry();
    if (entry)
        *entry = text.empty() ? Entry() : Entry{module, text};
    return entry || text.empty();
}

std::string_view AfxGetResourceText(HINSTANCE module) {
    const Entry* entry = FindEntry(module);
    return entry ? entry->text : LinkedText(module);
}
