// What the dispatch of messages is at right now: the one thing that all windows of the process share. For the sources
// of this room only.
#pragma once

#include "platform/window/WindowMessages.h"

class LiveEvent;

// Windows live in one thread, so there is one context. Handlers are nested, as events are: who sets the message or the
// event puts the outer one back when it has been handled.
struct DispatchContext {
    struct Message {
        UINT id;
        WPARAM wParam;
        LPARAM lParam;
    };

    Message message = {};        // what is being handled, for CWnd::Default(); all zero when nothing is
    LiveEvent* event = nullptr;  // the toolkit's event that messages are being made from; null when none are
    HWND lastFocus = nullptr;    // who lost the focus last: the toolkit does not tell who gets it

    static DispatchContext& Current() {
        static DispatchContext context;
        return context;
    }
};
