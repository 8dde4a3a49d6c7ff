// Tries how many faces an outline has as a body.
#include "scene/BlockOutlines.h"

#include <utility>

#include "scene/FaceList.h"
#include "scene/Placement.h"

bool BlockOutlines::Add(const EntityLook& look, FlatPath path, ArcDivision& division) {
    // How high the body is makes no difference to their number.
    const AskedHeight* const asked = look.layer ? look.layer->Height() : nullptr;
    const double height = asked ? asked->height : 1.0;
    auto outline = std::make_unique<RaisedOutline>(std::move(path));
    FaceList faces;
    if (!outline->AddBody(Placement(), height, division, faces) || faces.GetCount() == 0)
        return false;
    (look.layer ? ownFaces : handedDownFaces) += faces.GetCount();
    (look.layer ? own : handedDown).push_back({look, std::move(outline)});
    return true;
}
