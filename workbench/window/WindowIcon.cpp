// Draws the program's picture, so that it is sharp at every size and needs no file.
#include "workbench/window/WindowIcon.h"

#include <QPainter>
#include <QPixmap>

namespace {

// On a field of 64 by 64.
void Draw(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xE8, 0xF1, 0xFA));
    painter.drawRoundedRect(QRectF(1, 1, 62, 62), 12, 12);
    painter.setBrush(QColor(0xF5, 0xA6, 0x23));
    painter.drawEllipse(QPointF(18, 18), 10, 10);
    painter.setBrush(QColor(0x8A, 0x9B, 0xAE));
    painter.drawPolygon(QPolygonF({{46, 54}, {62, 54}, {56, 47}, {46, 47}}));
    painter.setBrush(QColor(0x2F, 0x5D, 0x8A));
    painter.drawPolygon(QPolygonF({{26, 54}, {26, 30}, {36, 22}, {46, 30}, {46, 54}}));
    painter.setBrush(QColor(0xFF, 0xE0, 0x8A));
    for (const QPointF corner : {QPointF(30, 33), QPointF(38, 33), QPointF(30, 43), QPointF(38, 43)})
        painter.drawRect(QRectF(corner, QSizeF(4, 6)));
}

}  // namespace

QIcon WindowIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.scale(size / 64.0, size / 64.0);
        Draw(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
