// The results of host operations that can fail in more than one way.
#pragma once

namespace Acad {

// What the function that gives it says of each.
enum ErrorStatus {
    eOk = 0,         // done
    eInvalidInput,   // an argument makes no sense
    eKeyNotFound,    // nothing has that name
    eOutOfMemory,    // there is no memory
    eCantOpenFile,   // a file cannot be read
    eFileAccessErr,  // a file cannot be written
    eBadDxfFile,     // a drawing file is not sound
};

}  // namespace Acad
