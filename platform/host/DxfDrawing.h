// What an open drawing consists of: the file as it was read, where its objects lie, and the texts of changed objects.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/AcDbObjectId.h"
#include "platform/host/DxfFile.h"
#include "platform/host/DxfIds.h"
#include "platform/host/DxfIndex.h"
#include "platform/host/DxfObjectText.h"
#include "platform/host/DxfRevision.h"
#include "platform/host/DxfTextCodec.h"

class DxfDrawing {
public:
    // For a drawing that is to be used no further when it fails.
    Acad::ErrorStatus Read(const wchar_t* path, CString& message);

    // The entry of the index that an id names, DxfIndex::kNone for an id that is not this drawing's.
    std::size_t EntryOf(AcDbObjectId id) const;
    AcDbObjectId IdOf(std::size_t entry) const;

    const DxfIndex& GetIndex() const { return m_index; }
    const DxfTextCodec& GetCodec() const { return m_codec; }
    // The text of an object as it is now.
    std::string_view TextOf(std::size_t entry) const;
    std::uint64_t HandleOf(std::size_t entry) const;
    // Whether an entry is a record of a table, which bears the table's name as its type.
    bool IsRecordOf(std::size_t entry, std::string_view table) const;
    // Whether an entry is the head of a block.
    bool IsBlockHead(std::size_t entry) const;
    bool SetGroups(std::size_t entry, const std::vector<DxfGroup>& groups);
    bool GetHeaderVariable(std::string_view name, std::vector<DxfGroup>& groups) const;
    // As AcDbDatabase.
    CString GetWarning() const;

    // How the drawing's file writes what is new.
    const DxfStyle& GetStyle() const { return m_style; }

    // The whole file's text as it is now; `storage` holds it where it differs from the one that was read. Empty when it
    // has become too large for a file.
    std::string_view WholeText(DxfFile& storage) const;

    // Puts a revision of the text into effect: the index is made anew, ids stay. False, and nothing changed, when the
    // text would become too large for a file.
    bool Revise(const DxfRevision& revision);

    std::uint64_t m_changeCount = 0;  // since it was read
    std::uint64_t m_savedCount = 0;   // how many of them have been saved

private:
    std::string_view ReadText(std::size_t entry) const;
    bool IsOfType(std::size_t entry, std::string_view type) const;
    DxfTextCodec ChooseCodec() const;

    DxfFile m_file;
    DxfIndex m_index;
    DxfTextCodec m_codec;
    DxfStyle m_style;
    DxfIds m_ids;
    DxfRevision m_changes;  // replacements only
};
