// Makes a dialog's widgets: turns dialog units into pixels and class names into widgets, and ties controls to each
// other by groups, labels and order.
#include "platform/window/toolkit/DialogBuilder.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "platform/base/Language.h"
#include "platform/host/ResourceText.h"
#include "platform/window/resource/ResourceScript.h"
#include "platform/window/toolkit/ColumnStretch.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/SpinArrows.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

constexpr int kLineHeight = 14;  // of an edit or a button, in dialog units

// What only shows looks like it: an edit that takes no text has no paper to write on.
void DullReadOnly(QWidget* widget) {
    const auto* edit = qobject_cast<QLineEdit*>(widget);
    if (edit == nullptr || !edit->isReadOnly())
        return;
    QPalette palette = widget->palette();
    palette.setBrush(QPalette::Base, palette.brush(QPalette::Window));
    widget->setPalette(palette);
}

// One control in the making: where it comes from, and where it stands in pixels.
struct Placed {
    const DialogItemTemplate* item;
    WindowLink* link;
    QRect place;
};

// The pixels of a dialog unit: the width of an average letter is four of them, its height eight.
class DialogUnits {
public:
    explicit DialogUnits(const QFontMetrics& font) {
        const QString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        constexpr int kHalfOfLetters = 26;
        m_baseX = (font.horizontalAdvance(letters) / kHalfOfLetters + 1) / 2;
        m_baseY = font.height();
    }

    int X(int units) const { return (units * m_baseX + 2) / 4; }
    int Y(int units) const { return (units * m_baseY + 4) / 8; }
    QRect Rect(int x, int y, int cx, int cy) const {
        return {QPoint(X(x), Y(y)), QPoint(X(x + cx) - 1, Y(y + cy) - 1)};
    }

private:
    int m_baseX;
    int m_baseY;
};

CString Translated(const CString& text) {
    return text.IsEmpty() ? text : PlatformText(text);
}

WindowLink& MakePlaceholder(const ControlRequest& request) {
    auto* frame = new QWidget(request.parent);  // a child of the parent
    return MakeWindow(frame, request.id, request.style, &CommonProcedure);
}

using Maker = WindowLink& (*)(const ControlRequest&);

Maker MakerOf(const CString& windowClass) {
    struct Kind {
        const wchar_t* name;
        Maker make;
    };
    static constexpr Kind kKinds[] = {
        {L"BUTTON", &MakeButton},
        {L"EDIT", &MakeEdit},
        {L"STATIC", &MakeStatic},
        {L"LISTBOX", &MakeListBox},
        {L"COMBOBOX", &MakeComboBox},
        {L"msctls_updown32", &MakeSpinButton},
        {L"SysDateTimePick32", &MakeDatePicker},
    };
    for (const Kind& kind : kKinds)
        if (windowClass.CompareNoCase(kind.name) == 0)
            return kind.make;
    return &MakePlaceholder;  // a window of the program's own takes its place
}

bool IsGroupBox(const DialogItemTemplate& item) {
    return item.windowClass.CompareNoCase(L"BUTTON") == 0 && (item.style & BS_TYPEMASK) == BS_GROUPBOX;
}

Placed Make(const DialogItemTemplate& item, QWidget* dialog, const DialogUnits& units) {
    WindowLink& link = MakerOf(item.windowClass)({dialog, item.id, item.style, Translated(item.text)});
    QWidget* widget = link.m_widget;
    widget->setVisible((item.style & WS_VISIBLE) != 0);
    widget->setEnabled((item.style & WS_DISABLED) == 0);
    if ((item.style & WS_TABSTOP) == 0)
        widget->setFocusPolicy(static_cast<Qt::FocusPolicy>(widget->focusPolicy() & ~Qt::TabFocus));
    DullReadOnly(widget);
    QRect place = units.Rect(item.x, item.y, item.cx, item.cy);
    // The height of a combo box counts its list; its own is that of the edits that it stands in line with.
    if (item.windowClass.CompareNoCase(L"COMBOBOX") == 0) {
        const int line = units.Rect(item.x, item.y, item.cx, kLineHeight).height();
        place.setHeight(std::min(place.height(), std::max(line, widget->sizeHint().height())));
    }
    return {&item, &link, place};
}

// Frames come first, so that what stands in them lies above them; the order of the keyboard is the template's.
std::vector<Placed> MakeControls(const DialogTemplate& source, QWidget* dialog, const DialogUnits& units) {
    std::vector<Placed> controls(source.items.size());
    for (const bool frames : {true, false})
        for (std::size_t i = 0; i < source.items.size(); ++i)
            if (IsGroupBox(source.items[i]) == frames)
                controls[i] = Make(source.items[i], dialog, units);
    for (std::size_t i = 0; i < controls.size(); ++i)
        controls[i].link->m_order = static_cast<int>(i);
    return controls;
}

// How wide a control must be to show its text; 0 where that is as wide as it may be.
int NeededWidth(const Placed& control) {
    QWidget* widget = control.link->m_widget;
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        const bool wraps = (control.item->style & SS_TYPEMASK) <= SS_RIGHT &&
                           control.place.height() >= 2 * label->fontMetrics().height();
        label->setWordWrap(wraps);
        return wraps ? 0 : label->sizeHint().width();
    }
    if (auto* box = qobject_cast<QGroupBox*>(widget))
        return box->minimumSizeHint().width();
    return qobject_cast<QAbstractButton*>(widget) ? widget->sizeHint().width() : 0;
}

