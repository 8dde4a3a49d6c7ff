// The bytes of a drawing file in memory, and what the user is told when a file is refused.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "platform/base/CString.h"
#include "platform/host/DxfIndex.h"
#include "platform/host/ErrorStatus.h"

// A file may be as large as 2 GiB.
constexpr std::size_t kLargestDxfFile = std::size_t{1} << 31;

class DxfFile {
public:
    DxfFile() = default;
    // Room for a text that is yet to be written to Data().
    explicit DxfFile(std::size_t size) : m_bytes(std::make_unique_for_overwrite<char[]>(size)), m_size(size) {}

    // Reads a whole file. Failure is told by the message.
    Acad::ErrorStatus Read(const wchar_t* path, CString& message);

    std::string_view View() const { return {m_bytes.get(), m_size}; }
    char* Data() { return m_bytes.get(); }

private:
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size = 0;
};

// The number of the line, from 1, at an offset in a text.
int DxfLineOf(std::string_view text, std::size_t place);

// The message for an unsound text: the file, the number of the line that begins at `place` (counted from 1), the cause.
CString DxfFaultMessage(const wchar_t* path, std::string_view text, DxfFault fault, std::size_t place);
