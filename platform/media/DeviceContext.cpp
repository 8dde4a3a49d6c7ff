// The table of device contexts. Each knows how it came to be, because each kind is given back in its own way.
#include "platform/media/DeviceContext.h"

#include <memory>
#include <new>

#include "platform/base/HandleTable.h"

namespace {

enum class ContextKind { Screen, Memory };

using ContextTable = HandleTable<const ContextKind, HDC>;

// Never destroyed: contexts may be given back by destructors that run late.
ContextTable& Contexts() {
    static ContextTable& contexts = *new ContextTable;
    return contexts;
}

HDC AddContext(ContextKind kind) {
    try {
        return Contexts().Add(std::make_shared<const ContextKind>(kind));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool RemoveContext(HDC context, ContextKind kind) {
    const std::shared_ptr<const ContextKind> found = Contexts().Find(context);
    return found && *found == kind && Contexts().Remove(context) != nullptr;
}

}  // namespace

HDC GetDC(HWND /*window*/) {
    return AddContext(ContextKind::Screen);
}

int ReleaseDC(HWND /*window*/, HDC context) {
    return RemoveContext(context, ContextKind::Screen) ? 1 : 0;
}

HDC CreateCompatibleDC(HDC context) {
    if (context != nullptr && !IsDeviceContext(context))
        return nullptr;
    return AddContext(ContextKind::Memory);
}

BOOL DeleteDC(HDC context) {
    return RemoveContext(context, ContextKind::Memory) ? TRUE : FALSE;
}

bool IsDeviceContext(HDC context) {
    return Contexts().Find(context) != nullptr;
}

std::size_t LiveDeviceContexts() {
    return Contexts().Count();
}
