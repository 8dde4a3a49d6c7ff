// Reads a picture with the module's reader or the toolkit's, and says what was wrong with it.
#include "workbench/commands/PictureFile.h"

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "avi/OrvoAVIFile.h"
#include "workbench/Texts.h"

namespace {

bool IsBmp(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    char start[2] = {};
    return file.read(start, sizeof start) && start[0] == 'B' && start[1] == 'M';
}

// The pixels as the bitmap takes them: rows without gaps.
bool TakeOver(const QImage& image, CBitmap& bitmap) {
    QImage opaque(image.size(), QImage::Format_RGB32);
    if (opaque.isNull())
        return false;
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(0, 0, image);
    painter.end();
    return bitmap.CreateBitmap(opaque.width(), opaque.height(), 1, 32, opaque.constBits()) != FALSE;
}

}  // namespace

bool LoadPicture(const CString& path, CBitmap& bitmap, CString& cause) {
    const std::string name = ToUtf8(path.View());
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error)) {
        cause = error || !std::filesystem::exists(name, error) ? Say(L"没有这个文件") : Say(L"不是普通文件");
        return false;
    }
    if (IsBmp(name)) {
        OrvoAVIFile reader;
        if (reader.LoadBMPImage(path, bitmap))
            return true;
        cause = Say(L"不是能读的 BMP 图像");
        return false;
    }
    QImageReader reader(QString::fromStdString(name));
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (!image.isNull() && TakeOver(image, bitmap))
        return true;
    cause = Say(L"不是能读的图像（可用 BMP、PNG 和 JPEG）");
    return false;
}
