// Push buttons, check boxes, radio buttons and group boxes.
#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

QAbstractButton& ButtonOf(const WindowLink& link) {
    return *static_cast<QAbstractButton*>(link.m_widget);
}

// A radio button of a group can only be unchecked while its group allows that.
void SetCheck(QAbstractButton& button, bool checked) {
    QButtonGroup* group = button.group();
    if (checked || group == nullptr) {
        button.setChecked(checked);
        return;
    }
    group->setExclusive(false);
    button.setChecked(false);
    group->setExclusive(true);
}

// Tab goes to the checked button of a group, or to the first while none is; the arrows go to the others.
void FixTabStop(const QButtonGroup& group) {
    const auto buttons = group.buttons();
    const QAbstractButton* checked = group.checkedButton();
    const QAbstractButton* stop = checked != nullptr ? checked : buttons.value(0);
    for (QAbstractButton* button : buttons) {
        const int others = button->focusPolicy() & ~Qt::TabFocus;
        button->setFocusPolicy(static_cast<Qt::FocusPolicy>(button == stop ? others | Qt::TabFocus : others));
    }
}

LRESULT ButtonProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    QAbstractButton& button = ButtonOf(link);
    switch (message) {
        case WM_SETTEXT:
            button.setText(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(FromQString(button.text()), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return FromQString(button.text()).GetLength();
        case BM_GETCHECK:
            return button.isChecked() ? BST_CHECKED : BST_UNCHECKED;
        case BM_SETCHECK:
            SetCheck(button, wParam != 0);
            return 0;
        case BM_CLICK:
            button.click();
            return 0;
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

LRESULT GroupBoxProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    auto& box = *static_cast<QGroupBox*>(link.m_widget);
    switch (message) {
        case WM_SETTEXT:
            box.setTitle(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(FromQString(box.title()), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return FromQString(box.title()).GetLength();
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

// Children of the parent.
QAbstractButton* NewButton(const ControlRequest& request) {
    switch (request.style & BS_TYPEMASK) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
            return new QCheckBox(request.parent);
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON: {
            auto* radio = new QRadioButton(request.parent);
            radio->setAutoExclusive(false);  // the dialog forms the groups
            QObject::connect(radio, &QAbstractButton::toggled, radio, [radio] {
                if (const QButtonGroup* group = radio->group())
                    FixTabStop(*group);
            });
            return radio;
        }
        default: {
            auto* button = new QPushButton(request.parent);
            button->setDefault((request.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON);
            return button;
        }
    }
}

WindowLink& MakeGroupBox(const ControlRequest& request) {
    auto* box = new QGroupBox(ToQString(request.text), request.parent);
    return MakeWindow(box, request.id, request.style, &GroupBoxProcedure);
}

}  // namespace

WindowLink& MakeButton(const ControlRequest& request) {
    if ((request.style & BS_TYPEMASK) == BS_GROUPBOX)
        return MakeGroupBox(request);
    QAbstractButton* button = NewButton(request);
    button->setText(ToQString(request.text));
    WindowLink& link = MakeWindow(button, request.id, request.style, &ButtonProcedure);
    QObject::connect(button, &QAbstractButton::clicked, button, [&link] { link.NotifyParent(BN_CLICKED); });
    return link;
}
