// The results of host operations that can fail in more than one way.
#pragma once

namespace Acad {

enum ErrorStatus {
    eOk = 0,
    eInvalidInput,
    eKeyNotFound,
    eOutOfMemory,
    eCantOpenFile,   // a file cannot be read
    eFileAccessErr,  // a file cannot be written
    eBadDxfFile,     // a drawing file is not sound
};

}  // namespace Acad
