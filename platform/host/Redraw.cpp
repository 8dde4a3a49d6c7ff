// Gathers the revision that a change is, and puts it into effect as a whole.
#include "platform/host/Redraw.h"

#include <charconv>
#include <set>
#include <string>
#include <unordered_map>

#include "platform/base/Language.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/DrawingChangeCheck.h"
#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfHandleSource.h"
#include "platform/host/DxfObjectMaker.h"
#include "platform/host/DxfPlaces.h"
#include "platform/host/DxfScanner.h"
#include "platform/host/LayerTable.h"
#include "platform/host/NewEntityObjects.h"

namespace {

constexpr int kType = 0;
constexpr int kName = 2;
constexpr int kLayer = 8;
constexpr int kPaperSpace = 67;
constexpr std::wstring_view kModelSpace = L"*model_space";

// What follows another entity and goes where that goes.
bool IsPart(std::string_view type) {
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

class LayerMatch {
public:
    LayerMatch(const DxfDrawing& drawing, const std::vector<CString>& names) : m_drawing(drawing) {
        for (const CString& name : names)
            m_names.insert(FoldedName(name));
    }

    bool Has(std::string_view bytes) {
        const auto [known, isNew] = m_known.try_emplace(std::string(bytes), false);
        if (isNew)
            known->second = m_names.contains(FoldedName(m_drawing.GetCodec().Decode(bytes)));
        return known->second;
    }

private:
    const DxfDrawing& m_drawing;
    std::set<std::wstring> m_names;
    std::unordered_map<std::string, bool> m_known;  // by the bytes in the file
};

void RemoveEntities(const DxfDrawing& drawing, const std::vector<CString>& layers, DxfRevision& revision) {
    if (layers.empty())
        return;
    LayerMatch match(drawing, layers);
    bool isGoing = false;  // what the parts belong to
    for (std::size_t i = 0; i < drawing.GetIndex().GetEntityCount(); ++i) {
        const std::size_t entry = drawing.GetIndex().GetEntity(i);
        const std::string_view text = drawing.TextOf(entry);
        if (!IsPart(FirstDxfValue(text, kType)))
            isGoing = match.Has(FirstDxfValue(text, kLayer)) && FirstDxfValue(text, kPaperSpace) != "1";
        if (isGoing)
            revision.Remove(entry);
    }
}

// The handle of the record that owns what is in model space; 0 where there is none.
std::uint64_t ModelSpaceOf(const DxfDrawing& drawing) {
    for (std::size_t entry = 0; entry < drawing.GetIndex().GetCount(); ++entry)
        if (drawing.IsRecordOf(entry, "BLOCK_RECORD") && FoldedName(NameOfRecord(drawing, entry)) == kModelSpace)
            return drawing.HandleOf(entry);
    return 0;
}

void MakeEntities(const DxfDrawing& drawing, const DxfPlaces& places, const std::vector<NewEntity>& entities,
                  DxfObjectMaker& maker, DxfRevision& revision) {
    if (entities.empty())
        return;
    constexpr std::string_view kSection = "ENTITIES";
    const std::size_t end = places.GetSectionEnd(kSection);
    if (end == DxfIndex::kNone) {
        maker.Begin("SECTION");
        maker.Group(kName, kSection);
    }
    const std::uint64_t owner = ModelSpaceOf(drawing);
    for (const NewEntity& entity : entities)
        MakeEntity(entity, owner, maker);
    if (end == DxfIndex::kNone)
        maker.Begin("ENDSEC");
    revision.InsertBefore(end == DxfIndex::kNone ? places.GetPlaceOfNew(kSection) : end, maker.Finish());
}

// False when the drawing has no handles left.
bool MakeObjects(const DxfDrawing& drawing, const DrawingChange& change, DxfRevision& revision) {
    if (change.layers.empty() && change.entities.empty())
        return true;
    const DxfPlaces places(drawing);
    DxfHandleSource handles(drawing);
    DxfObjectMaker maker(drawing, handles);
    MakeLayers(drawing, places, change.layers, maker, revision);
    MakeEntities(drawing, places, change.entities, maker, revision);
    if (handles.HasTaken())
        revision.Replace(DxfHandleSource::GetSeedEntry(drawing), handles.HeaderText(drawing));
    return !handles.IsExhausted();
}

}  // namespace

Acad::ErrorStatus RedrawDrawing(DxfDrawing& drawing, const DrawingChange& change, CString& message) {
    const Acad::ErrorStatus status = CheckDrawingChange(drawing, change, message);
    if (status != Acad::eOk)
        return status;
    DxfRevision revision;
    RemoveEntities(drawing, change.emptiedLayers, revision);
    if (!MakeObjects(drawing, change, revision)) {
        message = PlatformText(
            L"图形中的句柄已到上限，不能再加实体：请在绘图软件中把内容复制到新图形，另存后再试。图形没有改变。");
        return Acad::eInvalidInput;
    }
    if (revision.GetChanges().empty() || drawing.Revise(revision))
        return Acad::eOk;
    message = PlatformText(L"加上新实体后图形超过 2 GiB。图形没有改变。");
    return Acad::eInvalidInput;
}
