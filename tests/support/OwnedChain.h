// A chain of result buffers that is freed at the end of a test, and the way to its buffers.
#pragma once

#include <memory>

#include "platform/host/QcAdsEnt.h"
#include "platform/host/ResBuf.h"

struct FreeChain {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};
using OwnedChain = std::unique_ptr<resbuf, FreeChain>;

inline OwnedChain DataOf(AcDbObjectId id) {
    return OwnedChain(QcAdsEnt(id).GetDXFData());
}

// The n-th buffer of a type (from 0); null when there are not so many.
inline resbuf* FindBuffer(resbuf* chain, int type, int n = 0) {
    while (chain && (chain->restype != type || n-- > 0))
        chain = chain->rbnext;
    return chain;
}
