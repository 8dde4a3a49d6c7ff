// Where the objects of a drawing file lie in its text, found in one pass that also checks the file's structure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/DxfScanner.h"

// Why a text is no drawing. The first four and the last come from the scanner, in any state; a zero byte is looked for
// before that; the others come from the machine that DxfIndex is.
enum class DxfFault {
    NoNumber,         // a group's code is no number
    CodeOutOfRange,   // or none that a group can have
    NoValue,          // the text ends behind a code
    LongLine,         // a line longer than kLongestDxfLine
    ZeroByte,         // anywhere in the text
    SectionExpected,  // something stands where only a section or the end of the file may
    NameExpected,     // a section without its name
    SectionOpen,      // SECTION or EOF inside another section
    TableExpected,    // a record outside a table
    TableOpen,        // a table or the section's end inside a table
    BlockExpected,    // an entity outside a block
    BlockOpen,        // a block or the section's end inside a block
    NoEnd,            // the text ends without EOF
};

// What an entry of the index is. Structure has no data of its own and cannot be asked for: the heads and ends of
// sections, ends of tables, the end of the file, and all that stands in other sections.
enum class DxfKind : std::uint8_t { Structure, TableHead, TableRecord, BlockPart, Entity, Object };

// One entry for each group 0, in the file's order: 5 bytes, and 16 for one with a handle.
//
// Build reads group after group. A group 0 begins an entry and may change the state; all other groups belong to the
// entry before them, and only three kinds of them are looked at: a section's name, handles, comments (999), which may
// stand anywhere.
//
//   state       group            next state; the entry's kind        refused with
//   None        0 SECTION        Unnamed; Structure
//               0 EOF            the end: no more is read
//               9                Loose, once, where the section before was HEADER; else SectionExpected
//               all others                                           SectionExpected
//   Loose       other than 0     the same: header variables behind a header that ended too early
//               0 ENDSEC         None; Structure: the end where it belonged
//               all others       as in None
//   Unnamed     2 with a name    one of those below; Other for every name without a row of its own (HEADER, CLASSES)
//               all others                                           NameExpected
//   Tables      0 TABLE          in a table; TableHead               TableOpen when already in one
//               0 ENDTAB         in no table; Structure              TableExpected when in none
//               0 others         the same; TableRecord               TableExpected when in none
//   Blocks      0 BLOCK          in a block; BlockPart               BlockOpen when already in one
//               0 ENDBLK         in no block; BlockPart              BlockExpected when in none
//               0 others         the same; BlockPart                 BlockExpected when in none
//   Entities    0 others         the same; Entity
//   Objects     0 others         the same; Object
//   Other       0 others         the same; Structure
//   all five    0 ENDSEC         None; Structure                     TableOpen, BlockOpen when in one
//               0 SECTION, EOF                                       SectionOpen
//
// Sections may come in any order, more than once, or not at all.
class DxfIndex {
public:
    // Indexes a text of less than 4 GiB. False: `fault` at the offset `place`, and the index is of no use.
    bool Build(std::string_view text, DxfFault& fault, std::size_t& place);

    std::size_t GetCount() const { return m_begins.size(); }
    DxfKind GetKind(std::size_t entry) const { return m_kinds[entry]; }
    std::size_t GetBegin(std::size_t entry) const { return m_begins[entry]; }
    // Where the next entry begins. Not for the last one, the end of the file.
    std::size_t GetEnd(std::size_t entry) const { return m_begins[entry + 1]; }

    std::size_t GetEntityCount() const { return m_entities; }
    std::size_t GetEntity(std::size_t index) const;
    // The entry with a handle, kNone for none.
    std::size_t FindHandle(std::uint64_t handle) const;
    // The greatest handle of all, 0 for none.
    std::uint64_t GetGreatestHandle() const { return m_handles.empty() ? 0 : m_handles.back().first; }
    // The entry that holds the header variables, kNone for none.
    std::size_t GetHeader() const { return m_header; }
    // The entry with header variables behind the header's end, which it is; kNone where there are none. Some programs
    // end the header too early, and what follows is read all the same.
    std::size_t GetLooseHeader() const { return m_looseHeader; }

    static constexpr std::size_t kNone = SIZE_MAX;

private:
    // In this order: what comes behind Unnamed is inside a section with a name.
    enum class Section { None, Loose, Unnamed, Other, Tables, Blocks, Entities, Objects };
    struct Run {  // entities that follow each other
        std::size_t firstIndex;
        std::size_t firstEntry;
    };

    bool OnGroup(const DxfRawGroup& group, std::string_view text);
    bool OnBegin(std::string_view type);
    bool OnLooseGroup(const DxfRawGroup& group);
    bool OnSectionName(const DxfRawGroup& group, std::string_view name);
    bool BeginInSection(std::string_view type);
    bool BeginInTables(std::string_view type);
    bool BeginInBlocks(std::string_view type);
    bool EndSection();
    bool Refuse(DxfFault fault) {
        m_fault = fault;
        return false;
    }

    std::vector<std::uint32_t> m_begins;
    std::vector<DxfKind> m_kinds;
    std::vector<std::pair<std::uint64_t, std::uint32_t>> m_handles;  // in order, with their entries
    std::vector<Run> m_runs;
    std::size_t m_entities = 0;
    std::size_t m_header = kNone;
    std::size_t m_looseHeader = kNone;

    // The machine's state, of no use once it has been built.
    Section m_section = Section::None;
    bool m_isBehindHeader = false;        // the last section that began is the header
    bool m_isInTable = false;             // only in Tables
    bool m_isInBlock = false;             // only in Blocks
    bool m_isAtEnd = false;               // EOF has come: Build is done
    DxfKind m_kind = DxfKind::Structure;  // of the current entry
    int m_handleCode = 0;  // of the group that would be the current entry's handle; 0: it has no handle, or has had it
    DxfFault m_fault = DxfFault::NoEnd;  // set by Refuse, which ends Build
};

// A handle's number; 0 for what is none.
std::uint64_t ParseDxfHandle(std::string_view value);
// The code of the group that holds the handle of an object of this type.
int DxfHandleCode(DxfKind kind, std::string_view type);
