// Computes where a dialog's edges go, in one walk from left to right: each stands as far left as the edges before it
// allow.
#include "platform/window/toolkit/ColumnStretch.h"

#include <algorithm>

std::map<int, int> StretchColumns(const std::vector<ColumnSpan>& spans) {
    std::map<int, std::vector<const ColumnSpan*>> edges;  // each edge with the spans that end there
    for (const ColumnSpan& span : spans) {
        edges[span.left];
        edges[span.right].push_back(&span);
    }
    std::map<int, int> places;
    for (const auto& [edge, ending] : edges) {
        int place = edge;
        if (!places.empty()) {
            const auto& [before, placeBefore] = *places.rbegin();
            place = placeBefore + (edge - before);
        }
        for (const ColumnSpan* span : ending)
            if (span->left < edge)
                place = std::max(place, places.at(span->left) + span->needed);
        places[edge] = place;
    }
    return places;
}
