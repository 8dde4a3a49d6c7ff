// Answers the messages of a grid's window that are more than the toolkit's own.
#include <QWidget>

#include "platform/window/grid/GridView.h"

namespace {

// Enter opens an editor where there is something to edit, and is the dialog's elsewhere.
bool WantsEnter(const GridView& view, const GridContents& grid) {
    return view.CurRow() != nullptr && !grid.state.IsReadOnly();
}

LRESULT Command(GridHost& host, WPARAM wParam, LPARAM lParam) {
    const bool ofMenu = lParam == 0 && HIWORD(wParam) == 0;
    if (ofMenu)
        host.Command(LOWORD(wParam));
    return 0;
}

POINT PointOf(LPARAM lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(LOWORD(bits)), static_cast<std::int16_t>(HIWORD(bits))};
}

LRESULT ContextMenu(WindowLink& link, GridView& view, WPARAM wParam, LPARAM lParam) {
    if (link.DeliverEvent(WM_CONTEXTMENU, wParam))
        return 0;
    const POINT place = PointOf(lParam);
    const bool keyboard = place.x == -1 && place.y == -1;
    view.AskForMenu(keyboard ? nullptr : &place);
    return 0;
}

}  // namespace

LRESULT GridProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* view = dynamic_cast<GridView*>(link.m_widget);
    GridContents* grid = view ? view->Contents() : nullptr;
    if (grid == nullptr || !grid->host.OwnsWindow(link.Handle()))
        return CommonProcedure(link, message, wParam, lParam);
    switch (message) {
        case WM_COMMAND:
            return Command(grid->host, wParam, lParam);
        case WM_CONTEXTMENU:
            return ContextMenu(link, *view, wParam, lParam);
        case WM_SETFOCUS:
            link.DeliverEvent(message, wParam);
            grid->host.ShowActive(true);
            return 0;
        case WM_KILLFOCUS:
            link.DeliverEvent(message, wParam);
            if (!grid->host.OwnsWindow(reinterpret_cast<HWND>(wParam)))
                grid->host.ShowActive(false);
            return 0;
        case WM_SYSKEYDOWN:  // mnemonics are the dialog's
            link.IgnoreEvent();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | (wParam == VK_RETURN && WantsEnter(*view, *grid) ? DLGC_WANTALLKEYS : 0);
        case WM_DESTROY:
            grid->editor.Close(true);
            grid->host.NoteDestroy();
            return 0;
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}
