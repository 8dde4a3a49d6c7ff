// Ids, changed objects and the header of an open drawing.
#include "platform/host/DxfDrawing.h"

#include <utility>

#include "platform/base/Characters.h"
#include "platform/base/Language.h"

namespace {

constexpr int kVariable = 9;

// The values of a variable in a header's text; false when it is not there.
bool FindVariable(std::string_view text, std::string_view name, std::vector<DxfGroup>& groups) {
    DxfScanner scanner(text);
    DxfRawGroup group;
    bool isFound = false;
    while (scanner.Next(group)) {
        if (group.code == kVariable) {
            if (isFound)
                break;
            isFound = TrimDxfValue(group.ValueIn(text)) == name;
        } else if (isFound && group.code != kDxfComment) {
            groups.push_back({group.code, std::string(group.ValueIn(text))});
        }
    }
    return isFound;
}

std::string FirstValue(const std::vector<DxfGroup>& groups) {
    return groups.empty() ? std::string() : std::string(TrimDxfValue(groups[0].value));
}

}  // namespace

Acad::ErrorStatus DxfDrawing::Read(const wchar_t* path, CString& message) {
    const Acad::ErrorStatus status = m_file.Read(path, message);
    if (status != Acad::eOk)
        return status;
    DxfFault fault{};
    std::size_t place = 0;
    if (!m_index.Build(m_file.View(), fault, place)) {
        message = DxfFaultMessage(path, m_file.View(), fault, place);
        return Acad::eBadDxfFile;
    }
    m_style = DxfStyleOf(m_file.View());
    m_codec = ChooseCodec();
    m_ids = DxfIds(m_index.GetCount());
    return Acad::eOk;
}

DxfTextCodec DxfDrawing::ChooseCodec() const {
    constexpr std::string_view kFirstUtf8 = "AC1021";
    std::vector<DxfGroup> groups;
    GetHeaderVariable("$ACADVER", groups);
    if (m_file.View().substr(0, kByteOrderMark.size()) == kByteOrderMark || FirstValue(groups) >= kFirstUtf8)
        return DxfTextCodec("UTF-8");
    GetHeaderVariable("$DWGCODEPAGE", groups);
    return DxfTextCodec(FirstValue(groups));
}

std::size_t DxfDrawing::EntryOf(AcDbObjectId id) const {
    const std::size_t entry = m_ids.EntryOf(id.asOldId());
    const bool isObject = entry != DxfIds::kNone && m_index.GetKind(entry) != DxfKind::Structure;
    return isObject ? entry : DxfIndex::kNone;
}

AcDbObjectId DxfDrawing::IdOf(std::size_t entry) const {
    return entry == DxfIndex::kNone ? AcDbObjectId() : AcDbObjectId::FromOldId(m_ids.IdOf(entry));
}

std::string_view DxfDrawing::ReadText(std::size_t entry) const {
    const std::size_t begin = m_index.GetBegin(entry);
    return m_file.View().substr(begin, m_index.GetEnd(entry) - begin);
}

std::string_view DxfDrawing::TextOf(std::size_t entry) const {
    const std::string* const changed = m_changes.FindText(entry);
    return changed ? std::string_view(*changed) : ReadText(entry);
}

std::uint64_t DxfDrawing::HandleOf(std::size_t entry) const {
    // A change never touches it. The scan stops early, as the handle stands near the top.
    const std::string_view text = ReadText(entry);
    DxfScanner scanner(text);
    DxfRawGroup group;
    int code = 0;
    while (scanner.Next(group))
        if (group.code == 0)
            code = DxfHandleCode(m_index.GetKind(entry), TrimDxfValue(group.ValueIn(text)));
        else if (group.code == code)
            return ParseDxfHandle(group.ValueIn(text));
    return 0;
}

bool DxfDrawing::IsRecordOf(std::size_t entry, std::string_view table) const {
    return m_index.GetKind(entry) == DxfKind::TableRecord && IsOfType(entry, table);
}

bool DxfDrawing::IsBlockHead(std::size_t entry) const {
    return m_index.GetKind(entry) == DxfKind::BlockPart && IsOfType(entry, "BLOCK");
}

bool DxfDrawing::IsOfType(std::size_t entry, std::string_view type) const {
    const std::string_view text = ReadText(entry);
    DxfScanner scanner(text);
    DxfRawGroup group;
    return scanner.Next(group) && TrimDxfValue(group.ValueIn(text)) == type;
}

bool DxfDrawing::SetGroups(std::size_t entry, const std::vector<DxfGroup>& groups) {
    if (!AreDxfGroupsSound(groups))
        return false;
    const std::string_view text = TextOf(entry);
    const std::vector<DxfGroup> before = ReadDxfGroups(text);
    const int handleCode = DxfHandleCode(m_index.GetKind(entry), TrimDxfValue(before[0].value));
    if (IdentityOf(before, handleCode) != IdentityOf(groups, handleCode))
        return false;
    if (before == groups)
        return true;
    m_changes.Replace(entry, RewriteDxfObject(text, groups, m_style));
    ++m_changeCount;
    return true;
}

bool DxfDrawing::GetHeaderVariable(std::string_view name, std::vector<DxfGroup>& groups) const {
    groups.clear();
    for (const std::size_t entry : {m_index.GetHeader(), m_index.GetLooseHeader()})
        if (entry != DxfIndex::kNone && FindVariable(ReadText(entry), name, groups))
            return true;
    return false;
}

CString DxfDrawing::GetWarning() const {
    CString warning;
    if (m_index.GetLooseHeader() == DxfIndex::kNone)
        return warning;
    const std::string_view whole = m_file.View();
    DxfScanner scanner(whole, m_index.GetBegin(m_index.GetLooseHeader()));
    DxfRawGroup group;
    while (scanner.Next(group) && group.code != kVariable) {
    }
    warning.Format(PlatformText(L"图形文件第 %d 行有错：文件头变量在文件头结束（ENDSEC）之后，已照样读取。"),
                   DxfLineOf(whole, group.start));
    return warning;
}

std::string_view DxfDrawing::WholeText(DxfFile& storage) const {
    if (m_changes.GetChanges().empty())
        return m_file.View();
    return m_changes.Compose(m_file.View(), m_index, storage) ? storage.View() : std::string_view();
}

bool DxfDrawing::Revise(const DxfRevision& revision) {
    DxfRevision all = m_changes;
    all.Add(revision);
    DxfFile file;
    if (!all.Compose(m_file.View(), m_index, file))
        return false;
    DxfIndex index;
    DxfFault fault{};
    std::size_t place = 0;
    if (!index.Build(file.View(), fault, place))
        return false;
    DxfIds ids(m_ids, m_index.GetCount(), all);
    // From here on nothing can fail.
    m_file = std::move(file);
    m_index = std::move(index);
    m_ids = std::move(ids);
    m_changes = DxfRevision();
    ++m_changeCount;
    return true;
}
