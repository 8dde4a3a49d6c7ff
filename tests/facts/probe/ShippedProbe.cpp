// Prints what the facts know of the shipped settings: the path, and a line for each standard.
#include <cstdio>

#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "settings/OrvoDataSet.h"

int main() {
    std::printf("%s\n", ToUtf8(ShippedPath(L"SunSet.xml").View()).c_str());
    const std::unique_ptr<OrvoDataSet> shipped = ReadShippedSettings();
    if (!shipped) {
        std::puts("none");
        return 0;
    }
    for (const CString& name : NamesOfStandards(*shipped)) {
        OrvoStdSet changed(*FindStandard(*shipped, name));
        changed.m_colors = FindStandard(*shipped, name)->m_colors;
        changed.m_nMinValidAngle += 1;
        const auto changes = ChangesFromShipped(changed, shipped.get());
        std::printf("%s, changed: %s\n", ToUtf8(name.View()).c_str(),
                    changes && changes->size() == 1 ? changes->front()->jsonKey : "?");
    }
    return 0;
}
