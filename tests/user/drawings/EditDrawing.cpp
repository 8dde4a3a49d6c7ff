// edit-drawing IN OUT [HANDLE CODE VALUE]...: opens a drawing, sets the first group of each code of the object with
// that handle (adds it at the end where there is none; a point of the value X,Y,Z is always added, as commands do),
// saves, and tells the number of entities and whether it is in metres.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/AdsEntity.h"
#include "platform/host/DrawingUnits.h"

namespace {

bool Set(AcDbDatabase& drawing, const char* handle, int code, const char* value) {
    const AcDbObjectId id = drawing.FindHandle(std::strtoull(handle, nullptr, 16));
    std::vector<DxfGroup> groups;
    std::string bytes;
    if (!drawing.GetGroups(id, groups) || !drawing.Encode(FromUtf8(value), bytes))
        return false;
    for (DxfGroup& group : groups) {
        if (group.code == code) {
            group.value = bytes;
            return drawing.SetGroups(id, groups);
        }
    }
    groups.push_back({code, bytes});
    return drawing.SetGroups(id, groups);
}

bool AddPoint(AcDbDatabase& drawing, const char* handle, int code, const double (&point)[3]) {
    resbuf name{nullptr, -1, {}};
    name.resval.rlname[0] = drawing.FindHandle(std::strtoull(handle, nullptr, 16)).asOldId();
    resbuf buffer{nullptr, static_cast<std::int16_t>(code), {}};
    std::copy(std::begin(point), std::end(point), buffer.resval.rpoint);
    name.rbnext = &buffer;
    return acdbEntMod(&name) == RTNORM;
}

bool Change(AcDbDatabase& drawing, const char* handle, int code, const char* value) {
    double point[3] = {};
    if (std::sscanf(value, "%lf,%lf,%lf", &point[0], &point[1], &point[2]) == 3)
        return AddPoint(drawing, handle, code, point);
    return Set(drawing, handle, code, value);
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
    for (int i = 3; i + 2 < argc; i += 3)
        if (!Change(drawing, argv[i], std::atoi(argv[i + 1]), argv[i + 2]))
            return Fail(L"not set");
    if (drawing.dxfOut(FromUtf8(argv[2]), &message) != Acad::eOk)
        return Fail(message);
    std::printf("%zu entities%s\n", drawing.GetEntityCount(), QcDbGetDrawUnit() != 0 ? ", metres" : "");
    return 0;
}
