// The results of host operations that can fail in more than one way.
#pragma once

namespace Acad {

enum ErrorStatus {
    eOk = 0,
    eInvalidInput,
    eKeyNotFound,
};

}  // namespace Acad
