// Making and freeing result buffers.
#include "platform/host/ResBuf.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

#include "platform/host/GroupStorage.h"

resbuf* acutNewRb(int type) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (type < Limits::min() || type > Limits::max())
        return nullptr;
    auto* buffer = static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    if (buffer)
        buffer->restype = static_cast<std::int16_t>(type);
    return buffer;
}

int acutRelRb(resbuf* chain) {
    while (chain) {
        resbuf* const next = chain->rbnext;
        const GroupStorage storage = StorageOf(chain->restype);
        if (storage == GroupStorage::Text)
            std::free(chain->resval.rstring);
        else if (storage == GroupStorage::Binary)
            std::free(chain->resval.rbinary.buf);
        std::free(chain);
        chain = next;
    }
    return RTNORM;
}

int acutNewString(const wchar_t* input, wchar_t*& output) {
    const wchar_t* const text = input ? input : L"";
    const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
    output = static_cast<wchar_t*>(std::malloc(bytes));
    if (!output)
        return RTERROR;
    std::memcpy(output, text, bytes);
    return RTNORM;
}

int acutDelString(wchar_t*& text) {
    if (!text)
        return RTERROR;
    std::free(text);
    text = nullptr;
    return RTNORM;
}
