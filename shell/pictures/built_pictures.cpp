#include "shell/pictures/built_pictures.h"

#include <QPixmap>

namespace nautrix {
namespace {

// The image over the build's pixels themselves: nothing is copied.
QImage Built(const BuiltImage& image, QImage::Format format) {
  return QImage(reinterpret_cast<const uchar*>(kBuiltPixels + image.offset), image.width,
                image.height, image.width * 4, format);
}

}  // namespace

std::unique_ptr<PictureBook> PicturesFor(qreal device_pixel_ratio) {
  if (device_pixel_ratio != 1) return std::make_unique<PictureBook>(device_pixel_ratio);
  PictureImages pictures;
  for (int i = 1; i < kPicCount; ++i) pictures[i] = Built(kBuiltPictures[i], QImage::Format_RGB32);
  return std::make_unique<PictureBook>(1, std::move(pictures));
}

QIcon AppIcon() {
  QIcon icon;
  for (const BuiltImage& image : kBuiltIcons)
    icon.addPixmap(QPixmap::fromImage(Built(image, QImage::Format_ARGB32_Premultiplied)));
  return icon;
}

}  // namespace nautrix
