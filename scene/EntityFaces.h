// The faces of one entity, by its type.
#pragma once

#include "platform/host/AcDbObjectId.h"
#include "scene/Outline.h"

class AcDbDatabase;
class EntityGroups;
class FaceList;

// Faulty: of a kind with faces, whose data are unsound or leave no face. Other: of a kind that has no faces, or without
// the thickness that would give it some.
enum class EntityOutcome { Faces, Faulty, Other };

// Adds the faces of the entity `id` with its groups; none unless the answer is Faces. An INSERT is Other here: what it
// shows is not its own.
EntityOutcome AddEntityFaces(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroups& entity,
                             ArcDivision& division, FaceList& faces);

// Whether an entity is only a part of the one before it.
bool IsPartOfAnother(const EntityGroups& entity);
