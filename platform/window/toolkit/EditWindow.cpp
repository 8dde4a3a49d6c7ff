// The edit on the screen: the toolkit's line edit with the framework's messages.
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <limits>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

QLineEdit& EditOf(const WindowLink& link) {
    return *static_cast<QLineEdit*>(link.m_widget);
}

void GetSelection(const QLineEdit& edit, int& start, int& end) {
    const QString text = edit.text();
    const bool selected = edit.hasSelectedText();
    start = FromQtIndex(text, selected ? edit.selectionStart() : edit.cursorPosition());
    end = FromQtIndex(text, selected ? edit.selectionEnd() : edit.cursorPosition());
}

void SetSelection(QLineEdit& edit, int start, int end) {
    if (start < 0) {
        edit.deselect();
        return;
    }
    const QString text = edit.text();
    int from = ToQtIndex(text, start);
    int to = end < 0 ? static_cast<int>(text.size()) : ToQtIndex(text, end);
    if (from > to)
        std::swap(from, to);
    edit.deselect();
    edit.setCursorPosition(to);
    if (from < to)
        edit.setSelection(from, to - from);
}

void SetText(QLineEdit& edit, const wchar_t* text) {
    const QString shown = ToQString(text);
    // The limit is for what is typed.
    edit.setMaxLength(std::max(edit.maxLength(), static_cast<int>(shown.size())));
    edit.setText(shown);
    edit.home(false);
}

bool IsBreak(QChar character) {
    switch (character.unicode()) {
        case u'\t':
        case u'\n':
        case u'\v':
        case u'\f':
        case u'\r':
        case 0x85:    // next line
        case 0x2028:  // line separator
        case 0x2029:  // paragraph separator
            return true;
        default:
            return false;
    }
}

QString OnOneLine(QString text) {
    text.replace("\r\n", " ");
    std::replace_if(text.begin(), text.end(), IsBreak, QChar(u' '));
    return text;
}

// An edit has one line. What is pasted may have several, or tabs: each break becomes a blank, so that nothing is lost
// and nothing is kept that cannot be seen. Texts that the program sets stay as they are.
void KeepOnOneLine(QLineEdit& edit) {
    const QString text = edit.text();
    if (std::none_of(text.begin(), text.end(), IsBreak))
        return;
    const qsizetype caret = OnOneLine(text.left(edit.cursorPosition())).size();
    const QSignalBlocker quiet(edit);  // the change is reported once, by who noticed it
    edit.setText(OnOneLine(text));
    edit.setCursorPosition(static_cast<int>(caret));
    edit.setModified(true);
}

void SetFormattingRect(QLineEdit& edit, const RECT* rect) {
    if (rect != nullptr)
        edit.setTextMargins(rect->left, rect->top, std::max(0, edit.width() - rect->right),
                            std::max(0, edit.height() - rect->bottom));
}

// Alt with a letter is for the dialog's mnemonics and types nothing; the rest of the toolkit's uses of Alt stay.
void SystemKey(WindowLink& link, WPARAM wParam) {
    if (wParam >= VK_F1 || wParam == VK_UP || wParam == VK_DOWN)
        link.DeliverEvent(WM_SYSKEYDOWN, wParam);
    else
        link.IgnoreEvent();
}

LRESULT SelectionMessage(QLineEdit& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    int start = 0;
    int end = 0;
    switch (message) {
        case EM_GETSEL:
            GetSelection(edit, start, end);
            if (wParam != 0)
                *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(start);
            if (lParam != 0)
                *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(end);
            return MAKELONG(start, end);
        case EM_SETSEL:
            SetSelection(edit, static_cast<int>(wParam), static_cast<int>(lParam));
            return 0;
        case EM_REPLACESEL:
            edit.insert(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            edit.setModified(true);
            return 0;
        default:  // EM_SCROLLCARET: the toolkit's edit never lets its caret out of sight
            return 0;
    }
}

LRESULT ClipboardMessage(WindowLink& link, UINT message, WPARAM wParam) {
    if (link.DeliverEvent(message, wParam))
        return 0;
    QLineEdit& edit = EditOf(link);
    switch (message) {
        case WM_CUT:
            edit.cut();
            return 0;
        case WM_COPY:
            edit.copy();
            return 0;
        case WM_PASTE:
            edit.paste();
            return 0;
        case WM_CLEAR:
            if (edit.hasSelectedText() && !edit.isReadOnly())
                edit.del();
            return 0;
        default:  // WM_UNDO, EM_UNDO
            edit.undo();
            return TRUE;
    }
}

LRESULT EditProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    QLineEdit& edit = EditOf(link);
    switch (message) {
        case WM_SETTEXT:
            SetText(edit, reinterpret_cast<const wchar_t*>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(FromQString(edit.text()), wParam, lParam);
        case WM_GETTEXTLENGTH:
        case EM_LINELENGTH:
            return FromQString(edit.text()).GetLength();
        case EM_GETSEL:
        case EM_SETSEL:
        case EM_REPLACESEL:
        case EM_SCROLLCARET:
            return SelectionMessage(edit, message, wParam, lParam);
        case EM_GETMODIFY:
            return edit.isModified() ? TRUE : FALSE;
        case EM_SETMODIFY:
            edit.setModified(wParam != 0);
            return 0;
        case EM_SETRECT:
            SetFormattingRect(edit, reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_CUT:
        case WM_COPY:
        case WM_PASTE:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
            return ClipboardMessage(link, message, wParam);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            link.DeliverEvent(message, wParam);
            link.NotifyParent(message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS);
            return 0;
        case WM_SYSKEYDOWN:
            SystemKey(link, wParam);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

Qt::Alignment AlignmentOf(DWORD style) {
    if ((style & ES_CENTER) != 0)
        return Qt::AlignHCenter | Qt::AlignVCenter;
    return ((style & ES_RIGHT) != 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

WindowLink& MakeEdit(const ControlRequest& request) {
    auto* edit = new QLineEdit(request.parent);  // a child of the parent
    edit->setAcceptDrops(false);
    edit->setFrame((request.style & WS_BORDER) != 0);
    edit->setAlignment(AlignmentOf(request.style));
    edit->setReadOnly((request.style & ES_READONLY) != 0);
    if ((request.style & ES_PASSWORD) != 0)
        edit->setEchoMode(QLineEdit::Password);
    edit->setMaxLength(std::numeric_limits<int>::max() / 4);
    SetText(*edit, request.text);
    WindowLink& link = MakeWindow(edit, request.id, request.style, &EditProcedure);
    QObject::connect(edit, &QLineEdit::textEdited, edit, [edit] { KeepOnOneLine(*edit); });
    QObject::connect(edit, &QLineEdit::textChanged, edit, [&link] { link.NotifyParent(EN_CHANGE); });
    return link;
}
