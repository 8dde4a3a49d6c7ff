// The drawing database: an open drawing that is replaced as a whole, and the boundary that no exception crosses.
#include "platform/host/AcDbDatabase.h"

#include <new>
#include <utility>

#include "platform/base/AtomicFile.h"
#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/base/SaveFailure.h"
#include "platform/host/CurrentDrawing.h"
#include "platform/host/DxfDrawing.h"
#include "platform/host/Redraw.h"

namespace {

// Runs an action; where memory runs out the result is `failed`.
template <class Result, class Action>
Result Guarded(Result failed, const Action& action) {
    try {
        return action();
    } catch (...) {
        return failed;
    }
}

Acad::ErrorStatus Tell(Acad::ErrorStatus status, const CString& text, CString* message) {
    if (message)
        *message = text;
    else
        ReportMessage(text);
    return status;
}

Acad::ErrorStatus TellOutOfMemory(CString* message) {
    return Guarded(Acad::eOutOfMemory, [=] {
        return Tell(Acad::eOutOfMemory, PlatformText(L"内存不足，无法打开、改动或保存图形文件。"), message);
    });
}

}  // namespace

AcDbDatabase::AcDbDatabase() = default;

AcDbDatabase::~AcDbDatabase() {
    OnDrawingClosed(this);
}

Acad::ErrorStatus AcDbDatabase::dxfIn(const wchar_t* path, CString* message) {
    try {
        if (message)
            message->Empty();
        if (!path || !*path)
            return Tell(Acad::eInvalidInput, PlatformText(L"没有给出图形文件名。"), message);
        auto drawing = std::make_unique<DxfDrawing>();
        CString text;
        const Acad::ErrorStatus status = drawing->Read(path, text);
        if (status != Acad::eOk)
            return Tell(status, text, message);
        m_dxf = std::move(drawing);
        OnDrawingRead(this);
        return Acad::eOk;
    } catch (...) {
        return TellOutOfMemory(message);
    }
}

CString AcDbDatabase::GetReadWarning() const {
    return m_dxf ? m_dxf->GetWarning() : CString();
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const wchar_t* path, CString* message) {
    try {
        if (message)
            message->Empty();
        if (!path || !*path)
            return Tell(Acad::eInvalidInput, PlatformText(L"没有给出图形文件名。"), message);
        if (!m_dxf)
            return Tell(Acad::eInvalidInput, PlatformText(L"没有可以保存的图形。"), message);
        CString text;
        DxfFile storage;
        const std::string_view bytes = m_dxf->WholeText(storage);
        if (bytes.empty()) {
            text.Format(PlatformText(L"图形文件“%s”超过 2 GiB，没有保存，原来的文件没有改变。"), path);
            return Tell(Acad::eFileAccessErr, text, message);
        }
        const SaveResult result = SaveFileAtomically(path, bytes, nullptr);
        if (!result)
            return Tell(Acad::eFileAccessErr, SaveFailureText(path, result.cause), message);
        m_dxf->m_savedCount = m_dxf->m_changeCount;
        return Acad::eOk;
    } catch (...) {
        return TellOutOfMemory(message);
    }
}

bool AcDbDatabase::IsModified() const {
    return m_dxf && m_dxf->m_changeCount != m_dxf->m_savedCount;
}

std::uint64_t AcDbDatabase::GetChangeCount() const {
    return m_dxf ? m_dxf->m_changeCount : 0;
}

std::size_t AcDbDatabase::GetEntityCount() const {
    return m_dxf ? m_dxf->GetIndex().GetEntityCount() : 0;
}

AcDbObjectId AcDbDatabase::GetEntityId(std::size_t index) const {
    if (index >= GetEntityCount())
        return {};
    return m_dxf->IdOf(m_dxf->GetIndex().GetEntity(index));
}

bool AcDbDatabase::GetBlocks(std::vector<AcDbObjectId>& heads) const {
    heads.clear();
    const bool isGood = Guarded(false, [&] {
        for (std::size_t entry = 0; m_dxf && entry < m_dxf->GetIndex().GetCount(); ++entry)
            if (m_dxf->IsBlockHead(entry))
                heads.push_back(m_dxf->IdOf(entry));
        return true;
    });
    if (!isGood)
        heads.clear();
    return isGood;
}

