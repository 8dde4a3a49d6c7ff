// Answers the messages of a grid's window that are more than the toolkit's own.
#include "platform/window/QcUiGrid.h"
#include "platform/window/grid/GridView.h"

namespace {

QcUiGridObserver s_observer = nullptr;
void* s_pObserverContext = nullptr;

// Enter opens an editor where there is something to edit, and is the dialog's elsewhere.
bool WantsEnter(const QcUiGrid& grid) {
    return grid.GetCurRow() != nullptr && !grid.IsReadOnly();
}

LRESULT Command(QcUiGrid& grid, WPARAM wParam, LPARAM lParam) {
    const bool ofMenu = lParam == 0 && HIWORD(wParam) == 0;
    if (ofMenu)
        grid.OnMenuCommand(LOWORD(wParam));
    return 0;
}

POINT PointOf(LPARAM lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(LOWORD(bits)), static_cast<std::int16_t>(HIWORD(bits))};
}

LRESULT ContextMenu(WindowLink& link, QcUiGrid& grid, WPARAM wParam, LPARAM lParam) {
    if (link.DeliverEvent(WM_CONTEXTMENU, wParam))
        return 0;
    const POINT place = PointOf(lParam);
    const bool keyboard = place.x == -1 && place.y == -1;
    if (GridView* view = grid.GetView())
        view->AskForMenu(keyboard ? nullptr : &place);
    return 0;
}

}  // namespace

void SetGridObserver(QcUiGridObserver observer, void* context) {
    s_observer = observer;
    s_pObserverContext = context;
}

LRESULT GridProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* grid = dynamic_cast<QcUiGrid*>(CWnd::FromHandlePermanent(link.Handle()));
    if (grid == nullptr)
        return CommonProcedure(link, message, wParam, lParam);
    switch (message) {
        case WM_COMMAND:
            return Command(*grid, wParam, lParam);
        case WM_CONTEXTMENU:
            return ContextMenu(link, *grid, wParam, lParam);
        case WM_SETFOCUS:
            link.DeliverEvent(message, wParam);
            grid->ShowActive(true);
            return 0;
        case WM_KILLFOCUS:
            link.DeliverEvent(message, wParam);
            if (!grid->OwnsWindow(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))))
                grid->ShowActive(false);
            return 0;
        case WM_SYSKEYDOWN:  // mnemonics are the dialog's
            link.IgnoreEvent();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | (wParam == VK_RETURN && WantsEnter(*grid) ? DLGC_WANTALLKEYS : 0);
        case WM_DESTROY:
            grid->EndEditCell();
            if (s_observer != nullptr)
                s_observer(*grid, s_pObserverContext);
            return 0;
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}
