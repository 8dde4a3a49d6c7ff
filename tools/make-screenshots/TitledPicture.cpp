// The title bar is drawn with the fonts and colours of the window it belongs to.
#include "TitledPicture.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <map>

namespace {

constexpr int kTitleHeight = 30;
constexpr int kFrame = 1;
constexpr int kGap = 10;
constexpr int kCrossSize = 9;
const QRgb kFrameColour = qRgb(0x8A, 0x90, 0x99);

struct TitleColours {
    QColor bar;
    QColor ink;
};

TitleColours ColoursBeside(const QWidget& window) {
    const bool isDark = window.palette().color(QPalette::Window).lightness() < 128;
    return isDark ? TitleColours{QColor(0x1E, 0x20, 0x24), QColor(0xE6, 0xE8, 0xEC)}
                  : TitleColours{QColor(0xDE, 0xE2, 0xE8), QColor(0x20, 0x24, 0x2A)};
}

void DrawTitle(QPainter& painter, const QWidget& window, const QRect& bar) {
    const TitleColours colours = ColoursBeside(window);
    painter.fillRect(bar, colours.bar);
    painter.setPen(colours.ink);
    painter.setFont(window.font());
    painter.drawText(bar.adjusted(kGap, 0, -kGap, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     window.windowTitle().remove("[*]"));
    const QRect cross(bar.right() - kGap - kCrossSize, bar.center().y() - kCrossSize / 2, kCrossSize, kCrossSize);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colours.ink, 1.2));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
    painter.setRenderHint(QPainter::Antialiasing, false);
}

// What a channel's value is drawn as when only every so many values are used; black and white stay.
int Coarse(int value, int step) {
    return std::min((value + step / 2) / step * step, 255);
}

QRgb Coarse(QRgb colour, int step) {
    return qRgb(Coarse(qRed(colour), step), Coarse(qGreen(colour), step), Coarse(qBlue(colour), step));
}

// The table's index of each colour; more than a table holds when the step is too small.
std::map<QRgb, int> ColoursOf(const QImage& picture, int step) {
    std::map<QRgb, int> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colours.try_emplace(Coarse(picture.pixel(x, y), step), static_cast<int>(colours.size()));
    return colours;
}

}  // namespace

QImage TitledPicture(QWidget& window, QWidget* popup) {
    const QRect inside(QPoint(kFrame, kFrame + kTitleHeight), window.size());
    const QRect outside = inside.adjusted(-kFrame, -kFrame - kTitleHeight, kFrame, kFrame);
    QRect all = outside;
    QPoint popupAt;
    if (popup != nullptr) {
        popupAt = inside.topLeft() + popup->mapToGlobal(QPoint(0, 0)) - window.mapToGlobal(QPoint(0, 0));
        all |= QRect(popupAt, popup->size());
    }
    const double scale = window.devicePixelRatioF();
    QImage picture((QSizeF(all.size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.translate(-all.topLeft());
    painter.fillRect(outside, QColor(kFrameColour));
    DrawTitle(painter, window, QRect(kFrame, kFrame, window.width(), kTitleHeight));
    painter.drawPixmap(inside.topLeft(), window.grab());
    if (popup != nullptr)
        painter.drawPixmap(popupAt, popup->grab());
    return picture;
}

QImage WithColourTable(const QImage& picture) {
    constexpr std::size_t kMostColours = 256;
    int step = 1;
    std::map<QRgb, int> colours = ColoursOf(picture, step);
    while (colours.size() > kMostColours)
        colours = ColoursOf(picture, step *= 2);
    QList<QRgb> table(static_cast<qsizetype>(colours.size()));
    for (const auto& [colour, index] : colours)
        table[index] = colour;
    QImage indexed(picture.size(), QImage::Format_Indexed8);
    indexed.setColorTable(table);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            indexed.setPixel(x, y, static_cast<uint>(colours.at(Coarse(picture.pixel(x, y), step))));
    return indexed;
}
