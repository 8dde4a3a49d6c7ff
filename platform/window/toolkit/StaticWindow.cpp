// Labels, frames and lines: what only shows.
#include <QFrame>
#include <QLabel>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

QLabel& LabelOf(const WindowLink& link) {
    return *static_cast<QLabel*>(link.m_widget);
}

LRESULT StaticProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT:
            LabelOf(link).setText(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(FromQString(LabelOf(link).text()), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return FromQString(LabelOf(link).text()).GetLength();
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

void Shape(QLabel& label, DWORD style) {
    switch (style & SS_TYPEMASK) {
        case SS_CENTER:
            label.setAlignment(Qt::AlignHCenter | Qt::AlignTop);
            break;
        case SS_RIGHT:
            label.setAlignment(Qt::AlignRight | Qt::AlignTop);
            break;
        case SS_ETCHEDHORZ:
            label.setFrameStyle(QFrame::HLine | QFrame::Sunken);
            break;
        case SS_ETCHEDFRAME:
        case SS_BLACKFRAME:
        case SS_GRAYFRAME:
            label.setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
            break;
        default:
            label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
            break;
    }
    if ((style & SS_CENTERIMAGE) != 0)
        label.setAlignment((label.alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
}

}  // namespace

WindowLink& MakeStatic(const ControlRequest& request) {
    auto* label = new QLabel(request.parent);  // a child of the parent
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQString(request.text));
    Shape(*label, request.style);
    return MakeWindow(label, request.id, request.style, &StaticProcedure);
}