AcDbObjectId AcDbDatabase::GetNextObject(AcDbObjectId id) const {
    const std::size_t entry = m_dxf ? m_dxf->EntryOf(id) : DxfIndex::kNone;
    // What an id names is never the last entry, the end of the file.
    if (entry == DxfIndex::kNone || m_dxf->GetIndex().GetKind(entry + 1) == DxfKind::Structure)
        return {};
    return m_dxf->IdOf(entry + 1);
}

AcDbObjectId AcDbDatabase::FindHandle(std::uint64_t handle) const {
    return m_dxf ? m_dxf->IdOf(m_dxf->GetIndex().FindHandle(handle)) : AcDbObjectId();
}

std::uint64_t AcDbDatabase::GetHandle(AcDbObjectId id) const {
    const std::size_t entry = m_dxf ? m_dxf->EntryOf(id) : DxfIndex::kNone;
    return entry == DxfIndex::kNone ? 0 : m_dxf->HandleOf(entry);
}

bool AcDbDatabase::IsSymbolTableRecord(AcDbObjectId id) const {
    const std::size_t entry = m_dxf ? m_dxf->EntryOf(id) : DxfIndex::kNone;
    return entry != DxfIndex::kNone && m_dxf->GetIndex().GetKind(entry) == DxfKind::TableRecord;
}

bool AcDbDatabase::GetSymbolTableRecords(const char* table, std::vector<AcDbObjectId>& ids) const {
    ids.clear();
    const bool isGood = table && Guarded(false, [&] {
                            for (std::size_t entry = 0; m_dxf && entry < m_dxf->GetIndex().GetCount(); ++entry)
                                if (m_dxf->IsRecordOf(entry, table))
                                    ids.push_back(m_dxf->IdOf(entry));
                            return true;
                        });
    if (!isGood)
        ids.clear();
    return isGood;
}

bool AcDbDatabase::GetGroups(AcDbObjectId id, std::vector<DxfGroup>& groups) const {
    groups.clear();
    const std::size_t entry = m_dxf ? m_dxf->EntryOf(id) : DxfIndex::kNone;
    return entry != DxfIndex::kNone && Guarded(false, [&] {
               groups = ReadDxfGroups(m_dxf->TextOf(entry));
               return true;
           });
}

bool AcDbDatabase::SetGroups(AcDbObjectId id, const std::vector<DxfGroup>& groups) {
    const std::size_t entry = m_dxf ? m_dxf->EntryOf(id) : DxfIndex::kNone;
    return entry != DxfIndex::kNone && Guarded(false, [&] { return m_dxf->SetGroups(entry, groups); });
}

Acad::ErrorStatus AcDbDatabase::Redraw(const DrawingChange& change, CString* message) {
    try {
        if (message)
            message->Empty();
        if (!m_dxf)
            return Tell(Acad::eInvalidInput, PlatformText(L"没有可以改动的图形。"), message);
        CString text;
        const Acad::ErrorStatus status = RedrawDrawing(*m_dxf, change, text);
        return status == Acad::eOk ? status : Tell(status, text, message);
    } catch (...) {
        return TellOutOfMemory(message);
    }
}

bool AcDbDatabase::GetHeaderVariable(const char* name, std::vector<DxfGroup>& groups) const {
    groups.clear();
    if (!m_dxf || !name)
        return false;
    const bool isFound = Guarded(false, [&] { return m_dxf->GetHeaderVariable(name, groups); });
    if (!isFound)
        groups.clear();
    return isFound;
}

CString AcDbDatabase::Decode(std::string_view bytes) const {
    return Guarded(CString(), [&] { return m_dxf ? m_dxf->GetCodec().Decode(bytes) : DxfTextCodec().Decode(bytes); });
}

bool AcDbDatabase::Encode(const CString& text, std::string& bytes) const {
    const bool isGood = Guarded(
        false, [&] { return m_dxf ? m_dxf->GetCodec().Encode(text, bytes) : DxfTextCodec().Encode(text, bytes); });
    if (!isGood)
        bytes.clear();
    return isGood;
}
