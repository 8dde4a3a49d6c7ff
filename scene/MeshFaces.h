// Faces of MESH entities.
#pragma once

class EntityGroups;
class FaceList;

// Adds the faces of the base cage; polygons of more than four corners are divided. False when the data are unsound.
bool AddMesh(const EntityGroups& entity, FaceList& faces);
