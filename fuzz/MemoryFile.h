// What the fuzzed readers of files share: bytes that have a path, and a stop that the fuzzer sees.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/base/CString.h"

inline void Require(bool isTrue) {
    if (!isTrue)
        std::abort();
}

// A file in memory, with the name that the system gives it.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* bytes, std::size_t size) : m_file(memfd_create("fuzz", MFD_CLOEXEC)) {
        Require(m_file >= 0 && write(m_file, bytes, size) == static_cast<ssize_t>(size));
    }
    ~MemoryFile() { close(m_file); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    CString Path() const { return FromUtf8("/proc/self/fd/" + std::to_string(m_file)); }

private:
    int m_file;
};
