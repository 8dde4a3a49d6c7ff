// Reads the faces of a MESH. Its groups mean what their place says: each count opens a run of vertices, indices or
// edges.
#include "scene/MeshFaces.h"

#include <cstddef>

#include "platform/host/DxfScanner.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kSubclass = 100;
constexpr int kIndex = 90;
constexpr int kVertexCount = 92;
constexpr int kFaceListSize = 93;
constexpr int kEdgeCount = 94;

struct Mesh {
    int vertexCount = -1;  // as the entity claims
    int faceItemCount = -1;
    std::vector<QcGePoint> vertices;
    std::vector<int> faceItems;  // the number of corners, then their indices, for each face
};

class MeshReader {
public:
    // False: unsound, or the faces are over.
    bool Take(const DxfGroup& group);
    bool IsSound() const { return m_isSound; }
    const Mesh& Get() const { return m_mesh; }

private:
    // Up to the marker of the mesh's own data, the codes are those that all entities have.
    enum class Place { Common, Head, Vertices, Faces, Behind };

    bool TakeInHead(const DxfGroup& group);
    bool TakeVertex(const DxfGroup& group);
    bool TakeFaceItem(const DxfGroup& group);
    bool Require(bool isSound) { return m_isSound = m_isSound && isSound; }

    Place m_place = Place::Common;
    bool m_isSound = true;
    Mesh m_mesh;
    int m_nextCode = kX;  // among the coordinates of a vertex
};

bool MeshReader::Take(const DxfGroup& group) {
    switch (m_place) {
        case Place::Common:
            if (group.code == kSubclass && TrimDxfValue(group.value) == "AcDbSubDMesh")
                m_place = Place::Head;
            return true;
        case Place::Head:
            return TakeInHead(group);
        case Place::Vertices:
            return TakeVertex(group);
        case Place::Faces:
            return TakeFaceItem(group);
        default:
            return false;
    }
}

bool MeshReader::TakeInHead(const DxfGroup& group) {
    if (group.code != kVertexCount)
        return true;
    m_place = Place::Vertices;
    return Require(ReadInteger(group.value, m_mesh.vertexCount));
}

bool MeshReader::TakeVertex(const DxfGroup& group) {
    if (group.code == kFaceListSize) {
        m_place = Place::Faces;
        return Require(m_nextCode == kX && ReadInteger(group.value, m_mesh.faceItemCount));
    }
    if (group.code != kX && group.code != kY && group.code != kZ)
        return true;
    double value = 0.0;
    if (!Require(group.code == m_nextCode && ReadReal(group.value, value)))
        return false;
    if (group.code == kX)
        m_mesh.vertices.push_back({value, 0.0, 0.0});
    else
        (group.code == kY ? m_mesh.vertices.back().y : m_mesh.vertices.back().z) = value;
    m_nextCode = group.code == kZ ? kX : group.code + 10;
    return true;
}

bool MeshReader::TakeFaceItem(const DxfGroup& group) {
    if (group.code == kEdgeCount) {
        m_place = Place::Behind;
        return false;
    }
    if (group.code != kIndex)
        return true;
    int item = 0;
    if (!Require(ReadInteger(group.value, item)))
        return false;
    m_mesh.faceItems.push_back(item);
    return true;
}

bool IsCount(int claimed, std::size_t found) {
    return claimed >= 0 && static_cast<std::size_t>(claimed) == found;
}

}  // namespace

bool AddMesh(const EntityGroups& entity, FaceList& faces) {
    MeshReader reader;
    for (const DxfGroup& group : entity.All())
        if (!reader.Take(group))
            break;
    const Mesh& mesh = reader.Get();
    if (!reader.IsSound() || !IsCount(mesh.vertexCount, mesh.vertices.size()) ||
        !IsCount(mesh.faceItemCount, mesh.faceItems.size()))
        return false;
    const std::vector<int>& items = mesh.faceItems;
    for (std::size_t at = 0; at < items.size();) {
        const int count = items[at++];
        if (count < 0 || static_cast<std::size_t>(count) > items.size() - at)
            return false;
        std::vector<FaceCorner> corners;
        corners.reserve(static_cast<std::size_t>(count));
        for (const std::size_t end = at + static_cast<std::size_t>(count); at < end; ++at) {
            if (items[at] < 0 || static_cast<std::size_t>(items[at]) >= mesh.vertices.size())
                return false;
            corners.push_back({mesh.vertices[static_cast<std::size_t>(items[at])], false});
        }
        faces.AddPolygon(std::move(corners));
    }
    return true;
}
