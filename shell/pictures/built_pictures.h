// The device's pictures at 100 % and the program's icon, rendered from the
// vector art when the program was built (tools/render_pictures.cpp). A start
// on a screen of the usual ratio shows its first frame without rendering
// anything: no vector sheet is read and no font is loaded, and the pictures
// are the program's own read-only pages, shared by every running copy. On a
// screen of another ratio the pictures are rendered for it at the start.
#pragma once

#include <QIcon>
#include <iterator>
#include <memory>

#include "shell/pictures/picture_book.h"

namespace nautrix {

// One image of the build's rendering: rows of width * 4 bytes at `offset`
// in kBuiltPixels.
struct BuiltImage {
  int width, height;
  long offset;
};

// Written by the build into the generated pictures source.
extern const BuiltImage kBuiltPictures[kPicCount];              // RGB32, by Pic
extern const BuiltImage kBuiltIcons[std::size(kIconSizes)];     // premultiplied ARGB
extern const char kBuiltPixels[];

// The pictures for a screen of the ratio.
std::unique_ptr<PictureBook> PicturesFor(qreal device_pixel_ratio);

// The program's icon at every size of kIconSizes.
QIcon AppIcon();

}  // namespace nautrix
