// Compares what is seen of a hint with its field, by the contrast that guidelines of the web measure texts by.
#include "workbench/window/HintColors.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace {

// How bright a part of a colour is, from 0 to 1.
double LinearOf(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double ContrastOf(const QColor& a, const QColor& b) {
    const auto brightness = [](const QColor& color) {
        return 0.2126 * LinearOf(color.redF()) + 0.7152 * LinearOf(color.greenF()) + 0.0722 * LinearOf(color.blueF());
    };
    const auto [dark, bright] = std::minmax({brightness(a), brightness(b)});
    return (bright + 0.05) / (dark + 0.05);
}

// Upon a field that hides what is behind it.
QColor Seen(const QColor& color, const QColor& field) {
    const double share = color.alphaF();
    const auto mixed = [share](double top, double below) { return top * share + below * (1.0 - share); };
    return QColor::fromRgbF(static_cast<float>(mixed(color.redF(), field.redF())),
                            static_cast<float>(mixed(color.greenF(), field.greenF())),
                            static_cast<float>(mixed(color.blueF(), field.blueF())));
}

}  // namespace

HintColors::HintColors(QWidget& window) : QObject(&window), m_window(window) {
    window.installEventFilter(this);
    Mend();
}

bool HintColors::AreReadable(const QPalette& palette) {
    constexpr double kLeast = 2.0;  // usual hints, half black on white, have nearly four
    const QColor field = palette.color(QPalette::Active, QPalette::Base);
    return ContrastOf(Seen(palette.color(QPalette::Active, QPalette::PlaceholderText), field), field) >= kLeast;
}

void HintColors::Mend() {
    const QPalette desktop = QApplication::palette();
    QPalette own;
    if (!AreReadable(desktop)) {
        QColor hint = desktop.color(QPalette::Active, QPalette::Text);
        hint.setAlphaF(0.5F);
        own.setColor(QPalette::PlaceholderText, hint);
    }
    m_window.setPalette(own);
}

bool HintColors::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        Mend();
    return QObject::eventFilter(watched, event);
}
