// A function of the program's own comes before the library's of the same name, to which it hands each call on.
#include "FileReferences.h"

#include <dlfcn.h>

namespace {

int s_releases = 0;
DWORD s_left = 0;

}  // namespace

DWORD AVIFileRelease(PAVIFILE file) {
    static const auto real =
        reinterpret_cast<DWORD (*)(PAVIFILE)>(dlsym(RTLD_NEXT, "_Z14AVIFileReleaseP17OrvoAviFileHandle"));
    ++s_releases;
    return s_left = real(file);
}

int AviFileReleases() {
    return s_releases;
}

DWORD ReferencesLeft() {
    return s_left;
}
