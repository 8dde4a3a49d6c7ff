// Copies values from a caller's memory into result buffers and back, by a table of their sizes.
#include "records/EntityValue.h"

#include <cstring>
#include <cwchar>

#include "platform/base/Abandon.h"

namespace {

// By type, from RTREAL on. A text counts as the pointer to it.
constexpr int kSizes[] = {8, 24, 2, 8, 8, 16, 16, 8, 24, 4};

bool StoreText(resbuf& buffer, const void* value) {
    const wchar_t* text = nullptr;
    std::memcpy(&text, value, sizeof(text));
    wchar_t* copy = nullptr;
    if (acutNewString(text, copy) != RTNORM)
        return false;
    Abandon(buffer.resval.rstring);  // somebody may still look at it
    buffer.resval.rstring = copy;
    return true;
}

// Callers keep names as three words, of which the middle one is not the name's.
void StoreName(resbuf& buffer, const void* value) {
    std::uint64_t words[3];
    std::memcpy(words, value, sizeof(words));
    buffer.resval.rlname[0] = words[0];
    buffer.resval.rlname[1] = words[2];
}

void FetchText(const resbuf& buffer, void* out) {
    const wchar_t* text = buffer.resval.rstring ? buffer.resval.rstring : L"";
    std::memcpy(out, text, (std::wcslen(text) + 1) * sizeof(wchar_t));
}

void FetchShort(const resbuf& buffer, void* out) {
    const std::int32_t wide = buffer.resval.rint;
    std::memcpy(out, &wide, sizeof(wide));
}

}  // namespace

int GetValueSize(int type) {
    const int index = type >= RTREAL && type <= RTLONG ? type - RTREAL : -1;
    return index < 0 ? RTERROR : kSizes[index];
}

bool StoreValue(resbuf& buffer, int type, const void* value) {
    switch (type) {
        case RTSTR:
            return StoreText(buffer, value);
        case RTPOINT:
        case RT3DPOINT:
            std::memcpy(buffer.resval.rpoint, value, sizeof(buffer.resval.rpoint));
            break;
        case RTENAME:
        case RTPICKS:
            StoreName(buffer, value);
            break;
        case RTSHORT:
            std::memcpy(&buffer.resval.rint, value, sizeof(buffer.resval.rint));
            break;
        case RTREAL:
        case RTANG:
        case RTORINT:
            std::memcpy(&buffer.resval.rreal, value, sizeof(buffer.resval.rreal));
            break;
        case RTLONG:
            std::memcpy(&buffer.resval.rlong, value, sizeof(buffer.resval.rlong));
            break;
        default:
            break;
    }
    return true;
}

bool FetchValue(const resbuf& buffer, int type, void* out) {
    const int size = GetValueSize(type);
    if (size < 0)
        return false;
    if (type == RTSTR)
        FetchText(buffer, out);
    else if (type == RTSHORT)
        FetchShort(buffer, out);
    else
        std::memcpy(out, &buffer.resval, static_cast<std::size_t>(size));
    return true;
}
