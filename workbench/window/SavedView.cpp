// Puts plates onto the picture, and lets the toolkit write it.
#include "workbench/window/SavedView.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <algorithm>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/view/WidgetText.h"

namespace {

// Of those that people hand on, the ones that the toolkit can write here.
std::vector<QString> Endings() {
    const QList<QByteArray> known = QImageWriter::supportedImageFormats();
    std::vector<QString> endings;
    for (const char* const each : {"png", "jpg", "jpeg", "bmp"})
        if (known.contains(each))
            endings.emplace_back(each);
    return endings;
}

QString Patterns(const char* between) {
    QStringList patterns;
    for (const QString& each : Endings())
        patterns << "*." + each;
    return patterns.join(between);
}

// Gives a name without an ending one. False for one that no picture has, or that was not asked for and is taken.
bool HasUsableName(QString& name, CString& problem) {
    QString ending = QFileInfo(name).suffix().toLower();
    const std::vector<QString> endings = Endings();
    if (ending.isEmpty()) {
        ending = endings.front();
        name += (name.endsWith('.') ? "" : ".") + ending;
        if (!QFileInfo::exists(name))
            return true;
        problem = SayFormat(L"已经有 %s，没有替换它：请连同扩展名写出要替换的文件", Printable(Typed(name)));
        return false;
    }
    if (std::find(endings.begin(), endings.end(), ending) != endings.end())
        return true;
    QStringList all;
    for (const QString& each : endings)
        all << "." + each;
    problem =
        SayFormat(L"不能写成 .%s 的图片；请给文件名这些扩展名之一：%s", Printable(Typed(ending)), Typed(all.join(' ')));
    return false;
}

}  // namespace

QImage StampedView(QImage picture, const std::vector<QString>& stamp, const std::vector<PlateRow>& legend) {
    constexpr int kLeastHeight = 13;
    constexpr int kLinesInPicture = 42;
    const int side = std::min(picture.width() * 9 / 16, picture.height());
    const int edge = std::max(kLeastHeight, side / kLinesInPicture);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const int most = picture.width() - 2 * edge;
    if (!stamp.empty()) {
        Plate plate(edge);
        for (const QString& line : stamp)
            plate.Add({-1, line});
        plate.Draw(painter, edge, edge, most);
    }
    if (!legend.empty()) {
        Plate plate(edge);
        for (const PlateRow& row : legend)
            plate.Add(row);
        plate.MakeNoHigherThan(picture.height() - 2 * edge);
        const int wide = std::min(plate.Width(), most);
        plate.Draw(painter, picture.width() - edge - wide, picture.height() - edge - plate.Height(), most);
    }
    return picture;
}

CString PictureFilter() {
    return Say(L"图片") + Typed(" (" + Patterns(" ") + ")|" + Patterns(";") + "||");
}

bool SavePictureAs(const QImage& picture, CString& path, CString& problem) {
    QString name = Shown(path);
    if (!HasUsableName(name, problem))
        return false;
    path = Typed(name);
    constexpr int kGood = 95;  // of 100; others have edges of houses with specks around them
    const QByteArray format = QFileInfo(name).suffix().toLower().toLatin1();
    QSaveFile file(name);
    QString reason;
    if (file.open(QIODevice::WriteOnly)) {
        QImageWriter writer(&file, format);
        if (format.startsWith("jp"))
            writer.setQuality(kGood);
        if (writer.write(picture) && file.commit())
            return true;
        reason = file.error() == QFileDevice::NoError ? writer.errorString() : QString();
    }
    problem = SayFormat(L"无法保存 %s：%s", Printable(path),
                        Printable(Typed(reason.isEmpty() ? file.errorString() : reason)));
    return false;
}
