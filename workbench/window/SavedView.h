// A view as a picture in a file: with what the window tells beside it, in the format that the name says.
// Why: docs/decisions/workbench.md
#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/view/Plate.h"

// With the sun's moment in the upper left corner, and below on the right what the colours mean; either may be empty.
QImage StampedView(QImage picture, const std::vector<QString>& stamp, const std::vector<PlateRow>& legend);

// The pictures that can be written, as a file dialog asks for them.
CString PictureFilter();

// Writes a picture in the format that its name's ending says; a name without one gets .png. False, with the reason,
// for other endings, and where it cannot be written: what was there before is there still.
bool SavePictureAs(const QImage& picture, CString& path, CString& problem);