// A label of one line is as high as its letters, which may be more than the template's font was; it grows to both
// sides, so that it stays in line with what it names.
QRect GrowLabel(const Placed& control, QRect place) {
    const auto* label = qobject_cast<QLabel*>(control.link->m_widget);
    if (label == nullptr || label->wordWrap() || label->text().isEmpty())
        return place;
    const int missing = std::max(0, label->sizeHint().height() - place.height());
    return place.adjusted(0, -(missing / 2), 0, missing - missing / 2);
}

// Puts every control where it belongs and gives the dialog's size.
QSize Arrange(const std::vector<Placed>& controls, const QSize& asTold) {
    std::vector<ColumnSpan> spans = {{0, asTold.width(), 0}};
    for (const Placed& control : controls)
        spans.push_back({control.place.left(), control.place.right() + 1, NeededWidth(control)});
    const std::map<int, int> columns = StretchColumns(spans);
    int bottom = asTold.height();
    for (const Placed& control : controls) {
        QRect place = control.place;
        place.setLeft(columns.at(control.place.left()));
        place.setRight(columns.at(control.place.right() + 1) - 1);
        control.link->m_widget->setGeometry(GrowLabel(control, place));
        bottom = std::max(bottom, place.bottom() + 1);
    }
    return {columns.at(asTold.width()), bottom};
}

// Radio buttons exclude each other from one that begins a group up to the next control that does.
void FormGroups(const std::vector<Placed>& controls, QWidget* dialog) {
    QButtonGroup* group = nullptr;
    for (const Placed& control : controls) {
        if ((control.item->style & WS_GROUP) != 0)
            group = nullptr;
        auto* radio = qobject_cast<QRadioButton*>(control.link->m_widget);
        if (radio == nullptr || (control.item->style & BS_TYPEMASK) != BS_AUTORADIOBUTTON)
            continue;
        if (group == nullptr)
            group = new QButtonGroup(dialog);  // a child of the dialog
        group->addButton(radio);
    }
}

QString WithoutColon(QString name) {
    while (name.endsWith(':') || name.endsWith(QChar(0xFF1A)))
        name.chop(1);
    return name;
}

// A label names the control behind it: for its mnemonic, and for who cannot see it. A field without one that stands
// behind a check box or a radio button belongs to that.
void NameControls(const std::vector<Placed>& controls) {
    QLabel* label = nullptr;
    QString choice;
    for (const Placed& control : controls) {
        QWidget* widget = control.link->m_widget;
        if (auto* text = qobject_cast<QLabel*>(widget)) {
            label = text;
        } else if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QGroupBox*>(widget)) {
            const QString name = ToQString(TextOf(control.link->Handle())).remove('&');
            widget->setAccessibleName(name);
            choice = qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget) ? name : QString();
        } else {
            if (label != nullptr)
                label->setBuddy(widget);
            widget->setAccessibleName(WithoutColon(label != nullptr ? label->text().remove('&') : choice));
            label = nullptr;
            choice.clear();
        }
    }
}

void OrderKeyboard(const std::vector<Placed>& controls) {
    QWidget* before = nullptr;
    for (const Placed& control : controls) {
        QWidget* widget = control.link->m_widget;
        if (before != nullptr)
            QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

// Arrows lie at the inner end of the edit before them.
void JoinSpinButtons(const std::vector<Placed>& controls) {
    for (std::size_t i = 1; i < controls.size(); ++i) {
        SpinArrows* arrows = SpinArrows::Of(controls[i].link->Handle());
        const DWORD style = controls[i].item->style;
        if (arrows == nullptr || (style & UDS_AUTOBUDDY) == 0)
            continue;
        QWidget* edit = controls[i - 1].link->m_widget;
        QWidget* widget = controls[i].link->m_widget;
        arrows->SetBuddy(edit);
        if ((style & (UDS_ALIGNRIGHT | UDS_ALIGNLEFT)) == 0)
            continue;
        QRect place = edit->geometry();
        const int width = std::max(place.height() * 2 / 3, 1);
        QRect arrowsPlace = place;
        if ((style & UDS_ALIGNLEFT) != 0) {
            arrowsPlace.setRight(place.left() + width - 1);
            place.setLeft(place.left() + width);
        } else {
            arrowsPlace.setLeft(place.right() - width + 1);
            place.setRight(place.right() - width);
        }
        edit->setGeometry(place);
        widget->setGeometry(arrowsPlace);
    }
}

}  // namespace

bool FindDialogTemplate(HINSTANCE resources, UINT id, DialogTemplate& found, CString& message) {
    ResourceScript script;
    if (!script.Parse(AfxGetResourceText(resources), message))
        return false;
    const DialogTemplate* dialog = script.FindDialog(id);
    if (dialog == nullptr) {
        message.Format(PlatformText(L"资源中没有编号为%d的对话框。"), static_cast<int>(id));
        return false;
    }
    found = *dialog;
    return true;
}

QDialog* BuildDialog(const DialogTemplate& source, QWidget* owner) {
    const WindowLink& link = MakeDialog({owner, source.id, source.style, Translated(source.caption)});
    auto* dialog = static_cast<QDialog*>(link.m_widget);
    dialog->setAccessibleName(dialog->windowTitle());
    const DialogUnits units(dialog->fontMetrics());
    const std::vector<Placed> controls = MakeControls(source, dialog, units);
    dialog->setFixedSize(Arrange(controls, {units.X(source.cx), units.Y(source.cy)}));
    FormGroups(controls, dialog);
    NameControls(controls);
    OrderKeyboard(controls);
    JoinSpinButtons(controls);
    return dialog;
}
