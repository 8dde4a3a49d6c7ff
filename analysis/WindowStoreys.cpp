// Repeats the windows of a plan storey by storey.
#include "analysis/WindowStoreys.h"

#include <algorithm>
#include <string>

#include "analysis/Tolerances.h"

namespace {

std::size_t CountLines(const std::vector<DrawnWindow>& windows) {
    const auto lines =
        std::count_if(windows.begin(), windows.end(), [](const DrawnWindow& each) { return each.isLine; });
    return static_cast<std::size_t>(lines);
}

CString OnStorey(int storey, const CString& name) {
    return CString(std::wstring_view(std::to_wstring(storey) + L"-")) + name;
}

// A building goes through its storeys, and each has flats of its own.
void PutOnStorey(DrawnWindow& window, int storey) {
    window.name = OnStorey(storey, window.name);
    if (!window.flat.IsEmpty())
        window.flat = OnStorey(storey, window.flat);
}

}  // namespace

std::size_t CountWithStoreys(const std::vector<DrawnWindow>& windows, const Storeys& storeys) {
    return windows.size() + CountLines(windows) * static_cast<std::size_t>(storeys.count - 1);
}

void RepeatStoreys(std::vector<DrawnWindow>& windows, const Storeys& storeys) {
    const std::size_t drawn = windows.size();
    windows.reserve(CountWithStoreys(windows, storeys));
    for (int storey = 2; storey <= storeys.count; ++storey)
        for (std::size_t i = 0; i < drawn; ++i) {
            if (!windows[i].isLine)
                continue;
            DrawnWindow& above = windows.emplace_back(windows[i]);
            above.lowerLeft.z += (storey - 1) * storeys.step * kMillimetresPerMetre;
            PutOnStorey(above, storey);
        }
    for (std::size_t i = 0; i < drawn; ++i)
        if (windows[i].isLine)
            PutOnStorey(windows[i], 1);
}
