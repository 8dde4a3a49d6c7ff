// A dictionary's own doors to its files: the reader and the writer, which know it and which it does not know.
#include "platform/base/DictionaryReader.h"
#include "platform/base/DictionaryWriter.h"
#include "platform/base/QcDtDictionary.h"

bool QcDtDictionary::ReadFromXML(const wchar_t* path) {
    return DictionaryReader(*this).ReadFile(path);
}

bool QcDtDictionary::SaveToXML(const wchar_t* path) const {
    return DictionaryWriter::SaveFile(*this, path);
}
