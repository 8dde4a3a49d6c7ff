// Divides the names of windows at their minus signs.
#include "analysis/WindowName.h"

namespace {

bool HasBlankPart(const CString& name) {
    for (int start = 0; start >= 0;) {
        const int sign = name.Find(L'-', start);
        const CString part = sign < 0 ? name.Mid(start) : name.Mid(start, sign - start);
        if (CString(part).Trim().IsEmpty())
            return true;
        start = sign < 0 ? -1 : sign + 1;
    }
    return false;
}

// What stands before the last minus sign, and after it. Without a sign there is nothing before.
struct Halves {
    CString before;
    CString last;
};

Halves HalvesOf(const CString& name) {
    const int sign = name.ReverseFind(L'-');
    return sign < 0 ? Halves{{}, name} : Halves{name.Left(sign), name.Mid(sign + 1)};
}

Halves BuildingAndFlat(const CString& name) {
    return HasBlankPart(name) ? Halves() : HalvesOf(HalvesOf(name).before);
}

}  // namespace

CString BuildingOf(const CString& name) {
    return BuildingAndFlat(name).before.Trim();
}

CString FlatOf(const CString& name) {
    return BuildingAndFlat(name).last.Trim();
}
