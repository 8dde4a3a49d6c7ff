// Numbers the floors of windows by their sills.
#include "analysis/WindowFloors.h"

#include <algorithm>
#include <map>

namespace {

constexpr double kSameSill = 10.0;

}  // namespace

void TellFloors(std::vector<DrawnWindow>& windows) {
    std::map<CString, std::vector<DrawnWindow*>> buildings;
    for (DrawnWindow& window : windows)
        buildings[window.building].push_back(&window);
    for (auto& [name, building] : buildings) {
        std::sort(building.begin(), building.end(),
                  [](const DrawnWindow* a, const DrawnWindow* b) { return a->lowerLeft.z < b->lowerLeft.z; });
        int floor = 1;
        double lowest = building.front()->lowerLeft.z;
        for (DrawnWindow* const window : building) {
            if (window->lowerLeft.z > lowest + kSameSill) {
                ++floor;
                lowest = window->lowerLeft.z;
            }
            window->floor = floor;
        }
    }
}
