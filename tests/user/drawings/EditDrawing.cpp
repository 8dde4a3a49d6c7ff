// edit-drawing IN OUT [HANDLE CODE VALUE]...: opens a drawing, sets the first group of each code of the object with
// that handle (adds it at the end where there is none), saves, and tells the number of entities and whether it is in
// metres.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"

namespace {

bool Set(AcDbDatabase& drawing, const char* handle, int code, const char* value) {
    const AcDbObjectId id = drawing.FindHandle(std::strtoull(handle, nullptr, 16));
    std::vector<DxfGroup> groups;
    std::string bytes;
    if (!drawing.GetGroups(id, groups) || !drawing.Encode(FromUtf8(value), bytes))
        return false;
    for (DxfGroup& group : groups) {
        if (group.nCode == code) {
            group.strValue = bytes;
            return drawing.SetGroups(id, groups);
        }
    }
    groups.push_back({code, bytes});
    return drawing.SetGroups(id, groups);
}

int Fail(const CString& message) {
    std::fprintf(stderr, "%s\n", ToUtf8(message.View()).c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc % 3 != 0)
        return 2;
    AcDbDatabase drawing;
    CString message;
    if (drawing.dxfIn(FromUtf8(argv[1]), &message) != Acad::eOk)
        return Fail(message);
    acdbSetCurDwg(&drawing);
    for (int i = 3; i + 2 < argc; i += 3) {
        if (!Set(drawing, argv[i], std::atoi(argv[i + 1]), argv[i + 2]))
            return Fail(L"not set");
    }
    if (drawing.dxfOut(FromUtf8(argv[2]), &message) != Acad::eOk)
        return Fail(message);
    std::printf("%zu entities%s\n", drawing.GetEntityCount(), QcDbGetDrawUnit() != 0 ? ", metres" : "");
    return 0;
}
