// Bitmaps are images in a table; the class owns one handle of it.
#include "platform/media/CBitmap.h"

#include <QImage>

#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/base/HandleTable.h"
#include "platform/media/BitmapTable.h"

namespace {

using BitmapTable = HandleTable<const QImage, HBITMAP>;

// Never destroyed: bitmaps may be deleted by destructors that run late.
BitmapTable& Bitmaps() {
    static BitmapTable& bitmaps = *new BitmapTable;
    return bitmaps;
}

}  // namespace

std::shared_ptr<QImage> NewPicture(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0 || width > kMostPictureBytes / 4 || height > kMostPictureBytes / 4 / width)
        return nullptr;
    // The image's own constructor would leave the pixels unset, and setting them all takes long for a large picture of
    // which a file says little.
    void* pixels = std::calloc(static_cast<std::size_t>(width * height), 4);
    if (pixels == nullptr)
        return nullptr;
    std::shared_ptr<QImage> picture;
    try {
        picture =
            std::make_shared<QImage>(static_cast<uchar*>(pixels), static_cast<int>(width), static_cast<int>(height),
                                     static_cast<qsizetype>(width * 4), QImage::Format_RGB32, std::free, pixels);
    } catch (const std::bad_alloc&) {
        picture = nullptr;
    }
    if (!picture || picture->isNull()) {  // an image that came to nothing has not taken the pixels over
        std::free(pixels);
        return nullptr;
    }
    return picture;
}

HBITMAP AddPicture(std::shared_ptr<const QImage> picture) {
    return Bitmaps().Add(std::move(picture));
}

std::shared_ptr<const QImage> FindPicture(HBITMAP bitmap) {
    return Bitmaps().Find(bitmap);
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bits, const void* pixels) {
    if (planes != 1 || bits != 32)
        return nullptr;
    std::shared_ptr<QImage> picture = NewPicture(width, height);
    if (!picture)
        return nullptr;
    if (pixels != nullptr)
        std::memcpy(picture->bits(), pixels, static_cast<std::size_t>(picture->sizeInBytes()));
    return AddPicture(std::move(picture));
}

int GetObject(HBITMAP bitmap, int bytes, void* out) {
    const std::shared_ptr<const QImage> picture = FindPicture(bitmap);
    if (!picture || out == nullptr || bytes < static_cast<int>(sizeof(BITMAP)))
        return 0;
    const BITMAP told = {0, picture->width(), picture->height(), picture->width() * 4, 1, 32, nullptr};
    std::memcpy(out, &told, sizeof told);
    return static_cast<int>(sizeof told);
}

BOOL DeleteObject(HBITMAP bitmap) {
    return Bitmaps().Remove(bitmap) != nullptr ? TRUE : FALSE;
}

bool ReadBitmapPixels(HBITMAP bitmap, DWORD* pixels) {
    const std::shared_ptr<const QImage> picture = FindPicture(bitmap);
    if (!picture || pixels == nullptr)
        return false;
    const auto count = static_cast<std::size_t>(picture->sizeInBytes()) / 4;
    const auto* from = reinterpret_cast<const DWORD*>(picture->constBits());
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = from[i] & 0xFFFFFF;
    return true;
}

std::size_t LiveBitmaps() {
    return Bitmaps().Count();
}

const CRuntimeClass CBitmap::classCBitmap = {"CBitmap", static_cast<int>(sizeof(CBitmap)), &CObject::classCObject};

CBitmap::~CBitmap() {
    DeleteObject();
}

const CRuntimeClass* CBitmap::GetRuntimeClass() const {
    return &classCBitmap;
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bits, const void* pixels) {
    if (m_bitmap != nullptr)
        return FALSE;
    return Attach(::CreateBitmap(width, height, planes, bits, pixels));
}

BOOL CBitmap::Attach(HBITMAP bitmap) {
    if (bitmap == nullptr || m_bitmap != nullptr)
        return FALSE;
    m_bitmap = bitmap;
    return TRUE;
}

HBITMAP CBitmap::Detach() {
    const HBITMAP bitmap = m_bitmap;
    m_bitmap = nullptr;
    return bitmap;
}

BOOL CBitmap::DeleteObject() {
    return ::DeleteObject(Detach());
}

int CBitmap::GetBitmap(BITMAP* out) const {
    return GetObject(m_bitmap, static_cast<int>(sizeof(BITMAP)), out);
}
