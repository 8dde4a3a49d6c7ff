// Where to look from, so that something is seen.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>

#include "workbench/view/ScenePick.h"
#include "workbench/view/ViewResults.h"

// Around all that is shown of an entity; none where that is nothing.
std::optional<ViewBox> BoxOfEntity(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id);
// Whether something of an entity's edges or lines is in the picture, be it behind others: those of what is picked are
// seen through them.
bool IsInPicture(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id, const ViewCamera& camera);

// From before the window and somewhat above, from where its house is seen as well, or as close as it takes for nothing
// to stand in between.
void LookAtWindow(ViewCamera& camera, const ResultQuad& quad, const Scene& scene, const HiddenLayers& hidden);
// So that all of a box is seen, and what is around it; the direction stays.
void LookAtBox(ViewCamera& camera, const ViewBox& box);
// So that all of a box is in the picture and the window is seen, from beside both. False, and nothing has changed,
// where the window is not seen from any such place.
bool LookAtBoth(ViewCamera& camera, const ViewBox& box, const ResultQuad& quad, const Scene& scene,
                const HiddenLayers& hidden);
