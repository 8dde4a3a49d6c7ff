// Reads the version of a drawing.
#include "platform/host/DxfTraits.h"

#include <string>

#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfScanner.h"

namespace {

std::string HeaderValue(const DxfDrawing& drawing, const char* name) {
    std::vector<DxfGroup> groups;
    return drawing.GetHeaderVariable(name, groups) && !groups.empty() ? std::string(TrimDxfValue(groups[0].value))
                                                                      : std::string();
}

}  // namespace

DxfTraits TraitsOf(const DxfDrawing& drawing) {
    const std::string version = HeaderValue(drawing, "$ACADVER");
    DxfTraits traits;
    traits.hasSubclasses = version >= "AC1012";
    traits.hasHandles = traits.hasSubclasses || HeaderValue(drawing, "$HANDLING") == "1";
    traits.hasFlatPolylines = version >= "AC1014";
    traits.hasOwners = version >= "AC1015";
    traits.hasLongNames = traits.hasOwners;
    traits.hasTrueColors = version >= "AC1018";
    return traits;
}
