// Message maps: which member function of a window class answers which message. A class writes DECLARE_MESSAGE_MAP()
// and, in its source,
//
//     BEGIN_MESSAGE_MAP(PlaceDialog, CDialog)
//         ON_BN_CLICKED(2021, &PlaceDialog::OnEdit)
//         ON_WM_DESTROY()
//     END_MESSAGE_MAP()
//
// A message that the map does not name goes to the base's map, at last to the window's own behaviour. Maps are constant
// data. A handler of a wrong shape does not compile.
#pragma once

#include "platform/window/WindowMessages.h"

class CWnd;

// One row. A command or notification is told by its code and the sender's id.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  // its number
    UINT nCode;     // of the notification; 0 for others
    UINT nID;       // of the sender; 0 for others
    // Calls the handler; null ends the rows.
    LRESULT (*pfnCall)(CWnd* target, WPARAM wParam, LPARAM lParam);
};

// Rows, ended by one without a function, and how to get at the base's map (null: there is none).
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // gives the base's map
    const AFX_MSGMAP_ENTRY* lpEntries;     // the rows
};

// The shapes of handlers: each calls one member function of T, a class of windows, with what the message carries.
namespace MessageCall {

// void handler().
template <class T, auto handler>
LRESULT Plain(CWnd* target, WPARAM, LPARAM) {
    (static_cast<T*>(target)->*handler)();
    return 0;
}

// void handler(UINT key or character, UINT repeatCount, UINT flags).
template <class T, auto handler>
LRESULT Key(CWnd* target, WPARAM wParam, LPARAM lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    (static_cast<T*>(target)->*handler)(static_cast<UINT>(wParam), LOWORD(bits), HIWORD(bits));
    return 0;
}

// void handler(CWnd* other), null for none.
template <class T, auto handler>
LRESULT Focus(CWnd* target, WPARAM wParam, LPARAM) {
    (static_cast<T*>(target)->*handler)(T::FromHandle(reinterpret_cast<HWND>(wParam)));
    return 0;
}

// BOOL handler(CWnd* window, UINT hitTest, UINT message).
template <class T, auto handler>
LRESULT Cursor(CWnd* target, WPARAM wParam, LPARAM lParam) {
    const auto bits = static_cast<std::uintptr_t>(lParam);
    CWnd* window = T::FromHandle(reinterpret_cast<HWND>(wParam));
    return (static_cast<T*>(target)->*handler)(window, LOWORD(bits), HIWORD(bits));
}

// void handler(NMHDR* notification, LRESULT* result).
template <class T, auto handler>
LRESULT Notify(CWnd* target, WPARAM, LPARAM lParam) {
    LRESULT result = 0;
    (static_cast<T*>(target)->*handler)(reinterpret_cast<NMHDR*>(lParam), &result);
    return result;
}

// LRESULT handler(WPARAM, LPARAM).
template <class T, auto handler>
LRESULT Raw(CWnd* target, WPARAM wParam, LPARAM lParam) {
    return (static_cast<T*>(target)->*handler)(wParam, lParam);
}

}  // namespace MessageCall

// Before a member function that answers a message: for readers, and nothing to the compiler.
#define afx_msg

// clang-format off
// In a class of windows: it has a map. What follows is protected.
#define DECLARE_MESSAGE_MAP()                     \
protected:                                        \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

// In the class's source: its map begins, which goes on to its base's.
#define BEGIN_MESSAGE_MAP(theClass, baseClass)           \
    const AFX_MSGMAP* theClass::GetMessageMap() const {  \
        return GetThisMessageMap();                      \
    }                                                    \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {    \
        using ThisClass [[maybe_unused]] = theClass;     \
        using TheBaseClass [[maybe_unused]] = baseClass; \
        static constexpr AFX_MSGMAP_ENTRY s_messageEntries[] = {

// Ends the map.
#define END_MESSAGE_MAP()                                                                                \
        {0, 0, 0, nullptr}};                                                                             \
        static constexpr AFX_MSGMAP s_messageMap = {&TheBaseClass::GetThisMessageMap, s_messageEntries}; \
        return &s_messageMap;                                                                            \
    }
// clang-format on

// A command of a menu or a button: void handler().
#define ON_COMMAND(id, handler) {WM_COMMAND, 0, id, &MessageCall::Plain<ThisClass, handler>},
// A notification of a control of this window: void handler().
#define ON_CONTROL(code, id, handler) {WM_COMMAND, code, id, &MessageCall::Plain<ThisClass, handler>},
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_EN_CHANGE(id, handler) ON_CONTROL(EN_CHANGE, id, handler)
#define ON_CBN_SELCHANGE(id, handler) ON_CONTROL(CBN_SELCHANGE, id, handler)
#define ON_LBN_SELCHANGE(id, handler) ON_CONTROL(LBN_SELCHANGE, id, handler)
#define ON_LBN_DBLCLK(id, handler) ON_CONTROL(LBN_DBLCLK, id, handler)
// A notification that carries an NMHDR: void handler(NMHDR* notification, LRESULT* result).
#define ON_NOTIFY(code, id, handler) {WM_NOTIFY, code, id, &MessageCall::Notify<ThisClass, handler>},
// Any message: LRESULT handler(WPARAM, LPARAM).
#define ON_MESSAGE(message, handler) {message, 0, 0, &MessageCall::Raw<ThisClass, handler>},

// void OnChar(UINT character, UINT repeatCount, UINT flags), and so on: the base versions stand in CWnd.
#define ON_WM_CHAR() {WM_CHAR, 0, 0, &MessageCall::Key<ThisClass, &ThisClass::OnChar>},
#define ON_WM_KEYDOWN() {WM_KEYDOWN, 0, 0, &MessageCall::Key<ThisClass, &ThisClass::OnKeyDown>},
#define ON_WM_SETFOCUS() {WM_SETFOCUS, 0, 0, &MessageCall::Focus<ThisClass, &ThisClass::OnSetFocus>},
#define ON_WM_KILLFOCUS() {WM_KILLFOCUS, 0, 0, &MessageCall::Focus<ThisClass, &ThisClass::OnKillFocus>},
#define ON_WM_SETCURSOR() {WM_SETCURSOR, 0, 0, &MessageCall::Cursor<ThisClass, &ThisClass::OnSetCursor>},
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, &MessageCall::Plain<ThisClass, &ThisClass::OnDestroy>},
#define ON_WM_CLOSE() {WM_CLOSE, 0, 0, &MessageCall::Plain<ThisClass, &ThisClass::OnClose>},
