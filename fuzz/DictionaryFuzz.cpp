// Any bytes as the file of a dictionary: refused, or read as a tree that can be written and comes back as it was.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/MemoryFile.h"
#include "platform/base/DictionaryReader.h"
#include "platform/base/DictionaryWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    QcDtDictionary read;
    const bool isRead = DictionaryReader(read).ReadBytes(bytes);
    Require(DictionaryReader::AcceptsBytes(bytes) == isRead);
    if (!isRead) {
        Require(read.GetCount() == 0 && read.GetTag().IsEmpty() && read.GetAttributeCount() == 0);
        return 0;
    }
    std::string written;
    if (!DictionaryWriter::Write(read, written))
        return 0;  // names that grow too long by their escapes
    QcDtDictionary again;
    Require(DictionaryReader(again).ReadBytes(written));
    std::string writtenAgain;
    Require(DictionaryWriter::Write(again, writtenAgain));
    Require(writtenAgain == written);
    return 0;
}
