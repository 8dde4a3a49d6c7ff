// See the header.
#include "support/Folders.h"

std::string SourceFolder() {
    return ORVO_SOURCE_DIR;
}

std::string BuildFolder() {
    return ORVO_BUILD_DIR;
}
