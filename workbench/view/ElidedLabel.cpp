// What fits is the toolkit's, so that it can be selected.
#include "workbench/view/ElidedLabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::ShowText(const QString& text) {
    setText(text);
    setToolTip(text);
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    const QRect room = contentsRect();
    if (fontMetrics().horizontalAdvance(text()) <= room.width())
        return QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}
