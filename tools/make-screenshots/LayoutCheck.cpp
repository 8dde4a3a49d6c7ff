// Looks at the controls in pairs, in each widget that lays some out.
#include "LayoutCheck.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QWidget>
#include <cstdlib>
#include <vector>

#include "TextRoom.h"

namespace {

constexpr int kUnevenness = 1;  // the middle of an even height lies between two pixels

using Controls = std::vector<const QWidget*>;

Controls ShownIn(const QWidget& parent) {
    Controls shown;
    for (const QObject* child : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget != nullptr && widget->isVisible() && !widget->isWindow() && !widget->size().isEmpty())
            shown.push_back(widget);
    }
    return shown;
}

bool IsFrame(const QWidget& control) {
    return qobject_cast<const QGroupBox*>(&control) != nullptr;
}

QString NameOf(const QWidget& control) {
    const QString name = control.accessibleName();
    return control.objectName() + (name.isEmpty() ? QString() : " (" + name + ")");
}

// A frame may lie around a control, but across none; anything else may not touch another thing at all.
bool Collide(const QWidget& one, const QWidget& other) {
    if (!one.geometry().intersects(other.geometry()))
        return false;
    if (IsFrame(one) == IsFrame(other))
        return true;
    const QWidget& frame = IsFrame(one) ? one : other;
    const QWidget& control = IsFrame(one) ? other : one;
    return !frame.contentsRect().translated(frame.pos()).contains(control.geometry());
}

void CheckPlaces(const QWidget& parent, const Controls& controls, QStringList& faults) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (!parent.rect().contains(controls[i]->geometry()))
            faults << NameOf(*controls[i]) + " stands over the edge";
        for (std::size_t j = 0; j < i; ++j)
            if (Collide(*controls[i], *controls[j]))
                faults << NameOf(*controls[i]) + " and " + NameOf(*controls[j]) + " lie over each other";
    }
}

void CheckLines(const Controls& controls, QStringList& faults) {
    for (const QWidget* control : controls) {
        const auto* label = qobject_cast<const QLabel*>(control);
        const QWidget* named = label ? label->buddy() : nullptr;
        // A label beside its field, not above it.
        if (named == nullptr || label->geometry().right() > named->geometry().left())
            continue;
        if (std::abs(label->geometry().center().y() - named->geometry().center().y()) > kUnevenness)
            faults << NameOf(*label) + " " + label->text() + " is not in line with " + NameOf(*named);
    }
}

}  // namespace

QStringList LayoutFaults(const QWidget& window) {
    QStringList faults;
    std::vector<const QWidget*> parents = {&window};
    for (const auto* box : window.findChildren<QDialogButtonBox*>())
        parents.push_back(box);
    for (const QWidget* parent : parents) {
        const Controls controls = ShownIn(*parent);
        CheckPlaces(*parent, controls, faults);
        CheckLines(controls, faults);
        for (const QWidget* control : controls)
            for (const QString& fault : TextFaults(*control))
                faults << NameOf(*control) + ": " + fault;
    }
    return faults;
}

QStringList WindowFaults(const QWidget& window) {
    QStringList faults;
    for (const auto* control : window.findChildren<QWidget*>())
        if (control->isVisible())
            for (const QString& fault : TextFaults(*control))
                faults << NameOf(*control) + ": " + fault;
    return faults;
}
