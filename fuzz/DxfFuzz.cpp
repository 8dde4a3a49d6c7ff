// Any bytes as a drawing file: refused with a message, or held so that each byte comes back, also around a change, and
// around entities that are added and removed; and whatever it holds makes a sound scene, in which windows are looked
// for and asked for their sun.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "analysis/DrawnWindows.h"
#include "analysis/OccluderSet.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/SoundAnswer.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingChange.h"
#include "scene/EntityGroups.h"
#include "scene/Outline.h"
#include "scene/Scene.h"

namespace {

// A folder for what is saved, in memory where the system has one; gone at the end of the process.
class SaveFolder {
public:
    SaveFolder() {
        std::string name =
            (std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp") + std::string("/dxf-fuzz-XXXXXX");
        Require(mkdtemp(name.data()) != nullptr);
        m_path = name;
    }
    ~SaveFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    SaveFolder(const SaveFolder&) = delete;
    SaveFolder& operator=(const SaveFolder&) = delete;

    std::string File() const { return m_path + "/saved.dxf"; }

private:
    std::string m_path;
};

std::string Saved(AcDbDatabase& database) {
    static const SaveFolder folder;
    Require(database.dxfOut(FromUtf8(folder.File())) == Acad::eOk);
    std::ifstream file(folder.File(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Drops, replaces and adds a group of an entity, as the entity's own bytes decide.
void ChangeEntity(AcDbDatabase& database, std::size_t index) {
    const AcDbObjectId id = database.GetEntityId(index);
    std::vector<DxfGroup> groups;
    Require(database.GetGroups(id, groups) && !groups.empty() && groups[0].code == 0);
    const std::vector<DxfGroup> before = groups;
    for (const DxfGroup& group : groups) {
        const CString text = database.Decode(group.value);
        std::string bytes;
        if (database.Encode(text, bytes))
            Require(database.Decode(bytes) == text);
    }
    if (groups.size() > 3)
        groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(2 + groups.size() % (groups.size() - 2)));
    groups.back().value += groups.size() > 1 ? "x" : "";
    groups.push_back({1000, "added"});
    const bool isChanged = database.SetGroups(id, groups);
    std::vector<DxfGroup> after;
    Require(database.GetGroups(id, after) && after == (isChanged ? groups : before));
    const std::uint64_t handle = database.GetHandle(id);
    Require(handle == 0 || !database.FindHandle(handle).isNull());
}

std::vector<std::vector<DxfGroup>> AllEntities(const AcDbDatabase& database) {
    std::vector<std::vector<DxfGroup>> all(database.GetEntityCount());
    for (std::size_t i = 0; i < all.size(); ++i)
        Require(database.GetGroups(database.GetEntityId(i), all[i]));
    return all;
}

// Puts results into the drawing twice over and takes them out again: what was there is there as before.
void RedrawEntities(AcDbDatabase& database) {
    NewEntity line;
    line.layer = L"ORVO_FUZZ";
    line.points = {{0.0, 1.0, 2.0}, {3.0, 4.0, 5.0}};
    NewEntity outline = line;
    outline.kind = NewEntity::Kind::Polyline;
    outline.points[1][2] = 2.0;
    DrawingChange change;
    change.emptiedLayers = {line.layer};
    CString message;
    if (database.Redraw(change, &message) != Acad::eOk)
        return;
    const std::vector<std::vector<DxfGroup>> before = AllEntities(database);
    change.layers = {{line.layer, 1}};
    change.entities = {line, outline};
    for (int round = 0; round < 2; ++round) {
        const Acad::ErrorStatus status = database.Redraw(change, &message);
        Require((status == Acad::eOk) == message.IsEmpty());
        const std::size_t count = database.GetEntityCount();
        Require(status == Acad::eOk ? count >= before.size() + 2 : count == before.size() || round > 0);
        const std::uint64_t handle = count > 0 ? database.GetHandle(database.GetEntityId(count - 1)) : 0;
        Require(status != Acad::eOk || handle == 0 || database.FindHandle(handle) == database.GetEntityId(count - 1));
    }
    change.layers.clear();
    change.entities.clear();
    Require(database.Redraw(change, &message) == Acad::eOk && AllEntities(database) == before);
}

bool IsWithin(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest && std::fabs(point.z) <= kFarthest;
}

// Few faces and windows, so that an input that asks for many does not take the fuzzer's time.
void TryScene(const AcDbDatabase& database, std::size_t fileSize) {
    constexpr std::size_t kMostFaces = 2000;
    constexpr std::size_t kMostWindowsTried = 2000;
    const Scene scene = BuildScene(database, {kMostFaces, {{L"0", 3.0}}});
    std::size_t next = 0;
    for (const SceneEntity& entity : scene.entities) {
        Require(entity.firstFace == next && entity.faceCount > 0 && entity.layer < scene.layers.size());
        Require(entity.colorIndex >= 1 && entity.colorIndex <= 255);
        next += entity.faceCount;
    }
    Require(next == scene.faces.size() && next <= kMostFaces + fileSize * kMostChords);
    for (const QcGeFace3dEX& face : scene.faces)
        for (int i = 0; i < face.GetCornerCount(); ++i)
            // Thicknesses and extrusions add to coordinates that are within.
            Require(IsWithin({face.m_pt[i].x / 4.0, face.m_pt[i].y / 4.0, face.m_pt[i].z / 4.0}));
    MakeOccluders(scene, database, {}, 1.0);
    PlanRules rules;  // so that every line may be a window
    rules.sill = 0.9;
    rules.windowHeight = 1.5;
    rules.storeys = Storeys{3, 2.9};
    const WindowsOfDrawing found = FindWindows(database, {}, 1.0, 200.0, rules, kMostWindowsTried);
    Require(found.windows.size() <= kMostWindowsTried);
    for (const DrawnWindow& window : found.windows)
        Require(window.width > 0.0 && window.height > 0.0);
    const bool isSmall =
        !found.areTooMany && std::none_of(found.remarks.begin(), found.remarks.end(), [](const auto& remark) {
            return remark.kind == AnalysisRemark::Kind::TooManyInBlock;
        });
    // An analysis reads the drawing with its own, larger bounds: only what stays within the small ones.
    if (scene.tooLarge.empty() && isSmall)
        SoundAnswer(AnalyseWindows(database, QuestionOf(fileSize % 2 == 0 ? kUsualQuestion : fileSize / 2)));
}

void TryDrawing(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    AcDbDatabase database;
    CString message;
    const Acad::ErrorStatus status = database.dxfIn(file.Path(), &message);
    Require((status == Acad::eOk) == message.IsEmpty());
    if (status != Acad::eOk)
        return;
    TryScene(database, size);
    Require(Saved(database) == std::string(reinterpret_cast<const char*>(data), size));
    for (std::size_t i = 0; i < database.GetEntityCount(); i += 2)
        ChangeEntity(database, i);
    const std::vector<std::vector<DxfGroup>> changed = AllEntities(database);
    const std::string saved = Saved(database);
    const MemoryFile again(reinterpret_cast<const std::uint8_t*>(saved.data()), saved.size());
    Require(database.dxfIn(again.Path(), &message) == Acad::eOk && AllEntities(database) == changed);
    RedrawEntities(database);
    const std::string redrawn = Saved(database);
    const MemoryFile last(reinterpret_cast<const std::uint8_t*>(redrawn.data()), redrawn.size());
    Require(database.dxfIn(last.Path(), &message) == Acad::eOk);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TryDrawing(data, size);
    return 0;
}
