// The drawing database: a drawing file (text-form DXF, R12 to 2018) that is held as what it is, objects of (group code,
// value) pairs, so that everything that is not understood or not touched is saved byte for byte as it was read.
// Why: docs/decisions/host.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/host/AcDbObjectId.h"
#include "platform/host/DxfGroup.h"
#include "platform/host/ErrorStatus.h"

class DxfDrawing;
struct DrawingChange;

// One drawing, empty at first. An object of it is what stands between two groups 0 of the sections TABLES, BLOCKS,
// ENTITIES and OBJECTS: a table's head, a symbol table record, a block's head and end, an entity, an object without
// graphics. To be used by one thread at a time. No member throws; where memory runs out, the call fails.
class ORVO_API AcDbDatabase {
public:
    // Empty, and not the host's.
    AcDbDatabase();
    // When it is the host's drawing, the host has none afterwards.
    ~AcDbDatabase();
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // Replaces the content by that of a file of at most 2 GiB. Any failure leaves the drawing as it was; why (with the
    // file's name, and the line's number where a line is at fault) goes to `message`, or to ReportMessage when it is
    // null. eOk; eCantOpenFile (no such file, not readable, too large), eBadDxfFile (not a sound text-form DXF),
    // eOutOfMemory, eInvalidInput (null or empty path).
    //
    // Values may be anything but a zero byte. What must hold: each code line is a whole number from -5 to 1071, each
    // has a value line, no line is longer than 1 MiB, sections (and in them tables and blocks) are opened and closed in
    // their order, and the last of them is followed by EOF. (What GetReadWarning tells is let pass.)
    Acad::ErrorStatus dxfIn(const wchar_t* path, CString* message = nullptr);

    // What is wrong with the file that was read, though it could be read, in one sentence for people; empty for
    // nothing. Known are header variables behind a header that ends too early, as some programs write them.
    CString GetReadWarning() const;

    // Saves in one step and keeps the version before as NAME.bak; see SaveFileAtomically. Failures as for dxfIn: eOk,
    // eFileAccessErr (the old file stands), eInvalidInput (no path, or the drawing is empty), eOutOfMemory.
    Acad::ErrorStatus dxfOut(const wchar_t* path, CString* message = nullptr);

    // Whether SetGroups or Redraw changed anything since the drawing was read or last saved (wherever to).
    bool IsModified() const;
    // How many calls have changed something since the drawing was read; saving does not count. For those who keep
    // something made of the drawing.
    std::uint64_t GetChangeCount() const;

    // The entities of the section ENTITIES in the file's order. VERTEX, ATTRIB and SEQEND, which follow a POLYLINE or
    // INSERT, are entities of their own. A null id for an index out of range.
    std::size_t GetEntityCount() const;
    AcDbObjectId GetEntityId(std::size_t index) const;

    // The heads (BLOCK) of all blocks of the section BLOCKS in the file's order. False, and no ids, where memory runs
    // out.
    bool GetBlocks(std::vector<AcDbObjectId>& heads) const;
    // The object that stands behind another in the file: behind a block's head its entities, one after the other, then
    // its end (ENDBLK). Null behind the last object of a section or table, and for an unknown id.
    AcDbObjectId GetNextObject(AcDbObjectId id) const;

    // The object with a handle; null when there is none (and for handle 0). Of several the first in the file.
    AcDbObjectId FindHandle(std::uint64_t handle) const;
    // The object's handle; 0 when it has none, or for an unknown id.
    std::uint64_t GetHandle(AcDbObjectId id) const;
    // Whether an object is a record of a table in the section TABLES: LAYER, LTYPE, STYLE, VIEW, UCS, APPID, DIMSTYLE,
    // VPORT, BLOCK_RECORD.
    bool IsSymbolTableRecord(AcDbObjectId id) const;
    // All records of a table ("LAYER") in the file's order, of several tables of that name too. False, and no ids, for
    // a null name and where memory runs out; a table that is not there has no records.
    bool GetSymbolTableRecords(const char* table, std::vector<AcDbObjectId>& ids) const;

    // All of an object's groups in their order, the first being group 0. Comments (group 999) are not among them. False
    // for an unknown id; `groups` is then empty.
    bool GetGroups(AcDbObjectId id, std::vector<DxfGroup>& groups) const;

    // Replaces an object's groups. Those that are the same as before keep their bytes in the file, padding of the code
    // and comments behind them included; the others are written in the file's way. A caller that works with decoded
    // texts therefore passes on the old bytes wherever the decoded text did not change: several spellings can decode to
    // one text. False, and nothing changed: for an unknown id, no groups, a first group that is not the object's group
    // 0 as it was, another group 0, a code out of -5 to 1071 or 999, a value that holds a line break or a zero byte or
    // is longer than 1 MiB, another handle than before (there is no giving, taking or changing of handles).
    bool SetGroups(AcDbObjectId id, const std::vector<DxfGroup>& groups);

    // Makes a change in model space: entities go, layers and entities come, in the way of the drawing's version, with
    // handles above all that there are and $HANDSEED above those. Everything else keeps its bytes, and all objects that
    // stay keep their ids. A layer whose name is taken stays as it is. All of the change is made or, on failure, none
    // of it; why goes to `message`, as for dxfIn. eOk; eInvalidInput (no drawing, a record that is not sound, a drawing
    // whose handles are used up or that would exceed 2 GiB), eKeyNotFound (an entity on a layer that is not there),
    // eOutOfMemory.
    Acad::ErrorStatus Redraw(const DrawingChange& change, CString* message = nullptr);

    // The values of a variable of the header ("$INSUNITS"), without the group 9 that names it; false, and no
    // groups, when the drawing does not have it.
    bool GetHeaderVariable(const char* name, std::vector<DxfGroup>& groups) const;

    // Text of a value. UTF-8 in drawings from AC1021 on and in those that begin with a byte-order mark, else in the
    // code page of $DWGCODEPAGE; when that is missing or unknown each byte is the character of its number. \U+XXXX and
    // \M+NXXXX are resolved. A byte that is no character becomes a lone surrogate from U+DC80 to U+DCFF, which
    // Encode turns back and which a terminal shows as U+FFFD.
    CString Decode(std::string_view bytes) const;
    // The other way round: Decode gives the same text again. A character that the code page lacks, and a backslash that
    // would begin one of those escapes, is written as \U+XXXX. False (and no bytes) for a text that one line cannot
    // hold: with a line break or a zero character.
    bool Encode(const CString& text, std::string& bytes) const;

private:
    std::unique_ptr<DxfDrawing> m_dxf;  // null: empty
};

// The drawing that the host has open, and another one in its place; it belongs to whoever set it. Null: none.
ORVO_API AcDbDatabase* acdbCurDwg();
ORVO_API void acdbSetCurDwg(AcDbDatabase* drawing);
