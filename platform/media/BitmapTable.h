// The pictures behind the bitmaps' handles, for the sources of this folder only.
//
// A picture is an image of 32 bits a pixel whose top byte means nothing. It never changes once it has a handle, so that
// several threads may read it while another one deletes the bitmap.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/base/FrameworkTypes.h"

class QImage;

// The most bytes that the pixels of one picture may take.
inline constexpr std::int64_t kMostPictureBytes = std::int64_t{1} << 31;

// A black picture; null when the size is not positive, too much, or there is no memory.
std::shared_ptr<QImage> NewPicture(std::int64_t width, std::int64_t height);
// Null when there is no picture or no memory.
HBITMAP AddPicture(std::shared_ptr<const QImage> picture);
// Null for a handle that names no bitmap.
std::shared_ptr<const QImage> FindPicture(HBITMAP bitmap);
