// Faces of 3DFACE entities.
#pragma once

class EntityGroups;
class FaceList;

// Adds the face with its invisible edges. False when the data are unsound.
bool AddFace3d(const EntityGroups& entity, FaceList& faces);
