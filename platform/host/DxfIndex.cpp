// Builds the index in one pass over the groups, by the machine whose states the header lists.
#include "platform/host/DxfIndex.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "platform/base/Characters.h"

namespace {

constexpr int kHandle = 5;
constexpr int kDimstyleHandle = 105;
constexpr int kName = 2;
constexpr int kVariable = 9;
constexpr std::size_t kMostHandleDigits = 16;

DxfFault FaultOf(DxfScanner::Stop stop) {
    switch (stop) {
        case DxfScanner::Stop::NoNumber:
            return DxfFault::NoNumber;
        case DxfScanner::Stop::CodeOutOfRange:
            return DxfFault::CodeOutOfRange;
        case DxfScanner::Stop::NoValue:
            return DxfFault::NoValue;
        case DxfScanner::Stop::LongLine:
            return DxfFault::LongLine;
        default:
            return DxfFault::NoEnd;
    }
}

}  // namespace

std::uint64_t ParseDxfHandle(std::string_view value) {
    const std::string_view digits = TrimDxfValue(value);
    std::uint64_t handle = 0;
    if (digits.size() > kMostHandleDigits)
        return 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), handle, 16);
    return error == std::errc() && end == digits.data() + digits.size() ? handle : 0;
}

int DxfHandleCode(DxfKind kind, std::string_view type) {
    // In this one kind of record group 5 is something else.
    return kind == DxfKind::TableRecord && type == "DIMSTYLE" ? kDimstyleHandle : kHandle;
}

bool DxfIndex::Build(std::string_view text, DxfFault& fault, std::size_t& place) {
    if (const void* const zero = text.empty() ? nullptr : std::memchr(text.data(), 0, text.size())) {
        fault = DxfFault::ZeroByte;
        place = static_cast<std::size_t>(static_cast<const char*>(zero) - text.data());
        return false;
    }
    DxfScanner scanner(text, text.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0);
    DxfRawGroup group;
    while (!m_isAtEnd) {
        if (!scanner.Next(group)) {
            fault = FaultOf(scanner.GetStop());
            place = scanner.GetPlace();
            return false;
        }
        if (!OnGroup(group, text)) {
            fault = m_fault;
            place = group.start;
            return false;
        }
    }
    // Of equal handles the first in the file comes first.
    std::sort(m_handles.begin(), m_handles.end());
    return true;
}

bool DxfIndex::OnGroup(const DxfRawGroup& group, std::string_view text) {
    if (group.code == 0) {
        if (m_section == Section::Unnamed)
            return Refuse(DxfFault::NameExpected);
        const std::string_view type = TrimDxfValue(group.ValueIn(text));
        m_begins.push_back(static_cast<std::uint32_t>(group.start));
        m_kind = DxfKind::Structure;
        m_handleCode = 0;
        const bool isGood = OnBegin(type);
        m_kinds.push_back(m_kind);
        if (m_kind != DxfKind::Structure)
            m_handleCode = DxfHandleCode(m_kind, type);
        return isGood;
    }
    if (group.code == m_handleCode) {
        m_handleCode = 0;
        if (const std::uint64_t handle = ParseDxfHandle(group.ValueIn(text)))
            m_handles.emplace_back(handle, static_cast<std::uint32_t>(m_begins.size() - 1));
        return true;
    }
    if (m_section > Section::Unnamed || group.code == kDxfComment)
        return true;
    return m_section == Section::Unnamed ? OnSectionName(group, TrimDxfValue(group.ValueIn(text)))
                                         : OnLooseGroup(group);
}

// A group between sections.
bool DxfIndex::OnLooseGroup(const DxfRawGroup& group) {
    if (m_section == Section::Loose)
        return true;
    if (group.code != kVariable || !m_isBehindHeader || m_looseHeader != kNone)
        return Refuse(DxfFault::SectionExpected);
    m_section = Section::Loose;
    m_looseHeader = m_begins.size() - 1;
    return true;
}

bool DxfIndex::OnSectionName(const DxfRawGroup& group, std::string_view name) {
    if (group.code != kName)
        return Refuse(DxfFault::NameExpected);
    m_isBehindHeader = name == "HEADER";
    if (m_isBehindHeader && m_header == kNone)
        m_header = m_begins.size() - 1;
    m_section = name == "TABLES"     ? Section::Tables
                : name == "BLOCKS"   ? Section::Blocks
                : name == "ENTITIES" ? Section::Entities
                : name == "OBJECTS"  ? Section::Objects
                                     : Section::Other;
    if (m_section == Section::Entities)
        m_runs.push_back({m_entities, m_begins.size()});
    return true;
}

// What begins with a group 0.
bool DxfIndex::OnBegin(std::string_view type) {
    if (m_section > Section::Unnamed)
        return BeginInSection(type);
    const bool isLateEnd = m_section == Section::Loose && type == "ENDSEC";
    m_section = Section::None;
    if (isLateEnd)
        return true;
    if (type == "EOF") {
        m_isAtEnd = true;
        return true;
    }
    if (type != "SECTION")
        return Refuse(DxfFault::SectionExpected);
    m_section = Section::Unnamed;
    return true;
}

bool DxfIndex::BeginInSection(std::string_view type) {
    if (type == "SECTION" || type == "EOF")
        return Refuse(DxfFault::SectionOpen);
    if (type == "ENDSEC")
        return EndSection();
    switch (m_section) {
        case Section::Tables:
            return BeginInTables(type);
        case Section::Blocks:
            return BeginInBlocks(type);
        case Section::Entities:
            m_kind = DxfKind::Entity;
            ++m_entities;
            return true;
        case Section::Objects:
            m_kind = DxfKind::Object;
            return true;
        default:
            return true;
    }
}

bool DxfIndex::BeginInTables(std::string_view type) {
    if (type == "TABLE") {
        if (m_isInTable)
            return Refuse(DxfFault::TableOpen);
        m_isInTable = true;
        m_kind = DxfKind::TableHead;
        return true;
    }
    if (!m_isInTable)
        return Refuse(DxfFault::TableExpected);
    if (type == "ENDTAB")
        m_isInTable = false;
    else
        m_kind = DxfKind::TableRecord;
    return true;
}

bool DxfIndex::BeginInBlocks(std::string_view type) {
    if (type == "BLOCK") {
        if (m_isInBlock)
            return Refuse(DxfFault::BlockOpen);
        m_isInBlock = true;
    } else if (!m_isInBlock) {
        return Refuse(DxfFault::BlockExpected);
    } else if (type == "ENDBLK") {
        m_isInBlock = false;
    }
    m_kind = DxfKind::BlockPart;
    return true;
}

bool DxfIndex::EndSection() {
    if (m_isInTable)
        return Refuse(DxfFault::TableOpen);
    if (m_isInBlock)
        return Refuse(DxfFault::BlockOpen);
    m_section = Section::None;
    return true;
}

std::size_t DxfIndex::GetEntity(std::size_t index) const {
    const auto behind = std::upper_bound(m_runs.begin(), m_runs.end(), index,
                                         [](std::size_t wanted, const Run& run) { return wanted < run.firstIndex; });
    const Run& run = *(behind - 1);
    return run.firstEntry + (index - run.firstIndex);
}

std::size_t DxfIndex::FindHandle(std::uint64_t handle) const {
    const auto at = std::lower_bound(m_handles.begin(), m_handles.end(), std::pair(handle, std::uint32_t{0}));
    return handle != 0 && at != m_handles.end() && at->first == handle ? at->second : kNone;
}
