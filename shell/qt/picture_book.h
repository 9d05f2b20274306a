// Every bitmap of the device window, rendered once at the screen's
// device-pixel ratio, so the device is crisp at 100 % and at 200 %.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <array>

#include "device/screen_objects.h"

namespace nautrix {

class PictureBook {
 public:
  explicit PictureBook(qreal device_pixel_ratio);
  // The picture's pixmap; its logical size (size / devicePixelRatio) is the
  // size of every object that shows it.
  const QPixmap& Picture(Pic pic) const { return pictures_[static_cast<int>(pic)]; }
  qreal devicePixelRatio() const { return dpr_; }

 private:
  qreal dpr_;
  std::array<QPixmap, kPicCount> pictures_;
};

// The program's icon: the head of the nautrix, at the sizes a desktop asks for.
QIcon AppIcon();

// Page 1 to 9 of the instruction leaflet, 413 x 250 logical pixels.
QImage RenderPage(int page, qreal device_pixel_ratio);

}  // namespace nautrix
